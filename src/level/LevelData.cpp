// Life of the loaded level: the order in which its modules start, end and are reset.

#include "level/LevelData.h"

#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Presentation.h"
#include "level/BspTree.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelFileReader.h"

namespace LevelData {

std::list<LevelPolygon> polygons;
std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
bool drawTriangles = false;
Vector2 waterStart;
Vector2 cameraStart;

namespace {

const Console::CommandTable commands{
    {"DrawTriangles", Console::Variable<drawTriangles>, "Shows the triangles of all polygons."},
};

/// Which nodes came from which polygon, in the tree's order.
void MapSegments() {
    std::vector<BspSegment*> segments;
    BspTree::CollectNodes(segments);
    for (BspSegment* const segment : segments) {
        polygonSegments[segment->polygon].push_back(segment);
    }
}

/// Lets all looping sounds run but those that a trigger will start.
void StartLoopingSounds() {
    std::vector<std::uint32_t> waiting;
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (trigger.Kind() == TriggerKind::SoundPlay) {
            waiting.push_back(trigger.targetId);
        }
    }
    SoundSourceManager::StartLooping(std::move(waiting));
    SoundSourceManager::Step();
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
    polygons.clear();
    polygonSegments.clear();
}

void Restart() {
    drawTriangles = false;
    for (LevelPolygon& polygon : polygons) {
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
