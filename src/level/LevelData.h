#pragma once
// The loaded level: it owns the polygons. Other modules hold pointers into `polygons` for the
// life of the level, which game/LevelLife.h begins and ends.

#include <list>
#include <map>
#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace LevelData {

/// All polygons in file order.
extern std::list<LevelPolygon> polygons;
/// Which segments of the tree came from which polygon.
extern std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
/// Console-switched view of the polygons' triangles.
extern bool drawTriangles;
extern Vector2 waterStart;
extern Vector2 cameraStart;

/// Fills `polygonSegments`, in the tree's order; once the tree is built.
void MapSegments();
/// Whether the polygon's edges collide from now on.
void SetPolygonSolid(LevelPolygon& polygon, bool solid);
/// Debug views (LevelDataDraw.cpp).
void Draw();

}  // namespace LevelData
