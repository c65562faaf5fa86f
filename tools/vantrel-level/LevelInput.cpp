#include "LevelInput.h"

#include <filesystem>
#include <set>

#include "Message.h"
#include "platform/Paths.h"
#include "water/ParticleMover.h"

std::optional<LevelFile> ReadLevel(const std::string& fileName, std::string& failure) {
    const auto found = Platform::FindFile(fileName, Platform::NameSource::Person);
    const auto bytes = Platform::ReadWholeFile(found.value_or(fileName));
    if (!bytes) {
        failure = fileName + ": cannot be read";
        return std::nullopt;
    }
    std::string reason;
    std::uint32_t version = 0;
    auto level = LevelFile::Parse(*bytes, reason, version);
    if (!level) {
        reason.erase(0, reason.find_first_not_of('\n'));
        failure = fileName + ": " + reason;
        if (reason == LevelFile::wrongVersionReason) {
            failure += Message(" It is ", version, ", not ", LevelFile::version, ".");
        }
    }
    return level;
}

std::list<LevelPolygon> MakePolygons(const LevelFile& level) {
    constexpr std::uint32_t entityRemove = 300;
    constexpr std::uint32_t entityAdd = 301;
    ReadSurfaces();
    std::set<std::uint32_t> moved;
    std::set<std::uint32_t> toggled;
    for (const LevelFile::Mover& mover : level.movers) {
        moved.insert(mover.id);
    }
    for (const LevelFile::Trigger& trigger : level.triggers) {
        if (trigger.type == entityRemove || trigger.type == entityAdd) {
            toggled.insert(trigger.targetId);
        }
    }
    std::list<LevelPolygon> polygons;
    std::vector<Vector2> points;
    for (const LevelFile::Polygon& record : level.polygons) {
        LevelPolygon& polygon = polygons.emplace_back();
        polygon.id = record.id;
        polygon.layer = static_cast<std::uint32_t>(record.layer);
        polygon.visible = record.flags == 2 || record.flags == 3 ? 0 : 1;
        polygon.solid = record.flags == 1 || record.flags == 3 ? 0 : 1;
        polygon.movedByMover = moved.contains(record.id) ? 1 : 0;
        polygon.toggledByTrigger = toggled.contains(record.id) ? 1 : 0;
        polygon.SetFriction(SurfaceFriction(static_cast<int>(record.surface)));
        points.clear();
        for (const LevelFile::Point point : record.points) {
            points.push_back({static_cast<float>(point.x), static_cast<float>(point.y)});
        }
        polygon.AddPoints(points);
    }
    return polygons;
}
