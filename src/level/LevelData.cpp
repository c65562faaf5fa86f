// The loaded level's polygons and the switching of their edges.

#include "level/LevelData.h"

#include <utility>

#include "level/BspTree.h"
#include "platform/Assert.h"

namespace LevelData {

std::deque<LevelPolygon> polygons;
LevelState current;
std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
bool drawTriangles = false;
Vector2 waterStart;
Vector2 cameraStart;

LevelPolygon& Add(LevelPolygon polygon) {
    polygon.number = static_cast<std::uint32_t>(polygons.size());
    current.polygons.emplace_back().solid = polygon.solid;
    return polygons.emplace_back(std::move(polygon));
}

void MapSegments() {
    std::vector<BspSegment*> segments;
    BspTree::CollectNodes(segments);
    for (BspSegment* const segment : segments) {
        polygonSegments[segment->polygon].push_back(segment);
    }
}

void Clear() {
    polygons.clear();
    polygonSegments.clear();
    current.polygons.clear();
}

PolygonState& StateOf(const LevelPolygon& polygon) {
    VANTREL_ASSERT(polygon.number < current.polygons.size());
    return current.polygons[polygon.number];
}

void SetPolygonSolid(LevelState& level, const LevelPolygon& polygon, bool solid) {
    const std::uint8_t value = solid ? 1 : 0;
    level.polygons[polygon.number].solid = value;
    const auto entry = polygonSegments.find(&polygon);
    if (entry == polygonSegments.end()) {
        return;
    }
    for (const BspSegment* const segment : entry->second) {
        level.segmentsCollide[BspTree::NumberOf(*segment)] = value;
    }
}

void SetPolygonSolid(const LevelPolygon& polygon, bool solid) {
    SetPolygonSolid(current, polygon, solid);
}

}  // namespace LevelData
