#pragma once
// Questions to a closed outline: does a segment cross a side, does a triangle hold a point.
// Small outlines are walked from end to end; those of larger ones stand in a tree that gives the
// same answers, rounding included.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/Vector2.h"
#include "level/LevelPolygonSideTree.h"

class LevelPolygonOutline {
public:
    /// The points in order, all different, at least 3; they must outlive this.
    explicit LevelPolygonOutline(std::span<const Vector2> outline);

    /// Whether `SegmentsCross` says so of ab and any side, the closing side included.
    bool Crosses(Vector2 a, Vector2 b);
    /// Whether `PointInConvexPolygon` holds for the triangle and any point of the outline
    /// that isn't one of its corners.
    bool HoldsPoint(const std::array<Vector2, 3>& triangle);
    /// The questions so far cost more than those of any outline that a person draws: the
    /// answers are all true from here on, and the outline should be given up.
    bool IsExhausted() const { return work > workLimit; }

private:
    /// Outlines of up to so many points are walked.
    static constexpr std::size_t plainLimit = 64;
    /// In tests of a segment, a point or a node: a few seconds.
    static constexpr std::uint64_t workLimit = 150'000'000;

    std::span<const Vector2> points;
    std::optional<LevelPolygonSideTree> tree;
    std::uint64_t work = 0;
};
