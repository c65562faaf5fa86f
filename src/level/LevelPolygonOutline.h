#pragma once
// Questions to a closed outline: does a segment cross a side, does a triangle hold a point.
// Small outlines are walked side by side. Larger ones stand in a tree of bounds, which leaves
// out only sides and points that can't change the answer: the answers are those of the plain
// walk, rounding included.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"

class LevelPolygonOutline {
public:
    /// The points in order, all different, at least 2; they must outlive this.
    explicit LevelPolygonOutline(std::span<const Vector2> outline);

    /// Whether `SegmentsCross` says so of ab and any side, the closing side included.
    bool Crosses(Vector2 a, Vector2 b);
    /// Whether `PointInConvexPolygon` holds for the triangle and any point of the outline
    /// that isn't one of its corners.
    bool HoldsPoint(const std::array<Vector2, 3>& triangle);
    /// The questions so far cost more than any outline drawn by a person: the answers are no
    /// longer right, and the outline should be given up.
    bool IsExhausted() const { return work > workLimit; }

private:
    /// Bounds along x, y, x + y and x - y.
    static constexpr int axisCount = 4;
    struct Bounds {
        std::array<double, axisCount> low;
        std::array<double, axisCount> high;
        void Add(Vector2 point, double reach);
        void Add(const Bounds& other);
        bool Overlaps(const Bounds& other) const;
    };
    /// The left child follows its parent; a leaf has sides and no right child.
    struct Node {
        Bounds bounds;
        std::uint32_t firstSide = 0;
        std::uint32_t sideCount = 0;
        std::uint32_t right = 0;
    };
    /// A segment's length, its longer axis and how it slants.
    struct Shape;

    /// Outlines of up to so many points are walked.
    static constexpr std::size_t plainLimit = 64;
    /// In tests of a segment, a point or a node; some seconds.
    static constexpr std::uint64_t workLimit = 400'000'000;

    Vector2 SideStart(std::uint32_t side) const { return points[side]; }
    Vector2 SideEnd(std::uint32_t side) const {
        return points[side + 1 < points.size() ? side + 1 : 0];
    }
    double Reach(const Shape& shape) const;
    std::uint32_t Build(std::uint32_t first, std::uint32_t count);
    void SplitAtMedian(std::uint32_t first, std::uint32_t count);
    template <typename Skip, typename Test>
    bool Search(Skip skip, Test test);
    bool CrossesInTree(Vector2 a, Vector2 b);
    bool CrossesSlanting(Vector2 a, Vector2 b, const Shape& shape);
    bool CrossesSide(Vector2 a, Vector2 b, std::uint32_t side) const;
    bool HoldsPointInTree(const std::array<Vector2, 3>& triangle);
    static bool HoldsPoint(const std::array<Vector2, 3>& triangle, Vector2 point);

    std::span<const Vector2> points;
    double largest = 0.0;              ///< largest absolute coordinate
    std::vector<std::uint32_t> sides;  ///< in the tree's order
    std::vector<Node> nodes;
    /// Sides near a slope of 1: along x or along y, rising or falling.
    std::array<std::array<std::vector<std::uint32_t>, 2>, 2> slanting;
    std::uint64_t work = 0;
};
