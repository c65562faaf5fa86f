#pragma once
// Turns the records of a level file into the polygons that the game collides with and draws.
// The tools build the same ones; without a texture device no image is read.

#include <deque>

#include "level/LevelFile.h"
#include "level/LevelPolygon.h"

namespace LevelBuilder {

/// One polygon, split into triangles, its friction from the surface table (ReadSurfaces).
LevelPolygon BuildPolygon(const LevelFile::Polygon& record);

/// Marks what the file's triggers switch and its movers carry; the tree and the renderers go
/// by these marks.
void MarkPolygons(std::deque<LevelPolygon>& polygons, const LevelFile& file);

}  // namespace LevelBuilder
