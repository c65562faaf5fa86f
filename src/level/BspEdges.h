#pragma once
// The edges that the level's tree is built from: taken from the polygons and cleaned of the
// stretches along which polygons touch, which lie inside the solid.

#include <deque>
#include <vector>

#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace BspEdges {

/// The edges of all polygons that can collide or cut, the last polygon's last edge first.
/// Normals point into the polygons.
std::vector<BspSegment> Collect(std::deque<LevelPolygon>& polygons);

/// Takes away seams, joins edges in line and cuts overlaps, pair by pair in list order; then
/// drops the edges that were only there to cut. Edges of polygons that triggers toggle stay
/// as they are.
std::vector<BspSegment> Clean(const std::vector<BspSegment>& edges);

}  // namespace BspEdges
