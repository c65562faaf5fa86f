// Which node each cell of the world starts its queries from. Cells are looked into when they
// are first asked for, so that only those that water visits cost anything.

#include "level/BspGrid.h"

#include <algorithm>
#include <cmath>

BspGrid::Grid BspGrid::grid;

namespace {

using BspGrid::Box;
using BspGrid::empty;
using BspGrid::grid;
using BspGrid::known;
using BspGrid::largestRadius;
using BspGrid::unknown;

/// Least side of a cell in world units, and most cells in all and along one axis.
constexpr double leastCellSize = 8.0;
constexpr double mostCells = 262144.0;
constexpr double mostCellsAlong = 131072.0;

/// Where centres of circles that touch the segment can be, with room for rounding.
Box SegmentReach(const BspSegment& segment) {
    const Vector2 a = segment.start;
    const Vector2 b = segment.start + segment.direction * segment.length;
    // Beside the end by a radius in each of two directions: the root of 2, rounded up.
    const float size = std::max({std::abs(a.x), std::abs(a.y), std::abs(b.x), std::abs(b.y)});
    const float margin = 1.5f * largestRadius + 1e-5f * (size + segment.length);
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
    grid.cells.assign(std::size_t{grid.columns} * grid.rows, unknown);
}

/// All positions that fall into the cell, and a little more.
Box CellBox(std::uint32_t column, std::uint32_t row) {
    const float left = grid.origin.x + static_cast<float>(column) * grid.cellSize;
    const float top = grid.origin.y + static_cast<float>(row) * grid.cellSize;
    const float extent =
        std::max(std::abs(grid.origin.x) + static_cast<float>(grid.columns) * grid.cellSize,
                 std::abs(grid.origin.y) + static_cast<float>(grid.rows) * grid.cellSize);
    const float slack = 0.01f * grid.cellSize + 1e-6f * extent;
    return {left - slack, top - slack, left + grid.cellSize + slack, top + grid.cellSize + slack};
}

struct Range {
    float low;
    float high;
};

/// The range over the box of positions along `axis`, from the node's start on. Each step of
/// the sum is monotone in the coordinates, rounding included, so the corners bound it exactly.
Range Positions(const BspSegment& node, Vector2 axis, const Box& box) {
    const bool right = axis.x >= 0.0f;
    const bool down = axis.y >= 0.0f;
    const Vector2 low{right ? box.minX : box.maxX, down ? box.minY : box.maxY};
    const Vector2 high{right ? box.maxX : box.minX, down ? box.maxY : box.minY};
    return {Dot(low - node.start, axis), Dot(high - node.start, axis)};
}

/// Whether a circle in the box can be beside the segment or near its ends, given that it can
/// be near its line.
bool IsCandidate(const BspSegment& segment, const Box& box) {
    const Range along = Positions(segment, segment.direction, box);
    return along.high >= -largestRadius && along.low <= segment.length + largestRadius;
}

/// Whether any query from the box that starts at `start` finds a candidate.
bool FindsAny(const BspSegment* start, const Box& box) {
    thread_local std::vector<const BspSegment*> open;
    open.assign(1, start);
    while (!open.empty()) {
        const BspSegment* node = open.back();
        open.pop_back();
        if (!node ||
            !grid.reach[static_cast<std::size_t>(node - grid.nodes.data())].Overlaps(box)) {
            continue;
        }
        const Range distances = Positions(*node, node->normal, box);
        const bool canBeBehind = distances.low < largestRadius;
        const bool canBeInFront = distances.high >= -largestRadius;
        if (canBeBehind && canBeInFront && IsCandidate(*node, box)) {
            return true;
        }
        if (canBeBehind) {
            open.push_back(node->backChild);
        }
        if (canBeInFront) {
            open.push_back(node->frontChild);
        }
    }
    return false;
}

std::uint32_t FirstNode(const Box& box) {
    const BspSegment* node = &grid.nodes.front();
    while (node) {
        const auto index = static_cast<std::size_t>(node - grid.nodes.data());
        if (!grid.reach[index].Overlaps(box)) {
            return empty;
        }
        const Range distances = Positions(*node, node->normal, box);
        if (distances.low >= largestRadius) {
            node = node->frontChild;
        } else if (distances.high < -largestRadius) {
            node = node->backChild;
        } else {
            return FindsAny(node, box) ? static_cast<std::uint32_t>(index) + known : empty;
        }
    }
    return empty;
}

}  // namespace

void BspGrid::Box::Add(const Box& other) {
    minX = std::min(minX, other.minX);
    minY = std::min(minY, other.minY);
    maxX = std::max(maxX, other.maxX);
    maxY = std::max(maxY, other.maxY);
}

std::uint32_t BspGrid::LookIntoCell(std::uint32_t column, std::uint32_t row) {
    return FirstNode(CellBox(column, row));
}

void BspGrid::Prepare(std::span<const BspSegment> treeNodes) {
    grid.nodes = treeNodes;
    grid.reach = {};
    grid.cells = {};
    grid.columns = 0;
    grid.rows = 0;
    if (!grid.nodes.empty()) {
        MakeReach();
        MakeCells();
    }
}
