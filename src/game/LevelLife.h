#pragma once
// The life of the loaded level (level/LevelData.h): starting, ending and resetting it touches
// every module that lives with a level, so it stands above them all.

#include <string>

namespace LevelData {

/// Reads the file and makes all level modules ready. On failure the reason is on the console,
/// false comes back, and the level that was loaded lives on.
bool Load(const std::string& fileName);
void Unload();
/// Back to the level's first state, without the file.
void Restart();

}  // namespace LevelData
