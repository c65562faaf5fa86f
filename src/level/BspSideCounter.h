#pragma once
// Counts on which sides of a line the ends of many edges lie: the inner loop of the tree's
// build. Edges are kept in order of place, in blocks with a box round each and boxes round
// those, so that whole boxes on one side of the line are counted at once.

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "level/BspSegment.h"

/// What a line does to a list of edges. Sums over edges, so lists can be added and taken away.
struct BspSideTally {
    int endsBehind = 0;  ///< ends on the back side, 0 to 2 per edge
    int crossings = 0;   ///< edges with an end on each side

    BspSideTally& operator+=(BspSideTally t) {
        endsBehind += t.endsBehind;
        crossings += t.crossings;
        return *this;
    }
    BspSideTally& operator-=(BspSideTally t) {
        endsBehind -= t.endsBehind;
        crossings -= t.crossings;
        return *this;
    }
};

class BspSideCounter {
public:
    /// Takes the edges that `indices` name.
    void Assign(std::span<const BspSegment> edges, std::span<const std::uint32_t> indices);

    /// The edges against the line of `splitter`; an end right on the line isn't behind it.
    BspSideTally Count(const BspSegment& splitter) const;

    /// Roughly what Count costs among this many edges; 1 is one edge in a plain loop.
    static double Cost(std::size_t edgeCount);

private:
    /// Boxes round runs of edges, all on one level.
    struct Level {
        std::vector<float> minX, minY, maxX, maxY;
        std::size_t edgesPerBox = 0;
    };

    std::vector<float> startX, startY, endX, endY;
    std::vector<Level> levels;  ///< the finest first; none for few edges
    std::size_t levelCount = 0;

    void SortByPlace(std::span<const BspSegment> edges, std::span<const std::uint32_t> indices);
    void MakeLevels();
    BspSideTally CountRange(const BspSegment& splitter, std::size_t first, std::size_t last) const;

    std::vector<std::uint64_t> places;  ///< reused: place above, index below
};
