// The order in which a level's modules start, end and are reset.

#include "game/LevelLife.h"

#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Presentation.h"
#include "game/GameSounds.h"
#include "game/LevelFileReader.h"
#include "level/BspTree.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelData.h"

namespace LevelData {

namespace {

const Console::CommandTable commands{
    {"DrawTriangles", Console::Variable<drawTriangles>, "Shows the triangles of all polygons."},
};

/// Lets all looping sounds run but those that a trigger will start.
void StartLoopingSounds() {
    std::vector<std::uint32_t> waiting;
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::SoundPlay) {
            waiting.push_back(trigger.targetId);
        }
    }
    SoundSourceManager::StartLooping(std::move(waiting));
    GameSounds::StepSources();
}

}  // namespace

bool Load(const std::string& fileName) {
    Console::PrintBanner("Level loading");
    Console::Print("\nLoading level data...");
    if (!LevelFileReader::Read(fileName)) {
        return false;
    }
    drawTriangles = false;
    // The reader has marked what movers carry, which stays out of the tree.
    BspTree::Build(polygons);
    Presentation::Current().PrepareLevel();
    DynamicPolygonRenderer::Initialise();
    CheckPointTimesManager::Initialise();
    MapSegments();
    StartLoopingSounds();
    commands.Add();
    return true;
}

void Unload() {
    Console::Print("\nClearing level data...");
    commands.Remove();
    Presentation::Current().ReleaseLevel();
    BspTree::Destroy();
    LevelObjectsManager::Shutdown();
    ForceManager::Shutdown();
    DynamicPolygonRenderer::Shutdown();
    TriggerManager::Shutdown();
    SoundSourceManager::Shutdown();
    CheckPointTimesManager::Shutdown();
    MoverManager::Shutdown();
    Clear();
}

void Restart() {
    drawTriangles = false;
    for (PolygonState& polygon : current.polygons) {
        polygon.enabled = 1;
        polygon.offset = {};
        polygon.previousOffset = {};
    }
    BspTree::Reset();
    LevelObjectsManager::Reset();
    MoverManager::Reset();
    SoundSourceManager::Reset();
    TriggerManager::Reset();
    StartLoopingSounds();
}

}  // namespace LevelData
