#pragma once
// Turns the records of a level file into the polygons that the game collides with and draws.

#include <cstdint>
#include <list>
#include <unordered_set>

#include "level/LevelFile.h"
#include "level/LevelPolygon.h"

namespace LevelBuilder {

/// One polygon, split into triangles, its friction from the surface table (ReadSurfaces).
LevelPolygon BuildPolygon(const LevelFile::Polygon& record);

/// Ids that actors address polygons by.
using Ids = std::unordered_set<std::uint32_t>;

/// Whether a trigger of this type switches the polygons of its target id.
bool TogglesPolygons(std::int64_t triggerType);

/// Marks what triggers toggle and what movers carry; the tree is built from these marks.
void MarkPolygons(std::list<LevelPolygon>& polygons, const Ids& toggled, const Ids& moved);

}  // namespace LevelBuilder
