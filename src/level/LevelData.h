#pragma once
// The loaded level: it owns the polygons. Other modules hold pointers into `polygons` for the
// life of the level, which game/LevelLife.h begins and ends.

#include <deque>
#include <map>
#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"
#include "level/LevelPolygon.h"
#include "level/LevelState.h"

namespace LevelData {

/// All polygons in file order.
extern std::deque<LevelPolygon> polygons;
/// Of the world in play.
extern LevelState current;
/// Which segments of the tree came from which polygon.
extern std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
/// Console-switched view of the polygons' triangles.
extern bool drawTriangles;
extern Vector2 waterStart;
extern Vector2 cameraStart;

/// Appends a polygon, in its first state in the world in play.
LevelPolygon& Add(LevelPolygon polygon);
/// Fills `polygonSegments`, in the tree's order; once the tree is built.
void MapSegments();
/// Forgets all polygons.
void Clear();
/// Of the world in play.
PolygonState& StateOf(const LevelPolygon& polygon);
/// Whether the polygon's edges collide from now on.
void SetPolygonSolid(LevelState& level, const LevelPolygon& polygon, bool solid);
void SetPolygonSolid(const LevelPolygon& polygon, bool solid);
/// Debug views (LevelDataDraw.cpp).
void Draw();

}  // namespace LevelData
