// From the records of a level file to the modules that own the level.

#include "level/LevelFileReader.h"

#include <list>
#include <optional>
#include <unordered_set>
#include <vector>

#include "engine/Console.h"
#include "engine/Timer.h"
#include "graphics/GLWindow.h"
#include "level/LevelData.h"
#include "level/LevelFile.h"
#include "platform/Paths.h"
#include "water/ParticleMover.h"

namespace {

// Trigger types that take polygons out of the level and put them back.
constexpr std::uint32_t entityRemove = 300;
constexpr std::uint32_t entityAdd = 301;

std::optional<std::vector<std::byte>> ReadBytes(const std::string& fileName) {
    const auto path = Platform::FindFile(fileName, Platform::NameSource::Person);
    return path ? Platform::ReadWholeFile(*path) : std::nullopt;
}

void PrintFailure(const std::string& fileName, const std::string& reason,
                  std::uint32_t foundVersion) {
    if (reason == LevelFile::wrongVersionReason) {
        Console::Print("\nInvalid level file version. Version is ");
        Console::PrintUnsigned(foundVersion);
        Console::Print(". Version used by game is ");
        Console::PrintUnsigned(LevelFile::version);
        Console::Print(".");
    }
    Console::Print("\nError reading level file '" + fileName + "'");
    Console::Print("\nReason: " + reason);
}

/// Flags are a plain number; those without a meaning leave the polygon solid and visible.
void SetFlags(LevelPolygon& polygon, std::uint32_t flags) {
    polygon.visible = flags == 2 || flags == 3 ? 0 : 1;
    polygon.solid = flags == 1 || flags == 3 ? 0 : 1;
}

void FillPolygon(LevelPolygon& polygon, const LevelFile::Polygon& record) {
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
}

/// Splitting outlines and reading textures is what takes the time of a load.
std::list<LevelPolygon> MakePolygons(const LevelFile& file) {
    std::list<LevelPolygon> polygons;
    for (const LevelFile::Polygon& record : file.polygons) {
        FillPolygon(polygons.emplace_back(), record);
        GLWindow::PumpMessages();
    }
    return polygons;
}

/// Marks what triggers switch and movers carry, before the tree and the renderers ask.
void MarkPolygons(std::list<LevelPolygon>& polygons, const LevelFile& file) {
    std::unordered_set<std::uint32_t> toggled;
    for (const LevelFile::Trigger& trigger : file.triggers) {
        if (trigger.type == entityRemove || trigger.type == entityAdd) {
            toggled.insert(trigger.targetId);
        }
    }
    std::unordered_set<std::uint32_t> moved;
    for (const LevelFile::Mover& mover : file.movers) {
        moved.insert(mover.id);
    }
    for (LevelPolygon& polygon : polygons) {
        if (toggled.contains(polygon.id)) {
            polygon.toggledByTrigger = 1;
        }
        if (moved.contains(polygon.id)) {
            polygon.movedByMover = 1;
        }
    }
}

Vector2 ToVector(LevelFile::Point point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

/// Ends the old level and hands the new one over. Things that bind others by their ids are
/// filled after them.
void Publish(const LevelFile& file, std::list<LevelPolygon>& polygons) {
    LevelData::Unload();
    LevelData::polygons.splice(LevelData::polygons.end(), polygons);
    LevelData::waterStart = ToVector(file.waterStart);
    LevelData::cameraStart = ToVector(file.cameraStart);
}

}  // namespace

bool LevelFileReader::Read(const std::string& fileName) {
    const auto bytes = ReadBytes(fileName);
    if (!bytes) {
        Console::Print("\nUnable to open level file '" + fileName + "'");
        return false;
    }
    Timer timer;
    std::string reason;
    std::uint32_t foundVersion = 0;
    const auto file = LevelFile::Parse(*bytes, reason, foundVersion, GLWindow::PumpMessages);
    if (!file) {
        PrintFailure(fileName, reason, foundVersion);
        return false;
    }
    std::list<LevelPolygon> polygons = MakePolygons(*file);
    MarkPolygons(polygons, *file);
    Console::Print("\nLevel '" + fileName + "' loaded successfully..");
    timer.Tick();
    Console::Print("\nLevel loading took ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print(" seconds.");
    Publish(*file, polygons);
    return true;
}
