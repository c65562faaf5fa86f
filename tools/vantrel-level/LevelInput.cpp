#include "LevelInput.h"

#include "Message.h"
#include "level/LevelBuilder.h"
#include "level/Surfaces.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"

std::filesystem::path LevelPath(const std::string& fileName) {
    return Platform::FindFile(fileName, Platform::NameSource::Person).value_or(fileName);
}

std::optional<LevelFile> ReadLevel(const std::string& fileName, std::string& failure) {
    const auto bytes = Platform::ReadWholeFile(LevelPath(fileName));
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

std::deque<LevelPolygon> MakePolygons(const LevelFile& level) {
    ReadSurfaces();
    std::deque<LevelPolygon> polygons;
    for (const LevelFile::Polygon& record : level.polygons) {
        polygons.push_back(LevelBuilder::BuildPolygon(record));
    }
    LevelBuilder::MarkPolygons(polygons, level);
    return polygons;
}
