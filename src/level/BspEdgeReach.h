#pragma once
// Where an edge, or a group of edges, can take part in the cleaning rules.
//
// The rules work in single precision and take an edge's ends, direction and length as they
// are, whether they agree or not (joining edges bends them a little). `MayMeet` is sure all
// the same. With slack s, the distance by which an edge's end misses the place that its
// direction and length tell, and w the width of space that two edges span:
//  - a distance from a line errs by less than w / 2^21, as each of its two products does;
//  - an edge b within 0.01 of a's line, errors added, turns from it by an angle whose sine is
//    at most tolerance / |b|, with tolerance = 0.05 + 2 w / 2^21 + both slacks. From 4
//    tolerances of length on that is less than 15 degrees, and a place that lies along b and
//    near a's line lies within 2 tolerances of b's box;
//  - a place that lies along a and near its line lies within 2 tolerances of a's box.

#include <algorithm>
#include <cmath>
#include <limits>

#include "level/BspSegment.h"

struct BspEdgeReach {
    float minX = std::numeric_limits<float>::infinity();
    float minY = std::numeric_limits<float>::infinity();
    float maxX = -std::numeric_limits<float>::infinity();
    float maxY = -std::numeric_limits<float>::infinity();
    float shortest = std::numeric_limits<float>::infinity();  ///< least distance of two ends
    float slack = 0.0f;                                       ///< the largest

    BspEdgeReach() = default;

    explicit BspEdgeReach(const BspSegment& edge)
        : minX(std::min(edge.start.x, edge.end.x)),
          minY(std::min(edge.start.y, edge.end.y)),
          maxX(std::max(edge.start.x, edge.end.x)),
          maxY(std::max(edge.start.y, edge.end.y)) {
        const double x = double{edge.end.x} - double{edge.start.x};
        const double y = double{edge.end.y} - double{edge.start.y};
        const double along = x * double{edge.direction.x} + y * double{edge.direction.y};
        const double aside = x * double{edge.normal.x} + y * double{edge.normal.y};
        shortest = static_cast<float>(std::hypot(x, y));
        slack = static_cast<float>(std::abs(aside) + std::abs(along - double{edge.length}));
    }

    void Include(const BspEdgeReach& other) {
        minX = std::min(minX, other.minX);
        minY = std::min(minY, other.minY);
        maxX = std::max(maxX, other.maxX);
        maxY = std::max(maxY, other.maxY);
        shortest = std::min(shortest, other.shortest);
        slack = std::max(slack, other.slack);
    }

    /// False only if no edge of the group can be twin, joint or overlap of this one,
    /// wherever it lies.
    bool MayMeet(const BspEdgeReach& group) const {
        const float gap = std::max(std::max(group.minX - maxX, minX - group.maxX),
                                   std::max(group.minY - maxY, minY - group.maxY));
        const float width = std::max(maxX, group.maxX) - std::min(minX, group.minX) +
                            std::max(maxY, group.maxY) - std::min(minY, group.minY);
        const float tolerance = 0.05f + width / float{1 << 20} + slack + group.slack;
        return !(gap > 4.0f * tolerance && group.shortest > 4.0f * tolerance);
    }
};
