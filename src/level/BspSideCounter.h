#pragma once
// Counts on which sides of a line the ends of many edges lie: the inner loop of the tree's
// build. Coordinates lie in arrays of their own, so that the compiler counts several at once.

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

private:
    std::vector<float> startX, startY, endX, endY;
};
