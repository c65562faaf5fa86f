// Grows the graph and spreads what is good; see StuckGraph.h.

#include "StuckGraph.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace {

/// A place of stuck water has many situations, which are tried so often each; of a stage of a
/// move it is enough to see where it leads.
constexpr std::uint32_t wantedSettled = 12;
constexpr std::uint32_t wantedMoving = 2;
/// A pocket is less wide than this, world units.
constexpr float wellAway = 250.0f;

}  // namespace

StuckGraph::Index StuckGraph::Take(Index from, Worlds::Number world, const StuckPlace& at,
                                   Path path, bool wantsLater) {
    const auto fresh = static_cast<Index>(nodes.size());
    const auto [there, isNew] = byHash.try_emplace(at.hash, fresh);
    const Index index = there->second;
    if (isNew) {
        nodes.emplace_back().wanted = at.settled ? wantedSettled : wantedMoving;
    }
    Node& node = nodes[index];
    ++node.visits;
    if (isNew) {
        node.at = at;
        node.path = path;
    }
    if (node.world != Worlds::none && !node.good && at.settled && wantsLater) {
        worlds.Drop(node.world);
        node.world = Worlds::none;
    }
    if (isNew || (node.world == Worlds::none && !node.good)) {
        node.world = world;
        node.worldPath = std::move(path);
    } else {
        worlds.Drop(world);
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

bool StuckGraph::Leaves(Index from) const {
    std::vector<Index> reached{from};
    std::unordered_set<Index> known{from};
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const Node& node = nodes[reached[i]];
        if (node.at.settled && Distance(node.at.place, nodes[from].at.place) > wellAway) {
            return true;
        }
        for (const Index next : node.after) {
            if (known.insert(next).second) {
                reached.push_back(next);
            }
        }
    }
    return false;
}

void StuckGraph::NoteLeaving() {
    for (Index i = 0; i < nodes.size(); ++i) {
        if (!nodes[i].good && !nodes[i].leaves && nodes[i].at.settled) {
            nodes[i].leaves = Leaves(i);
        }
    }
}

void StuckGraph::MakeRoom(std::size_t wanted) {
    if (worlds.Room() >= wanted) {
        return;
    }
    std::vector<Index> kept;
    for (Index i = 0; i < nodes.size(); ++i) {
        if (nodes[i].world != Worlds::none) {
            kept.push_back(i);
        }
    }
    // Some more than is wanted at once, so that this is seldom done.
    const std::size_t count =
        std::min(kept.size(), std::max(wanted - worlds.Room(), kept.size() / 10));
    std::stable_sort(kept.begin(), kept.end(), [this](Index a, Index b) {
        const Node& first = nodes[a];
        const Node& second = nodes[b];
        return first.good != second.good ? first.good : first.tries > second.tries;
    });
    for (std::size_t i = 0; i < count; ++i) {
        Node& node = nodes[kept[i]];
        worlds.Drop(node.world);
        node.world = Worlds::none;
    }
}
