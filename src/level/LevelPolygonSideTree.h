#pragma once
// The sides of a large outline in trees of bounds, to ask whether a segment crosses one or a
// triangle holds one of their ends.

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"

class LevelPolygonSideTree {
public:
    /// The outline's points in order, all different, at least 3; they must outlive this.
    explicit LevelPolygonSideTree(std::span<const Vector2> outline);

    /// Whether `SegmentsCross` says so of ab and any side, the closing side included. Adds
    /// what it cost, in tests, to `work`.
    bool Crosses(Vector2 a, Vector2 b, std::uint64_t& work) const;
    /// Whether `PointInConvexPolygon` holds for the triangle and any point that isn't one of
    /// its corners. Adds what it cost as well.
    bool HoldsPoint(const std::array<Vector2, 3>& triangle, std::uint64_t& work) const;

private:
    /// What rounding makes of a segment; see the .cpp.
    struct Shape {
        Shape(Vector2 a, Vector2 b);
        bool alongX;    ///< the longer axis, as SegmentsCross chooses it
        bool rising;    ///< x and y grow together
        double dx, dy;  ///< from a to b
        double slope;   ///< shorter by longer axis, 0 to 1
        double error;   ///< of the line's constant, by the length
    };
    /// Bounds of some sides of one longer axis. The left child follows its parent; a leaf has
    /// no right child.
    struct Node {
        double minX, maxX, minY, maxY;
        /// The same across the sides' mean direction.
        double normalX, normalY, slabLow, slabHigh;
        double error;                 ///< the largest
        std::array<double, 2> slope;  ///< the largest of those that fall and that rise
        std::uint32_t first;
        std::uint32_t count;
        std::uint32_t right;
    };
    /// A segment to be tested.
    struct Query;

    Vector2 Start(std::uint32_t side) const { return points[side]; }
    Vector2 End(std::uint32_t side) const {
        return points[side + 1 < points.size() ? side + 1 : 0];
    }
    Vector2 Middle(std::uint32_t side) const { return Start(side) * 0.5f + End(side) * 0.5f; }
    void Build(std::uint32_t first, std::uint32_t count);
    Node Bound(std::uint32_t first, std::uint32_t count) const;
    void SplitAtMedian(std::uint32_t first, std::uint32_t count);
    /// Whether any side below a root passes; nodes that the question misses are left out.
    template <class Misses, class Test>
    bool FindsSide(std::uint32_t root, const Misses& misses, const Test& passes,
                   std::uint64_t& work) const;

    std::span<const Vector2> points;
    double precision = 0.0;            ///< rounding unit of the largest coordinate
    std::vector<std::uint32_t> sides;  ///< in the trees' order
    std::vector<Node> nodes;
    std::vector<std::uint32_t> roots;  ///< one tree for either longer axis, if it has sides
};
