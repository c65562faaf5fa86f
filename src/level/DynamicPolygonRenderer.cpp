#include "level/DynamicPolygonRenderer.h"

#include <algorithm>
#include <array>

#include "actors/Camera.h"
#include "engine/Console.h"
#include "game/Game.h"
#include "level/LevelData.h"

namespace DynamicPolygonRenderer {

namespace {

struct DynamicPolygon {
    const LevelPolygon* polygon = nullptr;
    float minX = 0.0f;  ///< box of the outline at rest
    float maxX = 0.0f;
    float minY = 0.0f;
    float maxY = 0.0f;
};

std::vector<DynamicPolygon> entries;
std::array<std::vector<const LevelPolygon*>, layerCount> layerQueues;

DynamicPolygon MakeEntry(const LevelPolygon& polygon) {
    const auto [minX, maxX] = std::minmax_element(polygon.pointsX.begin(), polygon.pointsX.end());
    const auto [minY, maxY] = std::minmax_element(polygon.pointsY.begin(), polygon.pointsY.end());
    return {&polygon, *minX, *maxX, *minY, *maxY};
}

bool IsInView(const DynamicPolygon& entry, Vector2 centre, float half) {
    const Vector2 offset = entry.polygon->offset;
    return entry.maxX + offset.x >= centre.x - half && entry.minX + offset.x <= centre.x + half &&
           entry.maxY + offset.y >= centre.y - half && entry.minY + offset.y <= centre.y + half;
}

bool SmallerTexture(const LevelPolygon* a, const LevelPolygon* b) {
    return a->texture.glName < b->texture.glName;
}

}  // namespace

bool Draws(const LevelPolygon& polygon) {
    return polygon.triangleCount > 0 && polygon.visible &&
           (polygon.movedByMover || polygon.toggledByTrigger);
}

void Initialise() {
    Shutdown();
    Console::Print("\nIntialising dynamic polygon renderer..");
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (Draws(polygon)) {
            entries.push_back(MakeEntry(polygon));
        }
    }
}

void Shutdown() {
    Console::Print("\nShuttrng down dynamic polygon renderer..");
    entries.clear();
    for (auto& queue : layerQueues) {
        queue.clear();
    }
}

void PrepareDraw() {
    const Vector2 centre = Camera::position + Camera::shakeOffset;
    const float half = std::max(Game::ViewWidth(), Game::ViewHeight()) * 0.65f * Camera::zoom;
    for (auto& queue : layerQueues) {
        queue.clear();
    }
    for (const DynamicPolygon& entry : entries) {
        if (entry.polygon->enabled && IsInView(entry, centre, half)) {
            layerQueues[entry.polygon->layer].push_back(entry.polygon);
        }
    }
    for (auto& queue : layerQueues) {
        std::sort(queue.begin(), queue.end(), SmallerTexture);
    }
}

std::vector<const LevelPolygon*>& LayerQueue(int layer) {
    return layerQueues[static_cast<std::size_t>(layer)];
}

}  // namespace DynamicPolygonRenderer
