#pragma once
// Axis-aligned boxes in a balanced tree, for finding the few that meet a given box.

#include <cstddef>
#include <span>
#include <vector>

#include "level/LevelFile.h"

struct Box {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    /// Touching counts.
    bool Meets(const Box& other) const {
        return left <= other.right && other.left <= right && top <= other.bottom &&
               other.top <= bottom;
    }
    /// The smallest box round the points, of which there must be one.
    static Box Round(std::span<const LevelFile::Point> points);
};

class BoxTree {
public:
    explicit BoxTree(std::vector<Box> boxes);

    /// Sets `hits` to the numbers of all boxes that meet `box`, ascending.
    void Find(const Box& box, std::vector<std::size_t>& hits) const;

private:
    static constexpr std::size_t leafSize = 8;

    void Build(std::size_t node, std::size_t first, std::size_t last);

    std::vector<Box> leaves;
    std::vector<std::size_t> order;  ///< box numbers, a node's lying together
    /// Bounds of the nodes; the children of node n are 2 n + 1 and 2 n + 2, and halve its span.
    std::vector<Box> bounds;
};
