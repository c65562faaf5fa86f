#pragma once
// Brings a level file into the game: reads and checks all of it first, and only then shuts the
// old level down and hands the records to the modules that own them.

#include <string>

namespace LevelFileReader {

/// False if the file can't be used: the reason is on the console, and the level that was
/// loaded lives on.
bool Read(const std::string& fileName);

}  // namespace LevelFileReader
