#include "level/LevelFileReader.h"

#include <list>
#include <optional>
#include <vector>

#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/Timer.h"
#include "graphics/GLWindow.h"
#include "level/LevelBuilder.h"
#include "level/LevelData.h"
#include "level/LevelFile.h"
#include "platform/Paths.h"
#include "water/FxParticleManager.h"

namespace LevelFileReader {

namespace {

// Level files keep a force's strength in tenths.
constexpr float strengthScale = 10.0f;

Vector2 ToVector(LevelFile::Point point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

/// What a file's records become before the old level goes; textures and settings are loaded.
struct Level {
    std::list<LevelPolygon> polygons;
    std::list<LevelObject> objects;
    std::list<Emitter> emitters;
};

LevelObject BuildObject(const LevelFile::Object& record) {
    LevelObject object;
    object.id = record.id;
    object.SetTexture(record.texture);
    object.layer = static_cast<std::uint32_t>(record.layer);
    object.position = ToVector(record.position);
    object.mirrored = record.mirrored;
    return object;
}

Emitter BuildEmitter(const LevelFile::Emitter& record) {
    Emitter emitter;
    emitter.id = record.id;
    emitter.position = ToVector(record.position);
    emitter.SetDirection(record.direction.x, record.direction.y);
    emitter.LoadSettings(record.settings);
    return emitter;
}

/// Pumps the window's messages after each record that loads files, so that the window stays
/// alive during a long load.
Level Build(const LevelFile& file) {
    Level level;
    for (const LevelFile::Polygon& record : file.polygons) {
        level.polygons.push_back(LevelBuilder::BuildPolygon(record));
        GLWindow::PumpMessages();
    }
    for (const LevelFile::Object& record : file.objects) {
        level.objects.push_back(BuildObject(record));
        GLWindow::PumpMessages();
    }
    for (const LevelFile::Emitter& record : file.emitters) {
        level.emitters.push_back(BuildEmitter(record));
    }
    return level;
}

void PublishForces(const LevelFile& file) {
    ForceManager::Initialise();
    for (const LevelFile::Force& record : file.forces) {
        const Vector2 position = ToVector(record.position);
        ForceManager::Add(record.id, position.x, position.y, record.direction.x, record.direction.y,
                          record.strength * strengthScale);
    }
}

void PublishMovers(const LevelFile& file) {
    MoverManager::Initialise();
    for (const LevelFile::Mover& record : file.movers) {
        Mover mover;
        mover.id = record.id;
        mover.speed = record.speed;
        mover.SetPath(ToVector(record.start), ToVector(record.end));
        MoverManager::Add(mover);
    }
}

void PublishTriggers(const LevelFile& file) {
    TriggerManager::Initialise();
    for (const LevelFile::Trigger& record : file.triggers) {
        TriggerManager::Add(static_cast<std::int32_t>(record.type), record.targetId, record.delay,
                            ToVector(record.corners[0]), ToVector(record.corners[1]),
                            ToVector(record.corners[2]), ToVector(record.corners[3]));
    }
}

/// Movers bind polygons and objects as they are added, and triggers everything else, so the
/// order of the modules matters.
void Publish(Level level, const LevelFile& file) {
    LevelData::Unload();
    LevelData::polygons = std::move(level.polygons);
    LevelData::waterStart = ToVector(file.waterStart);
    LevelData::cameraStart = ToVector(file.cameraStart);

    LevelObjectsManager::Initialise();
    for (const LevelObject& object : level.objects) {
        LevelObjectsManager::Add(object);
    }
    PublishForces(file);
    PublishMovers(file);
    FxParticleManager::Initialise();
    for (const Emitter& emitter : level.emitters) {
        FxParticleManager::Add(emitter);
    }
    PublishTriggers(file);
}

void PrintWrongVersion(std::uint32_t found) {
    Console::Print("\nInvalid level file version. Version is ");
    Console::PrintUnsigned(found);
    Console::Print(". Version used by game is ");
    Console::PrintUnsigned(LevelFile::version);
    Console::Print(".");
}

void PrintFailure(const std::string& fileName, const std::string& reason) {
    Console::Print("\nError reading level file '" + fileName + "'");
    Console::Print("\nReason: " + reason);
}

void PrintSuccess(const std::string& fileName, Timer& timer) {
    Console::Print("\nLevel '" + fileName + "' loaded successfully..");
    timer.Tick();
    Console::Print("\nLevel loading took ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print(" seconds.");
}

/// The file's records, or none after a message.
std::optional<LevelFile> Parse(const std::string& fileName) {
    const auto path = Platform::FindFile(fileName, Platform::NameSource::Person);
    const auto bytes = path ? Platform::ReadWholeFile(*path) : std::nullopt;
    if (!bytes) {
        Console::Print("\nUnable to open level file '" + fileName + "'");
        return std::nullopt;
    }
    std::string reason;
    std::uint32_t foundVersion = LevelFile::version;
    auto file = LevelFile::Parse(*bytes, reason, foundVersion);
    if (!file) {
        if (foundVersion != LevelFile::version) {
            PrintWrongVersion(foundVersion);
        }
        PrintFailure(fileName, reason);
    }
    return file;
}

}  // namespace

bool Read(const std::string& fileName) {
    Timer timer;
    const auto file = Parse(fileName);
    if (!file) {
        return false;
    }
    Level level = Build(*file);
    PrintSuccess(fileName, timer);
    Publish(std::move(level), *file);
    return true;
}

}  // namespace LevelFileReader
