#pragma once
// The points of a large outline in a tree of bounds, to ask whether a triangle holds one.

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"

class LevelPolygonPointTree {
public:
    /// At least one point.
    explicit LevelPolygonPointTree(std::span<const Vector2> points);

    /// Whether `PointInConvexPolygon` holds for the triangle and any point that isn't one of
    /// its corners. Adds what it cost, in tests, to `work`.
    bool Holds(const std::array<Vector2, 3>& triangle, std::uint64_t& work) const;

private:
    /// The left child follows its parent; a leaf has no right child.
    struct Node {
        double minX, maxX, minY, maxY;
        std::uint32_t first;
        std::uint32_t count;
        std::uint32_t right;
    };
    /// A triangle, and how far rounding carries its borders.
    struct Query;

    void Build(std::uint32_t first, std::uint32_t count);

    std::vector<Vector2> ordered;
    std::vector<Node> nodes;
};
