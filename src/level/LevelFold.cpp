#include "level/LevelFold.h"

#include "level/BspTreeState.h"
#include "level/LevelData.h"

namespace LevelFold {

namespace {

void Fold(StateFold& fold, const LevelPolygon& polygon) {
    // The triangles follow from the outline.
    const auto& [solid, enabled, visible, movedByMover, toggledByTrigger, winding, triangleCount,
                 id, friction, offset, previousOffset, texture, pointsX, pointsY, triangleX,
                 triangleY, triangleNormalX, triangleNormalY, layer] = polygon;
    fold.Add(solid, enabled, visible, movedByMover, toggledByTrigger, winding, triangleCount, id,
             friction, offset, previousOffset, layer, pointsX.size());
    for (std::size_t i = 0; i < polygon.PointCount(); ++i) {
        fold.Add(polygon.Point(i));
    }
}

}  // namespace

void AddLevel(StateFold& fold) {
    fold.Add(LevelData::polygons.size());
    for (const LevelPolygon& polygon : LevelData::polygons) {
        Fold(fold, polygon);
    }
    // A restart lets all segments collide, also those of polygons that stay taken away. The rest
    // of the tree follows from the polygons.
    fold.Add(BspTree::nodes.size());
    for (const BspSegment& node : BspTree::nodes) {
        fold.Add(node.active);
    }
}

}  // namespace LevelFold
