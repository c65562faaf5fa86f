#pragma once
// A short cut into the level's tree. All small circles of one cell of the world take the same
// way down the tree for a while; the grid remembers where each cell's way ends, so that a
// query's cost hangs on what is near it and not on the size of the level.
//
// Order: Prepare after each build of the tree, then any number of queries.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"
#include "platform/Assert.h"

namespace BspGrid {

/// Takes the tree's nodes, the root first and parents before children; they must stay where
/// they are until the next call. None are fine.
void Prepare(std::span<const BspSegment> nodes);

/// Circles up to this radius use the short cuts; it holds the game's particles.
constexpr float largestRadius = 2.5f;

/// The node from which a descent for this circle may start: it meets the same candidates in
/// the same order as one that starts at the root. Null if there are none.
const BspSegment* StartNode(Vector2 position, float radius);

/// Whether a circle of up to `largestRadius` at `position` can touch anything from `node`
/// down. May be true without need, never false wrongly.
bool CanTouch(const BspSegment* node, Vector2 position);

// What queries read. They come three to a particle and step, so they are inline.

struct Box {
    float minX = std::numeric_limits<float>::max();
    float minY = std::numeric_limits<float>::max();
    float maxX = std::numeric_limits<float>::lowest();
    float maxY = std::numeric_limits<float>::lowest();

    void Add(const Box& other);
    bool Overlaps(const Box& other) const {
        return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
    }
};

/// What a cell holds: not looked into yet, nothing to touch, or a node's index plus `known`.
constexpr std::uint32_t unknown = 0;
constexpr std::uint32_t empty = 1;
constexpr std::uint32_t known = 2;

struct Grid {
    std::span<const BspSegment> nodes;
    /// Per node: where the centre of a circle must be to touch any segment of its subtree.
    std::vector<Box> reach;
    /// Threads that step worlds of one level look into the same cells, and find the same there.
    std::vector<std::uint32_t> cells;
    Vector2 origin;
    float cellSize = 1.0f;
    float cellsPerUnit = 1.0f;
    std::uint32_t columns = 0;
    std::uint32_t rows = 0;
};
extern Grid grid;

/// What is to be stored for a cell that nobody has looked into.
std::uint32_t LookIntoCell(std::uint32_t column, std::uint32_t row);

inline bool CanTouch(const BspSegment* node, Vector2 position) {
    VANTREL_ASSERT(node >= grid.nodes.data() && node < grid.nodes.data() + grid.nodes.size());
    const Box& box = grid.reach[static_cast<std::size_t>(node - grid.nodes.data())];
    return position.x >= box.minX && position.x <= box.maxX && position.y >= box.minY &&
           position.y <= box.maxY;
}

inline const BspSegment* StartNode(Vector2 position, float radius) {
    if (!(radius <= largestRadius)) {
        return grid.nodes.empty() ? nullptr : &grid.nodes.front();
    }
    const float x = (position.x - grid.origin.x) * grid.cellsPerUnit;
    const float y = (position.y - grid.origin.y) * grid.cellsPerUnit;
    // Outside of the grid, and at no place at all, there is nothing to touch.
    if (!(x >= 0.0f && y >= 0.0f && x < static_cast<float>(grid.columns) &&
          y < static_cast<float>(grid.rows))) {
        return nullptr;
    }
    const auto column = static_cast<std::uint32_t>(x);
    const auto row = static_cast<std::uint32_t>(y);
    const std::atomic_ref<std::uint32_t> stored(
        grid.cells[std::size_t{row} * grid.columns + column]);
    std::uint32_t cell = stored.load(std::memory_order_relaxed);
    if (cell == unknown) {
        cell = LookIntoCell(column, row);
        stored.store(cell, std::memory_order_relaxed);
    }
    return cell == empty ? nullptr : &grid.nodes[cell - known];
}

}  // namespace BspGrid
