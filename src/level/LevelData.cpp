// A level's life: load, unload and restart, in the orders that its modules need.

#include "level/LevelData.h"

#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "engine/Presentation.h"
#include "level/BspTree.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelBuilder.h"
#include "level/LevelFileReader.h"

namespace LevelData {

std::list<LevelPolygon> polygons;
std::map<const LevelPolygon*, std::vector<BspSegment*>> polygonSegments;
bool drawTriangles = false;
Vector2 waterStart;
Vector2 cameraStart;

namespace {

void MarkPolygons() {
    LevelBuilder::Ids toggled;
    LevelBuilder::Ids moved;
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (LevelBuilder::TogglesPolygons(trigger.type)) {
            toggled.insert(trigger.targetId);
        }
    }
    for (const Mover& mover : MoverManager::movers) {
        moved.insert(mover.id);
    }
    LevelBuilder::MarkPolygons(polygons, toggled, moved);
}

void MapSegments() {
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    for (BspSegment* node : nodes) {
        polygonSegments[node->polygon].push_back(node);
    }
}

}  // namespace

bool Load(const std::string& fileName) {
    Console::PrintBanner("Level loading");
    Console::Print("\nLoading level data...");
    if (!LevelFileReader::Read(fileName)) {
        return false;
    }
    drawTriangles = false;
    // What movers carry stays out of the tree, so the marks come first.
    MarkPolygons();
    BspTree::Build(polygons);
    Presentation::Current().PrepareLevel();
    DynamicPolygonRenderer::Initialise();
    CheckPointTimesManager::Initialise();
    MapSegments();
    Console::AddCommand("DrawTriangles", [](bool value, bool isSet) {
        if (isSet) {
            drawTriangles = value;
        }
        return drawTriangles;
    });
    return true;
}

void Unload() {
    Console::Print("\nClearing level data...");
    Console::RemoveCommand("DrawTriangles");
    Presentation::Current().ReleaseLevel();
    BspTree::Destroy();
    LevelObjectsManager::Shutdown();
    ForceManager::Shutdown();
    DynamicPolygonRenderer::Shutdown();
    TriggerManager::Shutdown();
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
    TriggerManager::Reset();
}

void SetPolygonSolid(LevelPolygon& polygon, bool solid) {
    polygon.solid = solid ? 1 : 0;
    const auto entry = polygonSegments.find(&polygon);
    if (entry == polygonSegments.end()) {
        return;
    }
    for (BspSegment* segment : entry->second) {
        segment->active = polygon.solid;
    }
}

}  // namespace LevelData
