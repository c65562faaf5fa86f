#pragma once
// The loaded level: it owns the polygons and starts, ends and resets the modules that live
// with a level. Other modules hold pointers into `polygons` for the life of the level.

#include <list>
#include <map>
#include <string>
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

/// Reads the file and makes all level modules ready. On failure the reason is on the console,
/// false comes back, and the level that was loaded lives on.
bool Load(const std::string& fileName);
void Unload();
/// Back to the level's first state, without the file.
void Restart();
/// Whether the polygon's edges collide from now on.
void SetPolygonSolid(LevelPolygon& polygon, bool solid);
/// Debug views (LevelDataDraw.cpp).
void Draw();

}  // namespace LevelData
