#pragma once
// From the objects of a Tiled map to the records of a level file.

#include <optional>
#include <span>
#include <string>

#include "MapReader.h"
#include "level/LevelFile.h"

/// The level, or none with `failure` naming the object and what is wrong with it. Records
/// keep the order of the map. Outlines are tidied unless their property "exact" is set.
std::optional<LevelFile> Compile(std::span<const MapObject> objects, std::string& failure);
