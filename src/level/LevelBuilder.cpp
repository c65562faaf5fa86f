#include "level/LevelBuilder.h"

#include <vector>

#include "water/ParticleMover.h"

namespace LevelBuilder {

namespace {

// Flags of a polygon record: plain numbers, not bits. Others count as drawn and solid.
constexpr std::uint32_t scenery = 1;
constexpr std::uint32_t invisible = 2;
constexpr std::uint32_t cutting = 3;

}  // namespace

LevelPolygon BuildPolygon(const LevelFile::Polygon& record) {
    LevelPolygon polygon;
    polygon.id = record.id;
    if (!record.texture.empty()) {
        polygon.texture = Texture(record.texture, "DEFAULT_TEXTURE");
    }
    polygon.SetFriction(SurfaceFriction(static_cast<int>(record.surface)));
    polygon.visible = record.flags == invisible || record.flags == cutting ? 0 : 1;
    polygon.solid = record.flags == scenery || record.flags == cutting ? 0 : 1;
    polygon.layer = static_cast<std::uint32_t>(record.layer);
    std::vector<Vector2> points;
    points.reserve(record.points.size());
    for (const LevelFile::Point point : record.points) {
        points.push_back({static_cast<float>(point.x), static_cast<float>(point.y)});
    }
    polygon.AddPoints(points);
    return polygon;
}

bool TogglesPolygons(std::int64_t triggerType) {
    constexpr std::int64_t entityRemove = 300;
    constexpr std::int64_t entityAdd = 301;
    return triggerType == entityRemove || triggerType == entityAdd;
}

void MarkPolygons(std::list<LevelPolygon>& polygons, const Ids& toggled, const Ids& moved) {
    for (LevelPolygon& polygon : polygons) {
        polygon.toggledByTrigger = toggled.contains(polygon.id) ? 1 : 0;
        polygon.movedByMover = moved.contains(polygon.id) ? 1 : 0;
    }
}

}  // namespace LevelBuilder
