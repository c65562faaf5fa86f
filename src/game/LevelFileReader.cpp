// From the records of a level file to the modules that own the level.

#include "game/LevelFileReader.h"

#include <deque>
#include <list>
#include <optional>
#include <utility>
#include <vector>

#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/Timer.h"
#include "game/LevelLife.h"
#include "graphics/GLWindow.h"
#include "level/LevelBuilder.h"
#include "level/LevelData.h"
#include "level/LevelFile.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"
#include "water/FxParticleManager.h"

namespace {

// Level files keep a force's strength in tenths.
constexpr float strengthScale = 10.0f;

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

void PrintSuccess(const std::string& fileName, Timer& timer) {
    Console::Print("\nLevel '" + fileName + "' loaded successfully..");
    timer.Tick();
    Console::Print("\nLevel loading took ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print(" seconds.");
}

Vector2 ToVector(LevelFile::Point point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

/// What has files of its own to load; made while the old level still stands.
struct LoadedRecords {
    std::deque<LevelPolygon> polygons;
    std::list<LevelObject> objects;
    std::list<SoundSource> sounds;
    std::list<Emitter> emitters;
};

LevelObject MakeObject(const LevelFile::Object& record) {
    LevelObject object;
    object.id = record.id;
    object.SetTexture(record.texture);
    object.layer = static_cast<std::uint32_t>(record.layer);
    object.position = ToVector(record.position);
    object.mirrored = record.mirrored;
    return object;
}

SoundSource MakeSound(const LevelFile::Sound& record) {
    const Vector2 position = ToVector(record.position);
    constexpr std::uint8_t stopped = 1;
    return {position.x,
            position.y,
            static_cast<float>(record.strength),
            Sound(record.sound),
            record.looping,
            stopped,
            record.id};
}

Emitter MakeEmitter(const LevelFile::Emitter& record) {
    Emitter emitter;
    emitter.id = record.id;
    emitter.position = ToVector(record.position);
    emitter.SetDirection(record.direction.x, record.direction.y);
    emitter.LoadSettings(record.settings);
    return emitter;
}

/// Splitting outlines and reading images is what takes the time of a load, so the window's
/// messages are pumped between.
LoadedRecords LoadRecords(const LevelFile& file) {
    LoadedRecords loaded;
    for (const LevelFile::Polygon& record : file.polygons) {
        loaded.polygons.push_back(LevelBuilder::BuildPolygon(record));
        GLWindow::PumpMessages();
    }
    LevelBuilder::MarkPolygons(loaded.polygons, file);
    for (const LevelFile::Object& record : file.objects) {
        loaded.objects.push_back(MakeObject(record));
        GLWindow::PumpMessages();
    }
    for (const LevelFile::Sound& record : file.sounds) {
        loaded.sounds.push_back(MakeSound(record));
        GLWindow::PumpMessages();
    }
    for (const LevelFile::Emitter& record : file.emitters) {
        loaded.emitters.push_back(MakeEmitter(record));
    }
    return loaded;
}

void PublishForces(const LevelFile& file) {
    ForceManager::Initialise();
    for (const LevelFile::Force& record : file.forces) {
        const Vector2 position = ToVector(record.position);
        // A level's direction is made a unit here and again by Add: the second division can
        // still change the last bit, and water feels every bit.
        Vector2 direction = record.direction;
        Normalise(direction);
        ForceManager::Add(record.id, position.x, position.y, direction.x, direction.y,
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

/// Ends the old level and hands the new one over. Movers bind polygons and objects as they are
/// added, and triggers bind everything else, so the order matters.
void Publish(const LevelFile& file, LoadedRecords& loaded) {
    LevelData::Unload();
    for (LevelPolygon& polygon : loaded.polygons) {
        LevelData::Add(std::move(polygon));
    }
    LevelData::waterStart = ToVector(file.waterStart);
    LevelData::cameraStart = ToVector(file.cameraStart);

    LevelObjectsManager::Initialise();
    for (const LevelObject& object : loaded.objects) {
        LevelObjectsManager::Add(object);
    }
    PublishForces(file);
    SoundSourceManager::Initialise();
    for (const SoundSource& source : loaded.sounds) {
        SoundSourceManager::Add(source);
    }
    PublishMovers(file);
    FxParticleManager::Initialise();
    for (const Emitter& emitter : loaded.emitters) {
        FxParticleManager::Add(emitter);
    }
    PublishTriggers(file);
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
    LoadedRecords loaded = LoadRecords(*file);
    PrintSuccess(fileName, timer);
    Publish(*file, loaded);
    return true;
}
