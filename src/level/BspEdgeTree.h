#pragma once
// A set of edges, known by their numbers, in a tree of boxes that finds the first of them in
// order of number that passes a test, among those that an edge may meet. Edges can leave and
// change, but none can be added.

#include <cstddef>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "level/BspEdgeOrder.h"

class BspEdgeTree {
public:
    using Item = BspEdgeOrder::Item;
    using Test = std::function<bool(std::size_t number)>;
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    explicit BspEdgeTree(std::vector<Item> members);

    /// `number` must be that of a member.
    void Remove(std::size_t number);
    void Change(std::size_t number, const BspEdgeReach& reach);
    /// The lowest number that passes, or `none`. Edges that `query` can't meet aren't tried.
    std::size_t First(const BspEdgeReach& query, const Test& passes) const;
    /// Adds those that are left to `list`.
    void CopyTo(std::vector<Item>& list) const;
    std::size_t Size() const { return size; }

private:
    static constexpr std::size_t leafSize = 4;

    /// A leaf holds the items from leafSize times its place among the leaves on.
    struct Node {
        BspEdgeReach reach;
        std::size_t lowest = none;
    };

    /// The children of node i are 2 i and 2 i + 1; the leaves come last.
    std::vector<Node> nodes;
    std::vector<Item> items;  ///< numbered `none` where gone
    std::vector<std::pair<std::size_t, std::size_t>> placeOfNumber;
    std::size_t leafCount = 1;
    std::size_t size = 0;

    std::size_t PlaceOf(std::size_t number) const;
    void Refresh(std::size_t node);
    void RefreshAbove(std::size_t place);
};
