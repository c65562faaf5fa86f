// The table of cells, and what is known about each.

#include "level/BspGrid.h"

#include <algorithm>
#include <cmath>
#include <mutex>

#include "level/BspCellSteps.h"

BspGrid::Grid BspGrid::grid;

namespace {

using BspGrid::Box;
using BspGrid::Cell;
using BspGrid::grid;
using BspGrid::mostSteps;
using BspGrid::Step;

/// Least side of a cell in world units, and most cells in all and along one axis.
constexpr double leastCellSize = 8.0;
constexpr double mostCells = 262144.0;
constexpr double mostCellsAlong = 131072.0;
/// Room for the steps of all cells. What isn't used is never touched.
constexpr std::size_t mostStored = 65536;

std::mutex looking;      ///< held while a cell is looked into
std::size_t stored = 0;  ///< of `grid.steps`

/// Where centres of circles that touch the segment can be, with room for rounding.
Box SegmentReach(const BspSegment& segment) {
    const Vector2 a = segment.start;
    const Vector2 b = segment.start + segment.direction * segment.length;
    // Beside the end by a radius in each of two directions: the root of 2, rounded up.
    const float size = std::max({std::abs(a.x), std::abs(a.y), std::abs(b.x), std::abs(b.y)});
    const float margin = 1.5f * BspGrid::radius + 1e-5f * (size + segment.length);
    return {std::min(a.x, b.x) - margin, std::min(a.y, b.y) - margin, std::max(a.x, b.x) + margin,
            std::max(a.y, b.y) + margin};
}

void MakeReach() {
    grid.reach.resize(grid.nodes.size());
    for (std::size_t i = 0; i < grid.nodes.size(); ++i) {
        grid.reach[i] = SegmentReach(grid.nodes[i]);
    }
    for (std::size_t i = grid.nodes.size(); i-- > 1;) {
        VANTREL_ASSERT(grid.nodes[i].parent >= grid.nodes.data() &&
                       grid.nodes[i].parent < &grid.nodes[i]);
        grid.reach[static_cast<std::size_t>(grid.nodes[i].parent - grid.nodes.data())].Add(
            grid.reach[i]);
    }
}

void MakeCells() {
    const Box& world = grid.reach[0];
    const double width = double(world.maxX) - double(world.minX);
    const double height = double(world.maxY) - double(world.minY);
    const double size = std::max({leastCellSize, std::sqrt(width * height / mostCells),
                                  width / mostCellsAlong, height / mostCellsAlong});
    grid.origin.x = world.minX;
    grid.origin.y = world.minY;
    grid.cellSize = static_cast<float>(size);
    grid.cellsPerUnit = static_cast<float>(1.0 / size);
    // One more than fits, since rounding may push the world's last positions over.
    grid.columns = static_cast<std::uint32_t>(width / size) + 2;
    grid.rows = static_cast<std::uint32_t>(height / size) + 2;
    grid.most = {static_cast<float>(grid.columns), static_cast<float>(grid.rows)};
    grid.cells.assign(std::size_t{grid.columns} * grid.rows, Cell());
}

/// All positions that fall into the cell, and a little more.
Box CellBox(std::size_t place) {
    const std::size_t column = place % grid.columns;
    const std::size_t row = place / grid.columns;
    const float left = grid.origin.x + static_cast<float>(column) * grid.cellSize;
    const float top = grid.origin.y + static_cast<float>(row) * grid.cellSize;
    const float extent =
        std::max(std::abs(grid.origin.x) + static_cast<float>(grid.columns) * grid.cellSize,
                 std::abs(grid.origin.y) + static_cast<float>(grid.rows) * grid.cellSize);
    const float slack = 0.01f * grid.cellSize + 1e-6f * extent;
    return {left - slack, top - slack, left + grid.cellSize + slack, top + grid.cellSize + slack};
}

/// Keeps what was found about a cell.
Cell Store(std::span<const Step> found) {
    if (found.empty()) {
        return {Cell::Empty, 0};
    }
    if (found.size() == 1) {
        return {Cell::OneNode, found.front().node};
    }
    if (found.size() > mostSteps || found.size() >= mostStored - stored) {
        return {Cell::Walk, 0};
    }
    const Cell cell(Cell::Steps, stored);
    grid.steps[stored++] = {static_cast<std::uint32_t>(found.size()), 0};
    std::ranges::copy(found, &grid.steps[stored]);
    stored += found.size();
    return cell;
}

}  // namespace

void BspGrid::Box::Add(const Box& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

BspGrid::Cell BspGrid::KnownCellAt(Vector2 position) {
    Cell cell = CellAt(position);
    if (cell.What() == Cell::Unknown) {
        const std::size_t place = PlaceOfCell(position);
        const std::lock_guard lock(looking);
        const std::atomic_ref there(grid.cells[place]);
        cell = there.load(std::memory_order_relaxed);
        if (cell.What() == Cell::Unknown) {
            cell = Store(FindSteps(CellBox(place)));
            there.store(cell, std::memory_order_release);
        }
    }
    return cell;
}

void BspGrid::Prepare(std::span<const BspSegment> treeNodes) {
    grid = {};
    grid.nodes = treeNodes;
    stored = 0;
    if (!grid.nodes.empty()) {
        grid.steps = std::make_unique_for_overwrite<Step[]>(mostStored);
        MakeReach();
        MakeCells();
    }
}
