#include "level/BspEdgeSet.h"

#include <algorithm>
#include <bit>

#include "platform/Assert.h"

/// The side of a line that a box is on. Each step of the sum is monotone in the coordinates,
/// rounding included: no end in the box comes out beyond what its corners give.
class BspEdgeSet::Line {
public:
    enum class Side : std::uint8_t { Front, Behind, Both };

    explicit Line(const BspSegment& edge)
        : origin(edge.start),
          normal(edge.normal),
          isRight(normal.x >= 0.0f),
          isDown(normal.y >= 0.0f) {}

    Side SideOf(const Node& node) const {
        const Vector2 back{isRight ? node.low.x : node.high.x, isDown ? node.low.y : node.high.y};
        if (Dot(back - origin, normal) >= 0.0f) {
            return Side::Front;
        }
        const Vector2 front{isRight ? node.high.x : node.low.x, isDown ? node.high.y : node.low.y};
        return Dot(front - origin, normal) < 0.0f ? Side::Behind : Side::Both;
    }

    void Count(const Leaf& leaf, int count, Rating& rating) const {
        int endsBehind = 0;
        int crossings = 0;
        for (std::size_t i = 0; i < leafSize; ++i) {
            const float d1 =
                (leaf.startX[i] - origin.x) * normal.x + (leaf.startY[i] - origin.y) * normal.y;
            const float d2 =
                (leaf.endX[i] - origin.x) * normal.x + (leaf.endY[i] - origin.y) * normal.y;
            const int behind1 = d1 < 0.0f;
            const int behind2 = d2 < 0.0f;
            endsBehind += behind1 + behind2;
            crossings += behind1 ^ behind2;
        }
        // An edge behind has two ends there and counts -1, one across counts nothing.
        rating.balance += count - endsBehind;
        rating.crossings += crossings;
    }

private:
    Vector2 origin, normal;
    bool isRight, isDown;
};

BspEdgeSet::BspEdgeSet(std::span<const BspSegment> edges, std::span<const Item> items)
    : leaves((items.size() + leafSize - 1) / leafSize) {
    VANTREL_ASSERT(!items.empty());
    leafCount = std::bit_ceil(leaves.size());
    nodes.resize(2 * leafCount);
    for (std::size_t slot = 0; slot < leaves.size() * leafSize; ++slot) {
        Leaf& leaf = leaves[slot / leafSize];
        const std::size_t place = slot % leafSize;
        if (slot < items.size()) {
            const Item& item = items[slot];
            Put(leaf, place, edges[item.edge]);
            leaf.claims[place] = MakeClaim(item.bound, item.rank);
            leaf.edges[place] = item.edge;
        } else {
            Clear(leaf, place);
        }
    }
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        RefreshLeaf(i);
    }
    for (std::size_t node = leafCount; --node > 0;) {
        Refresh(node);
    }
}

void BspEdgeSet::Clear(Leaf& leaf, std::size_t place) {
    constexpr float nowhere = std::numeric_limits<float>::quiet_NaN();
    leaf.startX[place] = leaf.startY[place] = leaf.endX[place] = leaf.endY[place] = nowhere;
    leaf.claims[place] = noClaim;
}

void BspEdgeSet::Put(Leaf& leaf, std::size_t place, const BspSegment& edge) {
    leaf.startX[place] = edge.start.x;
    leaf.startY[place] = edge.start.y;
    leaf.endX[place] = edge.end.x;
    leaf.endY[place] = edge.end.y;
}

void BspEdgeSet::Refresh(std::size_t node) {
    const Node& a = nodes[2 * node];
    const Node& b = nodes[2 * node + 1];
    nodes[node] = {{std::min(a.low.x, b.low.x), std::min(a.low.y, b.low.y)},
                   {std::max(a.high.x, b.high.x), std::max(a.high.y, b.high.y)},
                   a.count + b.count,
                   std::min(a.best, b.best)};
}

void BspEdgeSet::RefreshLeaf(std::size_t index) {
    const Leaf& leaf = leaves[index];
    Node node;
    for (std::size_t i = 0; i < leafSize; ++i) {
        // In this order, what is no number leaves the box as it is.
        node.low.x = std::min(node.low.x, std::min(leaf.startX[i], leaf.endX[i]));
        node.low.y = std::min(node.low.y, std::min(leaf.startY[i], leaf.endY[i]));
        node.high.x = std::max(node.high.x, std::max(leaf.startX[i], leaf.endX[i]));
        node.high.y = std::max(node.high.y, std::max(leaf.startY[i], leaf.endY[i]));
        node.count += leaf.claims[i] == noClaim ? 0 : 1;
        node.best = std::min(node.best, leaf.claims[i]);
    }
    nodes[leafCount + index] = node;
}

BspEdgeSet::Splitter BspEdgeSet::FindSplitter(std::span<const BspSegment> edges) {
    Splitter splitter;
    Claim best = noClaim;
    while (nodes[1].best != best) {
        std::size_t node = 1;
        while (node < leafCount) {
            node = 2 * node + (nodes[2 * node].best == nodes[node].best ? 0 : 1);
        }
        TryLeaf(edges, node - leafCount, best, splitter);
        for (node /= 2; node > 0; node /= 2) {
            nodes[node].best = std::min(nodes[2 * node].best, nodes[2 * node + 1].best);
        }
    }
    return splitter;
}

/// Rates the edges of a leaf that could still be better than the best, likely ones first.
void BspEdgeSet::TryLeaf(std::span<const BspSegment> edges, std::size_t index, Claim& best,
                         Splitter& splitter) {
    Leaf& leaf = leaves[index];
    for (;;) {
        const auto claim = std::min_element(leaf.claims.begin(), leaf.claims.end());
        if (*claim >= best) {
            nodes[leafCount + index].best = *claim;
            return;
        }
        const auto place = static_cast<std::size_t>(claim - leaf.claims.begin());
        // What it may not reach: with the same score the lower rank wins.
        const int limit = ScoreOf(best) + (RankOf(*claim) < RankOf(best) ? 1 : 0);
        const Rating rating = Rate(edges[leaf.edges[place]], limit - gone);
        *claim = MakeClaim(rating.Bound() + gone, RankOf(*claim));
        if (rating.Bound() + gone < limit) {
            best = *claim;
            splitter = {index * leafSize + place, rating.balance >= 0};
        }
    }
}

/// The whole rating of a splitter, or a part of it from which its score can't be below the
/// limit any more.
BspEdgeSet::Rating BspEdgeSet::Rate(const BspSegment& splitter, int limit) {
    const Line line(splitter);
    // The splitter is counted with the others; rounding may put its end behind its line.
    const bool isAcross = Dot(splitter.end - splitter.start, splitter.normal) < 0.0f;
    Rating rating{isAcross ? 0 : -1, isAcross ? -1 : 0, nodes[1].count};
    open.assign(1, 1);
    for (std::size_t i = 0; i < open.size() && rating.Bound() < limit; ++i) {
        const std::size_t node = open[i];
        if (node >= leafCount) {
            line.Count(leaves[node - leafCount], nodes[node].count, rating);
            rating.unsure -= nodes[node].count;
            continue;
        }
        for (const std::size_t child : {2 * node, 2 * node + 1}) {
            const int count = nodes[child].count;
            if (count == 0) {
                continue;
            }
            const Line::Side side = line.SideOf(nodes[child]);
            if (side == Line::Side::Both) {
                open.push_back(static_cast<std::uint32_t>(child));
            } else {
                rating.balance += side == Line::Side::Front ? count : -count;
                rating.unsure -= count;
            }
        }
    }
    return rating;
}

void BspEdgeSet::CollectOff(const BspSegment& line, bool isFront,
                            std::vector<std::size_t>& slots) const {
    const Line::Side kept = isFront ? Line::Side::Front : Line::Side::Behind;
    const Line sides(line);
    slots.clear();
    // Depth first, so that the slots come in order.
    std::vector<std::size_t> waiting{1};
    while (!waiting.empty()) {
        const std::size_t node = waiting.back();
        waiting.pop_back();
        if (nodes[node].count == 0 || sides.SideOf(nodes[node]) == kept) {
            continue;
        }
        if (node < leafCount) {
            waiting.push_back(2 * node + 1);
            waiting.push_back(2 * node);
            continue;
        }
        const std::size_t leaf = node - leafCount;
        for (std::size_t i = 0; i < leafSize; ++i) {
            if (leaves[leaf].claims[i] != noClaim) {
                slots.push_back(leaf * leafSize + i);
            }
        }
    }
}

BspEdgeSet::Item BspEdgeSet::At(std::size_t slot) const {
    const Leaf& leaf = leaves[slot / leafSize];
    const Claim claim = leaf.claims[slot % leafSize];
    return {leaf.edges[slot % leafSize], RankOf(claim), std::max(0, ScoreOf(claim) - gone)};
}

void BspEdgeSet::Remove(std::size_t slot) {
    Clear(leaves[slot / leafSize], slot % leafSize);
}

void BspEdgeSet::Replace(std::size_t slot, const BspSegment& piece, std::uint32_t edge) {
    Leaf& leaf = leaves[slot / leafSize];
    const std::size_t place = slot % leafSize;
    Put(leaf, place, piece);
    leaf.claims[place] = MakeClaim(gone, RankOf(leaf.claims[place]));
    leaf.edges[place] = edge;
}

void BspEdgeSet::Settle(std::span<const BspSegment> edges, std::span<const std::size_t> slots,
                        int loss) {
    gone += loss;
    std::size_t last = leaves.size();
    for (const std::size_t slot : slots) {
        const std::size_t leaf = slot / leafSize;
        if (leaf != last) {
            RefreshLeaf(leaf);
            for (std::size_t node = (leafCount + leaf) / 2; node > 0; node /= 2) {
                Refresh(node);
            }
            last = leaf;
        }
    }
    // Rarely enough that an edge is moved only as often as the number of edges can be halved.
    if (leaves.size() > 1 && 0 < Size() && 4 * Size() < 3 * leaves.size() * leafSize) {
        *this = BspEdgeSet(edges, Items());
    }
}

std::vector<BspEdgeSet::Item> BspEdgeSet::Items() const {
    std::vector<Item> items;
    items.reserve(Size());
    for (std::size_t slot = 0; slot < leaves.size() * leafSize; ++slot) {
        if (leaves[slot / leafSize].claims[slot % leafSize] != noClaim) {
            items.push_back(At(slot));
        }
    }
    return items;
}
