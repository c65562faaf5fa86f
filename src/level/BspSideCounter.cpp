// Counts ends behind a line, block by block where all lie on one side of it.

#include "level/BspSideCounter.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/Assert.h"

namespace {

/// Edges in a box of the finest level, and boxes in a box of the next.
constexpr std::size_t blockSize = 16;
constexpr std::size_t fanOut = 4;
/// Below this many edges a plain loop over all of them is faster.
constexpr std::size_t worthBoxes = 512;
/// Counting so many takes as long through boxes as in the loop; boxes go with the root.
constexpr double boxCost = 24.0;

/// The lower 16 bits spread out to every second bit.
std::uint64_t Spread(std::uint64_t value) {
    value = (value | (value << 8)) & 0x00FF00FFu;
    value = (value | (value << 4)) & 0x0F0F0F0Fu;
    value = (value | (value << 2)) & 0x33333333u;
    return (value | (value << 1)) & 0x55555555u;
}

/// 0 to 65535 for a coordinate between the limits.
std::uint64_t Quantise(float value, float low, float high) {
    const double extent = std::max(double(high) - double(low), 1e-30);
    return static_cast<std::uint64_t>((double(value) - double(low)) / extent * 65535.0);
}

}  // namespace

void BspSideCounter::Assign(std::span<const BspSegment> edges,
                            std::span<const std::uint32_t> indices) {
    const std::size_t count = indices.size();
    for (auto* array : {&startX, &startY, &endX, &endY}) {
        array->resize(count);
    }
    const bool withBoxes = count >= worthBoxes;
    if (withBoxes) {
        SortByPlace(edges, indices);
    }
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t from = withBoxes ? places[i] & 0xFFFFFFFFu : i;
        VANTREL_ASSERT(indices[from] < edges.size());
        const BspSegment& edge = edges[indices[from]];
        startX[i] = edge.start.x;
        startY[i] = edge.start.y;
        endX[i] = edge.end.x;
        endY[i] = edge.end.y;
    }
    levelCount = 0;
    if (withBoxes) {
        MakeLevels();
    }
}

/// Along a curve that keeps near what is near, by the edges' starts.
void BspSideCounter::SortByPlace(std::span<const BspSegment> edges,
                                 std::span<const std::uint32_t> indices) {
    Vector2 low = edges[indices[0]].start;
    Vector2 high = low;
    for (const std::uint32_t index : indices) {
        const Vector2 start = edges[index].start;
        low = {std::min(low.x, start.x), std::min(low.y, start.y)};
        high = {std::max(high.x, start.x), std::max(high.y, start.y)};
    }
    places.resize(indices.size());
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const Vector2 start = edges[indices[i]].start;
        const std::uint64_t place = Spread(Quantise(start.x, low.x, high.x)) |
                                    Spread(Quantise(start.y, low.y, high.y)) << 1;
        places[i] = place << 32 | i;
    }
    std::sort(places.begin(), places.end());
}

void BspSideCounter::MakeLevels() {
    const std::size_t count = startX.size();
    for (std::size_t edgesPerBox = blockSize;
         edgesPerBox == blockSize || edgesPerBox < count * fanOut; edgesPerBox *= fanOut) {
        if (levels.size() == levelCount) {
            levels.emplace_back();
        }
        Level& level = levels[levelCount++];
        level.edgesPerBox = edgesPerBox;
        const std::size_t boxes = (count + edgesPerBox - 1) / edgesPerBox;
        level.minX.assign(boxes, std::numeric_limits<float>::max());
        level.minY.assign(boxes, std::numeric_limits<float>::max());
        level.maxX.assign(boxes, std::numeric_limits<float>::lowest());
        level.maxY.assign(boxes, std::numeric_limits<float>::lowest());
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t box = i / edgesPerBox;
            level.minX[box] = std::min({level.minX[box], startX[i], endX[i]});
            level.minY[box] = std::min({level.minY[box], startY[i], endY[i]});
            level.maxX[box] = std::max({level.maxX[box], startX[i], endX[i]});
            level.maxY[box] = std::max({level.maxY[box], startY[i], endY[i]});
        }
    }
}

BspSideTally BspSideCounter::Count(const BspSegment& splitter) const {
    const std::size_t count = startX.size();
    if (levelCount == 0) {
        return CountRange(splitter, 0, count);
    }
    const Vector2 origin = splitter.start;
    const Vector2 normal = splitter.normal;
    const bool right = normal.x >= 0.0f;
    const bool down = normal.y >= 0.0f;
    BspSideTally tally;
    struct Step {
        std::size_t level;
        std::size_t box;
    };
    Step open[fanOut * 16];
    std::size_t openCount = 0;
    open[openCount++] = {levelCount - 1, 0};
    while (openCount > 0) {
        const auto [depth, box] = open[--openCount];
        const Level& level = levels[depth];
        const std::size_t first = box * level.edgesPerBox;
        const std::size_t last = std::min(first + level.edgesPerBox, count);
        // Each step of the sum is monotone in the coordinates, rounding included: no end in
        // the box comes out beyond what its corners give.
        const Vector2 low{right ? level.minX[box] : level.maxX[box],
                          down ? level.minY[box] : level.maxY[box]};
        const Vector2 high{right ? level.maxX[box] : level.minX[box],
                           down ? level.maxY[box] : level.minY[box]};
        if (Dot(low - origin, normal) >= 0.0f) {
            continue;
        }
        if (Dot(high - origin, normal) < 0.0f) {
            tally.endsBehind += 2 * static_cast<int>(last - first);
        } else if (depth == 0) {
            tally += CountRange(splitter, first, last);
        } else {
            const std::size_t finer = box * fanOut;
            const std::size_t end = std::min(finer + fanOut, levels[depth - 1].minX.size());
            for (std::size_t i = finer; i < end; ++i) {
                open[openCount++] = {depth - 1, i};
            }
        }
    }
    return tally;
}

BspSideTally BspSideCounter::CountRange(const BspSegment& splitter, std::size_t first,
                                        std::size_t last) const {
    const Vector2 origin = splitter.start;
    const Vector2 normal = splitter.normal;
    const float* sx = startX.data();
    const float* sy = startY.data();
    const float* ex = endX.data();
    const float* ey = endY.data();
    int endsBehind = 0;
    int crossings = 0;
    for (std::size_t i = first; i < last; ++i) {
        const float d1 = (sx[i] - origin.x) * normal.x + (sy[i] - origin.y) * normal.y;
        const float d2 = (ex[i] - origin.x) * normal.x + (ey[i] - origin.y) * normal.y;
        const int behind1 = d1 < 0.0f;
        const int behind2 = d2 < 0.0f;
        endsBehind += behind1 + behind2;
        crossings += behind1 ^ behind2;
    }
    return {endsBehind, crossings};
}

double BspSideCounter::Cost(std::size_t edgeCount) {
    // What it takes to begin, and then either way of counting.
    const auto count = static_cast<double>(edgeCount);
    return 16.0 + (edgeCount < worthBoxes ? count : boxCost * std::sqrt(count));
}
