#include "level/BspEdgeIndex.h"

#include <algorithm>
#include <iterator>

#include "platform/Assert.h"

BspEdgeIndex::BspEdgeIndex(std::vector<Item> items) {
    ranges.push_back({0, BspEdgeTree(std::move(items))});
}

void BspEdgeIndex::Append(const Item& item) {
    VANTREL_ASSERT(fresh.empty() || item.number > fresh.back().number);
    fresh.push_back(item);
    if (fresh.size() == freshLimit) {
        PlantFresh();
    }
}

/// Makes a tree of the newest edges and of all trees before it that aren't larger by far, so
/// that an edge is moved only as often as the number of edges can be halved.
void BspEdgeIndex::PlantFresh() {
    std::size_t first = fresh.front().number;
    while (!ranges.empty() && ranges.back().tree.Size() <= 2 * fresh.size()) {
        first = ranges.back().first;
        ranges.back().tree.CopyTo(fresh);
        ranges.pop_back();
    }
    ranges.push_back({first, BspEdgeTree(std::move(fresh))});
    fresh.clear();
}

/// Null for an edge that is still among the fresh.
BspEdgeTree* BspEdgeIndex::TreeOf(std::size_t number) {
    if (!fresh.empty() && number >= fresh.front().number) {
        return nullptr;
    }
    const auto above =
        std::upper_bound(ranges.begin(), ranges.end(), number,
                         [](std::size_t n, const Range& range) { return n < range.first; });
    return &std::prev(above)->tree;
}

void BspEdgeIndex::Remove(std::size_t number) {
    if (BspEdgeTree* tree = TreeOf(number)) {
        tree->Remove(number);
    } else {
        std::erase_if(fresh, [number](const Item& item) { return item.number == number; });
    }
}

void BspEdgeIndex::Change(std::size_t number, const BspEdgeReach& reach) {
    if (BspEdgeTree* tree = TreeOf(number)) {
        tree->Change(number, reach);
        return;
    }
    for (Item& item : fresh) {
        if (item.number == number) {
            item.reach = reach;
        }
    }
}

std::size_t BspEdgeIndex::First(const BspEdgeReach& query, const Test& passes) const {
    for (const Range& range : ranges) {
        if (const std::size_t number = range.tree.First(query, passes); number != none) {
            return number;
        }
    }
    for (const Item& item : fresh) {
        if (query.MayMeet(item.reach) && passes(item.number)) {
            return item.number;
        }
    }
    return none;
}
