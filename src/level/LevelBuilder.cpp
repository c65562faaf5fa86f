#include "level/LevelBuilder.h"

#include <unordered_set>
#include <vector>

#include "level/Surfaces.h"
#include "level/TriggerTypes.h"

namespace {

/// Flags are a plain number; those without a meaning leave the polygon solid and visible.
void SetFlags(LevelPolygon& polygon, std::uint32_t flags) {
    polygon.visible = flags == 2 || flags == 3 ? 0 : 1;
    polygon.solid = flags == 1 || flags == 3 ? 0 : 1;
}

}  // namespace

LevelPolygon LevelBuilder::BuildPolygon(const LevelFile::Polygon& record) {
    LevelPolygon polygon;
    polygon.id = record.id;
    if (!record.texture.empty()) {
        polygon.texture = Texture(record.texture, "DEFAULT_TEXTURE");
    }
    polygon.SetFriction(SurfaceFriction(static_cast<int>(record.surface)));
    SetFlags(polygon, record.flags);
    polygon.layer = static_cast<std::uint32_t>(record.layer);
    std::vector<Vector2> points;
    points.reserve(record.points.size());
    for (const LevelFile::Point point : record.points) {
        points.push_back({static_cast<float>(point.x), static_cast<float>(point.y)});
    }
    polygon.AddPoints(points);
    return polygon;
}

void LevelBuilder::MarkPolygons(std::deque<LevelPolygon>& polygons, const LevelFile& file) {
    std::unordered_set<std::uint32_t> toggled;
    for (const LevelFile::Trigger& trigger : file.triggers) {
        if (TriggerTypes::Toggles(TriggerTypes::KindOf(trigger.type))) {
            toggled.insert(trigger.targetId);
        }
    }
    std::unordered_set<std::uint32_t> moved;
    for (const LevelFile::Mover& mover : file.movers) {
        moved.insert(mover.id);
    }
    for (LevelPolygon& polygon : polygons) {
        polygon.toggledByTrigger = toggled.contains(polygon.id) ? 1 : 0;
        polygon.movedByMover = moved.contains(polygon.id) ? 1 : 0;
    }
}
