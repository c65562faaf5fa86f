// Which polygons are drawn anew each frame, and in what order.

#include "level/DynamicPolygonRenderer.h"

#include <algorithm>
#include <array>
#include <vector>

#include "engine/Console.h"
#include "level/LevelData.h"
#include "platform/Assert.h"

namespace DynamicPolygonRenderer {

namespace {

constexpr std::size_t layerCount = 5;

/// A polygon with the box of its outline at rest.
struct DynamicPolygon {
    const LevelPolygon* polygon = nullptr;
    float minX = 0.0f;
    float maxX = 0.0f;
    float minY = 0.0f;
    float maxY = 0.0f;
};

std::vector<DynamicPolygon> polygons;
/// Heaps with the smallest texture name on top. They keep their room from frame to frame.
std::array<std::vector<const LevelPolygon*>, layerCount> layerQueues;

bool HasLargerTexture(const LevelPolygon* a, const LevelPolygon* b) {
    return a->texture > b->texture;
}

/// An outline that crosses itself has no triangles.
bool IsDynamic(const LevelPolygon& polygon) {
    return polygon.triangleCount != 0 && polygon.visible != 0 &&
           (polygon.movedByMover != 0 || polygon.toggledByTrigger != 0);
}

DynamicPolygon WithBox(const LevelPolygon& polygon) {
    const auto [minX, maxX] = std::minmax_element(polygon.pointsX.begin(), polygon.pointsX.end());
    const auto [minY, maxY] = std::minmax_element(polygon.pointsY.begin(), polygon.pointsY.end());
    return {&polygon, *minX, *maxX, *minY, *maxY};
}

bool IsInSquare(const DynamicPolygon& entry, const ViewSquare& square) {
    const Vector2 offset = LevelData::StateOf(*entry.polygon).offset;
    return square.Overlaps(entry.minX + offset.x, entry.maxX + offset.x, entry.minY + offset.y,
                           entry.maxY + offset.y);
}

void ClearQueues() {
    for (auto& queue : layerQueues) {
        queue.clear();
    }
}

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nIntialising dynamic polygon renderer..");
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (IsDynamic(polygon)) {
            polygons.push_back(WithBox(polygon));
        }
    }
    for (auto& queue : layerQueues) {
        queue.reserve(polygons.size());
    }
}

void Shutdown() {
    Console::Print("\nShuttrng down dynamic polygon renderer..");
    polygons.clear();
    ClearQueues();
}

void PrepareDraw(const View& view) {
    const ViewSquare square = view.Drawing();
    ClearQueues();
    for (const DynamicPolygon& entry : polygons) {
        const LevelPolygon& polygon = *entry.polygon;
        if (LevelData::StateOf(polygon).enabled == 0 || polygon.layer >= layerCount ||
            !IsInSquare(entry, square)) {
            continue;
        }
        auto& queue = layerQueues[polygon.layer];
        queue.push_back(&polygon);
        std::push_heap(queue.begin(), queue.end(), HasLargerTexture);
    }
}

std::size_t PolygonCount() {
    return polygons.size();
}

const LevelPolygon* TakeQueued(int layer) {
    VANTREL_ASSERT(layer >= 0 && static_cast<std::size_t>(layer) < layerCount);
    auto& queue = layerQueues[static_cast<std::size_t>(layer)];
    if (queue.empty()) {
        return nullptr;
    }
    std::pop_heap(queue.begin(), queue.end(), HasLargerTexture);
    const LevelPolygon* const polygon = queue.back();
    queue.pop_back();
    return polygon;
}

}  // namespace DynamicPolygonRenderer
