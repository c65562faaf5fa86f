#pragma once
// The triangles of an outline, plainly: for each ear the chain is walked from its front, and
// each corner is tested against all sides and all points of the outline.

#include <algorithm>
#include <array>
#include <vector>

#include "engine/Geometry.h"

namespace Plain {

using Points = std::vector<Vector2>;

inline bool IsStraight(Vector2 a, Vector2 b, Vector2 c) {
    Vector2 ab = b - a;
    Vector2 bc = c - b;
    Normalise(ab);
    Normalise(bc);
    return Dot(ab, bc) >= 0.9999f;
}

/// The outline without the points inside of straight runs, the seam's included.
inline Points Straightened(Points chain) {
    for (std::size_t i = 0; i + 2 < chain.size();) {
        if (IsStraight(chain[i], chain[i + 1], chain[i + 2])) {
            chain.erase(chain.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        } else {
            ++i;
        }
    }
    const std::size_t last = chain.size() - 1;
    if (last >= 2 && IsStraight(chain[last], chain[0], chain[1]) &&
        IsStraight(chain[last - 1], chain[last], chain[0])) {
        chain[0] = chain[last];
        chain.pop_back();
    }
    return chain;
}

/// Whether the corner a, b, c can be cut off.
inline bool IsEar(Vector2 a, Vector2 b, Vector2 c, const Points& boundary, int winding) {
    const auto turnsIn = [&](Vector2 side) {
        const Vector2 in = winding == 1 ? Vector2{-side.y, side.x} : Vector2{side.y, -side.x};
        return Dot((a + c) * 0.5f - b, in) >= 0.0f;
    };
    if (IsStraight(a, b, c) || !turnsIn(b - a) || !turnsIn(c - b)) {
        return false;
    }
    const std::array<Vector2, 3> triangle{a, winding == 1 ? b : c, winding == 1 ? c : b};
    for (std::size_t i = 0; i < boundary.size(); ++i) {
        const Vector2 p = boundary[i];
        const bool isCorner = p == a || p == b || p == c;
        if (SegmentsCross(a, c, p, boundary[(i + 1) % boundary.size()]) ||
            (!isCorner && PointInConvexPolygon(p.x, p.y, triangle))) {
            return false;
        }
    }
    return true;
}

/// Three corners per triangle; none if the outline can't be split with this winding.
inline Points Triangulate(const Points& outline, int winding) {
    const Points boundary = Straightened(outline);
    Points chain = boundary;
    Points corners;
    while (chain.size() >= 3) {
        std::size_t b = 1;
        while (b + 1 < chain.size() &&
               !IsEar(chain[b - 1], chain[b], chain[b + 1], boundary, winding)) {
            ++b;
        }
        if (b + 1 == chain.size()) {
            return {};
        }
        corners.insert(corners.end(), {chain[b - 1], chain[b], chain[b + 1]});
        chain.erase(chain.begin() + static_cast<std::ptrdiff_t>(b));
    }
    return corners;
}

}  // namespace Plain
