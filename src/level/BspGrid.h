#pragma once
// A short cut into the level's tree for the game's particles. The world is cut into cells; each
// remembers which edges circles in it can touch and which lines decide between them, so that a
// query's cost hangs on what is near it and not on the size of the level.
//
// Order: Prepare after each build of the tree, then any number of queries. Cells are looked into
// when they are first asked for, so that only those that water visits cost anything. Threads that
// step worlds of one level share the grid.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"
#include "platform/Assert.h"

namespace BspGrid {

/// Takes the tree's nodes, the root first and parents before children; they must stay where
/// they are until the next call. None are fine.
void Prepare(std::span<const BspSegment> nodes);

/// Cells know the way for circles of this radius only: the game's particles.
constexpr float radius = 2.0f;

/// A node on the way of a cell's circles through the tree. A circle visits it if the bit of this
/// number is set: bit 0 always is, bit 2 i + 1 if it visits step i and reaches behind its line,
/// bit 2 i + 2 if it visits step i and reaches in front of it.
struct Step {
    std::uint32_t node;
    std::uint32_t condition;
};
/// Of a cell, so that all conditions fit a word.
constexpr std::uint32_t mostSteps = 31;

/// What circles in a cell can touch.
class Cell {
public:
    enum Kind : std::uint32_t {
        Unknown,  ///< not looked into yet
        Empty,    ///< nothing
        OneNode,  ///< at most the node of this number
        Steps,    ///< what the steps say that begin at this number
        Walk,     ///< more: only a walk of the tree tells
    };

    Cell() = default;
    Cell(Kind kind, std::size_t number) : code(static_cast<std::uint32_t>(number << 3) | kind) {}

    Kind What() const { return static_cast<Kind>(code & 7u); }
    std::uint32_t Number() const { return code >> 3; }

private:
    std::uint32_t code = Unknown;
};

/// The cell at a position, perhaps unknown; empty outside of the world and at no place at all.
Cell CellAt(Vector2 position);
/// The same, looked into.
Cell KnownCellAt(Vector2 position);

/// The steps of a cell that has some.
std::span<const Step> StepsOf(Cell cell);

/// Whether a circle of up to `radius` at `position` can touch anything from `node` down. May be
/// true without need, never false wrongly.
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
    bool Holds(Vector2 p) const { return p.x >= minX && p.x <= maxX && p.y >= minY && p.y <= maxY; }
};

struct Grid {
    std::span<const BspSegment> nodes;
    /// Per node: where the centre of a circle must be to touch any segment of its subtree.
    std::vector<Box> reach;
    std::vector<Cell> cells;
    Vector2 origin;
    float cellSize = 1.0f;
    float cellsPerUnit = 1.0f;
    std::uint32_t columns = 0;
    std::uint32_t rows = 0;
    Vector2 most;  ///< columns and rows
    /// A cell's follow one that holds their number as its node. They stay where they are.
    std::unique_ptr<Step[]> steps;
};
extern Grid grid;

/// The place of a position's cell in the grid, or the number of cells if it has none.
inline std::size_t PlaceOfCell(Vector2 position) {
    const float x = (position.x - grid.origin.x) * grid.cellsPerUnit;
    const float y = (position.y - grid.origin.y) * grid.cellsPerUnit;
    if (!(x >= 0.0f && y >= 0.0f && x < grid.most.x && y < grid.most.y)) {
        return grid.cells.size();
    }
    return std::size_t{static_cast<std::uint32_t>(y)} * grid.columns +
           static_cast<std::uint32_t>(x);
}

inline bool CanTouch(const BspSegment* node, Vector2 position) {
    VANTREL_ASSERT(node >= grid.nodes.data() && node < grid.nodes.data() + grid.nodes.size());
    return grid.reach[static_cast<std::size_t>(node - grid.nodes.data())].Holds(position);
}

inline Cell CellAt(Vector2 position) {
    const std::size_t place = PlaceOfCell(position);
    return place < grid.cells.size()
               ? std::atomic_ref(grid.cells[place]).load(std::memory_order_acquire)
               : Cell(Cell::Empty, 0);
}

inline std::span<const Step> StepsOf(Cell cell) {
    const Step* const first = &grid.steps[cell.Number()];
    return {first + 1, first->node};
}

}  // namespace BspGrid
