#pragma once
// Brings a level file into the game: reads and checks it as a whole, and only then ends the
// level that runs and puts the new one in its place.

#include <string>

namespace LevelFileReader {

/// Publishes the level of that name. On failure the reason is on the console, false comes
/// back, and nothing has changed. Called by LevelData::Load only.
bool Read(const std::string& fileName);

}  // namespace LevelFileReader
