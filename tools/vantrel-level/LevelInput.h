#pragma once
// A level file read for the tools: its records and, from them, the polygons as the game has
// them when a level starts.

#include <deque>
#include <filesystem>
#include <optional>
#include <string>

#include "level/LevelFile.h"
#include "level/LevelPolygon.h"

/// The file of that name, as the game finds it or else as it stands.
std::filesystem::path LevelPath(const std::string& fileName);

/// The level, or none with `failure` set.
std::optional<LevelFile> ReadLevel(const std::string& fileName, std::string& failure);

/// The level's polygons, split into triangles, with frictions from cfg\surfaces.cfg and the
/// marks of what movers carry and triggers toggle.
std::deque<LevelPolygon> MakePolygons(const LevelFile& level);
