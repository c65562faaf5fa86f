// The loaded level's polygons and the switching of their edges.

#include "level/LevelData.h"

#include "level/BspTree.h"

namespace LevelData {

std::list<LevelPolygon> polygons;
std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
bool drawTriangles = false;
Vector2 waterStart;
Vector2 cameraStart;

void MapSegments() {
    std::vector<BspSegment*> segments;
    BspTree::CollectNodes(segments);
    for (BspSegment* const segment : segments) {
        polygonSegments[segment->polygon].push_back(segment);
    }
}

void SetPolygonSolid(LevelPolygon& polygon, bool solid) {
    const std::uint8_t value = solid ? 1 : 0;
    polygon.solid = value;
    const auto entry = polygonSegments.find(&polygon);
    if (entry == polygonSegments.end()) {
        return;
    }
    for (BspSegment* const segment : entry->second) {
        segment->active = value;
    }
}

}  // namespace LevelData
