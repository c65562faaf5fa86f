#include "level/LevelFold.h"

namespace LevelFold {

namespace {

void Fold(StateFold& fold, const PolygonState& polygon) {
    const auto& [solid, enabled, offset, previousOffset] = polygon;
    fold.Add(solid, enabled, offset, previousOffset);
}

}  // namespace

void AddLevel(StateFold& fold, const LevelState& level) {
    const auto& [polygons, segmentsCollide] = level;
    fold.Add(polygons.size());
    for (const PolygonState& polygon : polygons) {
        Fold(fold, polygon);
    }
    // A restart lets all segments collide, also those of polygons that stay taken away.
    fold.Add(segmentsCollide.size());
    for (const std::uint8_t collides : segmentsCollide) {
        fold.Add(collides);
    }
}

}  // namespace LevelFold
