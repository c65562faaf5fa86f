#include "level/MovingEdges.h"

#include <algorithm>
#include <cmath>
#include <limits>

void MovingEdges::Clear() {
    edges.clear();
    polygons.clear();
}

void MovingEdges::Add(std::span<const BspSegment> polygon, Vector2 offset) {
    if (polygon.empty()) {
        return;
    }
    const auto begin = static_cast<std::uint32_t>(edges.size());
    constexpr float most = std::numeric_limits<float>::max();
    Box box{most, -most, most, -most};
    for (const BspSegment& edge : polygon) {
        BspSegment& placed = edges.emplace_back(edge);
        placed.start += offset;
        placed.end += offset;
        // Queries go by direction and length, which may miss the end by a little.
        for (const Vector2 end : {placed.start, placed.start + placed.direction * placed.length}) {
            box.minX = std::min(box.minX, end.x);
            box.maxX = std::max(box.maxX, end.x);
            box.minY = std::min(box.minY, end.y);
            box.maxY = std::max(box.maxY, end.y);
        }
    }
    const float size = std::max(
        {std::fabs(box.minX), std::fabs(box.maxX), std::fabs(box.minY), std::fabs(box.maxY)});
    const float rounding = 4.0e-5f * size + 1.0e-3f;
    polygons.push_back(
        {{box.minX - rounding, box.maxX + rounding, box.minY - rounding, box.maxY + rounding},
         begin,
         static_cast<std::uint32_t>(edges.size())});
}

std::uint32_t MovingEdges::Column(float x) const {
    const float column = std::clamp((x - world.minX) * columnsPerUnit, 0.0f, cellsAlong - 1.0f);
    return static_cast<std::uint32_t>(column);
}

std::uint32_t MovingEdges::Row(float y) const {
    const float row = std::clamp((y - world.minY) * rowsPerUnit, 0.0f, cellsAlong - 1.0f);
    return static_cast<std::uint32_t>(row);
}

void MovingEdges::Index() {
    hasCells = false;
    if (polygons.empty()) {
        return;
    }
    world = polygons.front().box;
    for (const Polygon& polygon : polygons) {
        world.minX = std::min(world.minX, polygon.box.minX);
        world.maxX = std::max(world.maxX, polygon.box.maxX);
        world.minY = std::min(world.minY, polygon.box.minY);
        world.maxY = std::max(world.maxY, polygon.box.maxY);
    }
    columnsPerUnit = cellsAlong / (world.maxX - world.minX);
    rowsPerUnit = cellsAlong / (world.maxY - world.minY);
    // With few polygons, or where most lie everywhere, cells cost more than they save.
    constexpr std::size_t fewPolygons = 8;
    constexpr std::size_t cellsAPolygon = 32;
    std::size_t entries = 0;
    for (const Polygon& polygon : polygons) {
        entries += CellsOf(polygon).Count();
    }
    hasCells = polygons.size() > fewPolygons && entries <= cellsAPolygon * polygons.size();
    if (hasCells) {
        FillCells();
    }
}

/// For centres of small circles.
MovingEdges::CellRange MovingEdges::CellsOf(const Polygon& polygon) const {
    const Box& box = polygon.box;
    const float reach = Reach(smallRadius);
    return {Column(box.minX - reach), Column(box.maxX + reach), Row(box.minY - reach),
            Row(box.maxY + reach)};
}

void MovingEdges::FillCells() {
    cellEnds.assign(cellsAlong * cellsAlong, 0);
    for (const Polygon& polygon : polygons) {
        CellsOf(polygon).ForEach([&](std::uint32_t cell) { ++cellEnds[cell]; });
    }
    std::uint32_t next = 0;
    for (std::uint32_t& end : cellEnds) {
        const std::uint32_t count = end;
        end = next;  // its first, until the polygons are in
        next += count;
    }
    cellPolygons.resize(next);
    for (std::uint32_t i = 0; i < polygons.size(); ++i) {
        CellsOf(polygons[i]).ForEach([&](std::uint32_t cell) {
            cellPolygons[cellEnds[cell]++] = i;
        });
    }
}
