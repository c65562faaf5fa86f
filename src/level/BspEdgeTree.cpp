// The tree is complete: a power of two of leaves, filled from the front.

#include "level/BspEdgeTree.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iterator>

#include "platform/Assert.h"

BspEdgeTree::BspEdgeTree(std::vector<Item> members) : items(std::move(members)) {
    size = items.size();
    leafCount = std::bit_ceil(std::max<std::size_t>(1, (size + leafSize - 1) / leafSize));
    BspEdgeOrder::Sort(items, leafCount * leafSize, leafSize);
    placeOfNumber.reserve(size);
    for (std::size_t place = 0; place < size; ++place) {
        placeOfNumber.emplace_back(items[place].number, place);
    }
    std::sort(placeOfNumber.begin(), placeOfNumber.end());
    nodes.resize(2 * leafCount);
    for (std::size_t node = 2 * leafCount; --node > 0;) {
        Refresh(node);
    }
}

std::size_t BspEdgeTree::PlaceOf(std::size_t number) const {
    const auto place = std::lower_bound(placeOfNumber.begin(), placeOfNumber.end(),
                                        std::pair(number, std::size_t{0}));
    VANTREL_ASSERT(place != placeOfNumber.end() && items[place->second].number == number);
    return place->second;
}

void BspEdgeTree::Refresh(std::size_t node) {
    if (node < leafCount) {
        const Node& left = nodes[2 * node];
        const Node& right = nodes[2 * node + 1];
        nodes[node].reach = left.reach;
        nodes[node].reach.Include(right.reach);
        nodes[node].lowest = std::min(left.lowest, right.lowest);
        return;
    }
    nodes[node] = {};
    const std::size_t first = (node - leafCount) * leafSize;
    for (std::size_t i = first; i < std::min(first + leafSize, items.size()); ++i) {
        if (items[i].number != none) {
            nodes[node].reach.Include(items[i].reach);
            nodes[node].lowest = std::min(nodes[node].lowest, items[i].number);
        }
    }
}

void BspEdgeTree::RefreshAbove(std::size_t place) {
    for (std::size_t node = leafCount + place / leafSize; node > 0; node /= 2) {
        Refresh(node);
    }
}

void BspEdgeTree::Remove(std::size_t number) {
    const std::size_t place = PlaceOf(number);
    items[place].number = none;
    --size;
    RefreshAbove(place);
}

void BspEdgeTree::Change(std::size_t number, const BspEdgeReach& reach) {
    const std::size_t place = PlaceOf(number);
    items[place].reach = reach;
    RefreshAbove(place);
}

std::size_t BspEdgeTree::First(const BspEdgeReach& query, const Test& passes) const {
    std::size_t best = none;
    std::array<std::size_t, 2 * 64> open;  // at most one more per level
    open[0] = 1;
    for (std::size_t count = 1; count > 0;) {
        const std::size_t node = open[--count];
        if (nodes[node].lowest >= best || !query.MayMeet(nodes[node].reach)) {
            continue;
        }
        if (node < leafCount) {
            const bool leftFirst = nodes[2 * node].lowest < nodes[2 * node + 1].lowest;
            open[count++] = leftFirst ? 2 * node + 1 : 2 * node;
            open[count++] = leftFirst ? 2 * node : 2 * node + 1;
            continue;
        }
        const std::size_t first = (node - leafCount) * leafSize;
        for (std::size_t i = first; i < std::min(first + leafSize, items.size()); ++i) {
            if (items[i].number < best && query.MayMeet(items[i].reach) &&
                passes(items[i].number)) {
                best = items[i].number;
            }
        }
    }
    return best;
}

void BspEdgeTree::CopyTo(std::vector<Item>& list) const {
    std::copy_if(items.begin(), items.end(), std::back_inserter(list),
                 [](const Item& item) { return item.number != none; });
}
