#include "level/MovingEdges.h"

#include <algorithm>
#include <cmath>
#include <limits>

void MovingEdges::Clear() {
    edges.clear();
    polygons.clear();
    boxes.Clear();
    isIndexed = false;
}

void MovingEdges::Index() {
    if (polygons.empty()) {
        return;
    }
    boxes.Build();
    const BoxCells::Box& world = boxes.World();
    occupied.Clear(world.minX, world.maxX, world.minY, world.maxY);
    for (const BoxCells::Box& box : boxes.All()) {
        occupied.Mark(box.minX, box.maxX, box.minY, box.maxY);
    }
    isIndexed = true;
}

void MovingEdges::Add(std::span<const BspSegment> polygon, Vector2 offset) {
    if (polygon.empty()) {
        return;
    }
    const auto begin = static_cast<std::uint32_t>(edges.size());
    constexpr float most = std::numeric_limits<float>::max();
    BoxCells::Box box{most, -most, most, -most};
    for (const BspSegment& edge : polygon) {
        BspSegment& placed = edges.emplace_back(edge);
        placed.start += offset;
        placed.end += offset;
        // Queries go by direction and length, which may miss the end by a little.
        for (const Vector2 end : {placed.start, placed.start + placed.direction * placed.length}) {
            box.Include({end.x, end.x, end.y, end.y});
        }
    }
    const float size = std::max(
        {std::fabs(box.minX), std::fabs(box.maxX), std::fabs(box.minY), std::fabs(box.maxY)});
    const float margin = Reach(smallRadius) + 4.0e-5f * size + 1.0e-3f;
    boxes.Add({box.minX - margin, box.maxX + margin, box.minY - margin, box.maxY + margin});
    polygons.push_back({begin, static_cast<std::uint32_t>(edges.size())});
}
