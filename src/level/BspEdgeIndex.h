#pragma once
// The edges that cleaning has still to come to, known by their numbers, so that the first
// partner of an edge is found without a look at all of them.
//
// Edges are added with growing numbers. They stand in trees that hold one range of numbers
// each; small trees are joined as they come, so that there are only a few.

#include <cstddef>
#include <vector>

#include "level/BspEdgeTree.h"

class BspEdgeIndex {
public:
    using Item = BspEdgeTree::Item;
    using Test = BspEdgeTree::Test;
    static constexpr std::size_t none = BspEdgeTree::none;

    /// In order of number.
    explicit BspEdgeIndex(std::vector<Item> items);

    /// The number must be above all others.
    void Append(const Item& item);
    void Remove(std::size_t number);
    void Change(std::size_t number, const BspEdgeReach& reach);
    /// The lowest number that passes, or `none`. Edges that `query` can't meet aren't tried.
    std::size_t First(const BspEdgeReach& query, const Test& passes) const;

private:
    static constexpr std::size_t freshLimit = 16;

    struct Range {
        std::size_t first;  ///< number that none of the tree is below
        BspEdgeTree tree;
    };

    std::vector<Range> ranges;
    std::vector<Item> fresh;  ///< newer than all ranges

    BspEdgeTree* TreeOf(std::size_t number);
    void PlantFresh();
};
