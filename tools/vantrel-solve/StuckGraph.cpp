// Grows the graph and spreads what is good; see StuckGraph.h.

#include "StuckGraph.h"

#include <algorithm>
#include <utility>

namespace {

/// A place of stuck water has many situations, which are tried so often each; of a stage of a
/// move it is enough to see where it leads.
constexpr std::uint32_t wantedSettled = 12;
constexpr std::uint32_t wantedMoving = 3;

}  // namespace

StuckGraph::Index StuckGraph::Take(Index from, Copies::Number copy, const StuckPlace& at, Way way) {
    const auto fresh = static_cast<Index>(nodes.size());
    const auto [there, isNew] = byKind.try_emplace(at.kind, fresh);
    const Index index = there->second;
    if (isNew) {
        nodes.emplace_back().wanted = at.settled ? wantedSettled : wantedMoving;
    }
    Node& node = nodes[index];
    ++node.visits;
    if (isNew || (node.copy == Copies::none && !node.good)) {
        node.at = at;
        node.copy = copy;
        node.way = std::move(way);
    } else {
        copies.Drop(copy);
    }
    // Another one on the move that looks alike may have another speed: it proves nothing.
    if (!isNew && !at.settled) {
        return none;
    }
    if (from != none) {
        Link(from, index);
    }
    return index;
}

void StuckGraph::Link(Index from, Index to) {
    std::vector<Index>& after = nodes[from].after;
    if (from == to || std::find(after.begin(), after.end(), to) != after.end()) {
        return;
    }
    after.push_back(to);
    nodes[to].before.push_back(from);
    if (nodes[to].good) {
        MarkGood(from);
    }
}

void StuckGraph::MarkGood(Index which) {
    std::vector<Index> waiting{which};
    while (!waiting.empty()) {
        Node& node = nodes[waiting.back()];
        waiting.pop_back();
        if (!node.good) {
            node.good = true;
            waiting.insert(waiting.end(), node.before.begin(), node.before.end());
        }
    }
}

void StuckGraph::MakeRoom(std::size_t wanted) {
    if (copies.Room() >= wanted) {
        return;
    }
    std::vector<Index> kept;
    for (Index i = 0; i < nodes.size(); ++i) {
        if (nodes[i].copy != Copies::none) {
            kept.push_back(i);
        }
    }
    // Some more than is wanted at once, so that this is seldom done.
    const std::size_t count =
        std::min(kept.size(), std::max(wanted - copies.Room(), kept.size() / 10));
    std::stable_sort(kept.begin(), kept.end(), [this](Index a, Index b) {
        const Node& first = nodes[a];
        const Node& second = nodes[b];
        return first.good != second.good ? first.good : first.tries > second.tries;
    });
    for (std::size_t i = 0; i < count; ++i) {
        Node& node = nodes[kept[i]];
        copies.Drop(node.copy);
        node.copy = Copies::none;
    }
}
