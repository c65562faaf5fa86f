#pragma once
// From the records of a level file to a Tiled map in JSON. Compiling that map gives the same
// bytes again, whatever the file held.

#include <string>

#include "level/LevelFile.h"

std::string Decompile(const LevelFile& level);
