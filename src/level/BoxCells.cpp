#include "level/BoxCells.h"

#include <algorithm>
#include <cmath>

void BoxCells::Box::Include(const Box& other) {
    minX = std::min(minX, other.minX);
    maxX = std::max(maxX, other.maxX);
    minY = std::min(minY, other.minY);
    maxY = std::max(maxY, other.maxY);
}

void BoxCells::Clear() {
    boxes.clear();
    hasCells = false;
}

void BoxCells::Build() {
    hasCells = false;
    if (boxes.empty()) {
        return;
    }
    world = boxes.front();
    for (const Box& box : boxes) {
        world.Include(box);
    }
    const float width = world.maxX - world.minX;
    const float height = world.maxY - world.minY;
    if (!(width > 0.0f && height > 0.0f && std::isfinite(width) && std::isfinite(height))) {
        return;
    }
    columnsPerUnit = cellsAlong / width;
    rowsPerUnit = cellsAlong / height;
    hasCells = IsWorthCells();
    if (hasCells) {
        FillCells();
    }
}

/// With few boxes, or where most lie everywhere, cells cost more than they save.
bool BoxCells::IsWorthCells() const {
    constexpr std::size_t few = 8;
    constexpr std::size_t mostEach = 64;
    if (boxes.size() <= few) {
        return false;
    }
    std::size_t entries = 0;
    for (const Box& box : boxes) {
        entries += CellsOf(box).Count();
    }
    return entries <= mostEach * boxes.size();
}

BoxCells::Range BoxCells::CellsOf(const Box& box) const {
    return {Column(box.minX), Column(box.maxX), Row(box.minY), Row(box.maxY)};
}

void BoxCells::FillCells() {
    cellEnds.assign(cellsAlong * cellsAlong, 0);
    for (const Box& box : boxes) {
        CellsOf(box).ForEach([&](std::uint32_t cell) { ++cellEnds[cell]; });
    }
    std::uint32_t next = 0;
    for (std::uint32_t& end : cellEnds) {
        const std::uint32_t count = end;
        end = next;  // its first, until the boxes are in
        next += count;
    }
    numbers.resize(next);
    for (std::uint32_t i = 0; i < boxes.size(); ++i) {
        CellsOf(boxes[i]).ForEach([&](std::uint32_t cell) { numbers[cellEnds[cell]++] = i; });
    }
}
