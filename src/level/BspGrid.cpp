// Which node each cell of the world starts its queries from. Cells are looked into when they
// are first asked for, so that only those that water visits cost anything.

#include "level/BspGrid.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "platform/Assert.h"

namespace {

using BspGrid::largestRadius;

/// Least side of a cell in world units, and most cells in all and along one axis.
constexpr double leastCellSize = 8.0;
constexpr double mostCells = 262144.0;
constexpr double mostCellsAlong = 131072.0;

/// What a cell holds: not looked into yet, nothing to touch, or a node's index plus `known`.
constexpr std::uint32_t unknown = 0;
constexpr std::uint32_t empty = 1;
constexpr std::uint32_t known = 2;

struct Box {
    float minX = std::numeric_limits<float>::max();
    float minY = std::numeric_limits<float>::max();
    float maxX = std::numeric_limits<float>::lowest();
    float maxY = std::numeric_limits<float>::lowest();

    void Add(const Box& other) {
        minX = std::min(minX, other.minX);
        minY = std::min(minY, other.minY);
        maxX = std::max(maxX, other.maxX);
        maxY = std::max(maxY, other.maxY);
    }
    bool Overlaps(const Box& other) const {
        return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
    }
};

std::span<const BspSegment> nodes;
/// Per node: where the centre of a circle must be to touch any segment of its subtree.
std::vector<Box> reach;
/// Threads that step worlds of one level look into the same cells, and find the same there.
std::vector<std::uint32_t> cells;
float originX = 0.0f;
float originY = 0.0f;
float cellSize = 1.0f;
float cellsPerUnit = 1.0f;
std::uint32_t columns = 0;
std::uint32_t rows = 0;

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
    reach.resize(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        reach[i] = SegmentReach(nodes[i]);
    }
    for (std::size_t i = nodes.size(); i-- > 1;) {
        VANTREL_ASSERT(nodes[i].parent >= nodes.data() && nodes[i].parent < &nodes[i]);
        reach[static_cast<std::size_t>(nodes[i].parent - nodes.data())].Add(reach[i]);
    }
}

void MakeCells() {
    const Box& world = reach[0];
    const double width = double(world.maxX) - double(world.minX);
    const double height = double(world.maxY) - double(world.minY);
    const double size = std::max({leastCellSize, std::sqrt(width * height / mostCells),
                                  width / mostCellsAlong, height / mostCellsAlong});
    originX = world.minX;
    originY = world.minY;
    cellSize = static_cast<float>(size);
    cellsPerUnit = static_cast<float>(1.0 / size);
    // One more than fits, since rounding may push the world's last positions over.
    columns = static_cast<std::uint32_t>(width / size) + 2;
    rows = static_cast<std::uint32_t>(height / size) + 2;
    cells.assign(std::size_t{columns} * rows, unknown);
}

/// All positions that fall into the cell, and a little more.
Box CellBox(std::uint32_t column, std::uint32_t row) {
    const float left = originX + static_cast<float>(column) * cellSize;
    const float top = originY + static_cast<float>(row) * cellSize;
    const float extent = std::max(std::abs(originX) + static_cast<float>(columns) * cellSize,
                                  std::abs(originY) + static_cast<float>(rows) * cellSize);
    const float slack = 0.01f * cellSize + 1e-6f * extent;
    return {left - slack, top - slack, left + cellSize + slack, top + cellSize + slack};
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
        if (!node || !reach[static_cast<std::size_t>(node - nodes.data())].Overlaps(box)) {
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

std::uint32_t LookIntoCell(const Box& box) {
    const BspSegment* node = &nodes.front();
    while (node) {
        const auto index = static_cast<std::size_t>(node - nodes.data());
        if (!reach[index].Overlaps(box)) {
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

void BspGrid::Prepare(std::span<const BspSegment> treeNodes) {
    nodes = treeNodes;
    reach = {};
    cells = {};
    columns = 0;
    rows = 0;
    if (!nodes.empty()) {
        MakeReach();
        MakeCells();
    }
}

bool BspGrid::CanTouch(const BspSegment* node, Vector2 position) {
    VANTREL_ASSERT(node >= nodes.data() && node < nodes.data() + nodes.size());
    const Box& box = reach[static_cast<std::size_t>(node - nodes.data())];
    return position.x >= box.minX && position.x <= box.maxX && position.y >= box.minY &&
           position.y <= box.maxY;
}

const BspSegment* BspGrid::StartNode(Vector2 position, float radius) {
    if (!(radius <= largestRadius)) {
        return nodes.empty() ? nullptr : &nodes.front();
    }
    const float x = (position.x - originX) * cellsPerUnit;
    const float y = (position.y - originY) * cellsPerUnit;
    // Outside of the grid, and at no place at all, there is nothing to touch.
    if (!(x >= 0.0f && y >= 0.0f && x < static_cast<float>(columns) &&
          y < static_cast<float>(rows))) {
        return nullptr;
    }
    const auto column = static_cast<std::uint32_t>(x);
    const auto row = static_cast<std::uint32_t>(y);
    const std::atomic_ref<std::uint32_t> stored(cells[std::size_t{row} * columns + column]);
    std::uint32_t cell = stored.load(std::memory_order_relaxed);
    if (cell == unknown) {
        cell = LookIntoCell(CellBox(column, row));
        stored.store(cell, std::memory_order_relaxed);
    }
    return cell == empty ? nullptr : &nodes[cell - known];
}
