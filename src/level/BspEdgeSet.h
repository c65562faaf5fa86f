#pragma once
// The edges of a part of the level's tree that is still to be built. Finds the edge that splits
// them best and the edges that a split concerns, without a look at all of them.
//
// The edges lie by place in leaves, under a tree of boxes, so that whole boxes on one side of
// a line are counted at once. For each edge stands a score that it can't go below as a
// splitter: the work is only done for those that could win. Such a bound lasts from node to
// node, as an edge that comes or goes changes a score by one at most.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <span>
#include <vector>

#include "level/BspSegment.h"

class BspEdgeSet {
public:
    struct Item {
        std::uint32_t edge = 0;  ///< its place among all edges
        std::uint32_t rank = 0;  ///< the lower, the earlier in the list; no two are the same
        int bound = 0;           ///< its score isn't below; 0 or more
    };
    struct Splitter {
        std::size_t slot = 0;
        bool frontIsLarger = false;
    };

    /// Items are best given with what is near in place near in the list. `edges` are all edges,
    /// here and in all that follows.
    BspEdgeSet(std::span<const BspSegment> edges, std::span<const Item> items);

    std::size_t Size() const { return static_cast<std::size_t>(nodes[1].count); }

    /// The edge that divides the set most evenly with the fewest splits, both weighing the
    /// same; the lowest rank of equals. The set must have edges.
    Splitter FindSplitter(std::span<const BspSegment> edges);

    /// The slots of all edges that may have an end off this side of the line, in order.
    void CollectOff(const BspSegment& line, bool isFront, std::vector<std::size_t>& slots) const;

    Item At(std::size_t slot) const;
    void Remove(std::size_t slot);
    /// Puts an edge with the same rank into the slot.
    void Replace(std::size_t slot, const BspSegment& piece, std::uint32_t edge);
    /// To be called after removing and replacing: `slots` are all where that was done,
    /// and may be more; the scores may have gone down by up to `loss`. May give all edges other
    /// slots.
    void Settle(std::span<const BspSegment> edges, std::span<const std::size_t> slots, int loss);

private:
    static constexpr std::size_t leafSize = 16;
    static constexpr float infinity = std::numeric_limits<float>::infinity();

    /// A score, as it would be had it not gone down since, and below it a rank: the smaller is
    /// the better splitter.
    using Claim = std::uint64_t;
    static constexpr Claim noClaim = Claim{std::numeric_limits<int>::max()} << 32;

    static Claim MakeClaim(int score, std::uint32_t rank) {
        return Claim{static_cast<std::uint32_t>(score)} << 32 | rank;
    }
    static int ScoreOf(Claim claim) { return static_cast<int>(claim >> 32); }
    static std::uint32_t RankOf(Claim claim) { return static_cast<std::uint32_t>(claim); }

    /// Slots without an edge have no number as coordinates, which is behind no line.
    struct Leaf {
        std::array<float, leafSize> startX, startY, endX, endY;
        std::array<Claim, leafSize> claims;
        std::array<std::uint32_t, leafSize> edges;
    };
    struct Node {
        Vector2 low{infinity, infinity};
        Vector2 high{-infinity, -infinity};
        int count = 0;
        Claim best = noClaim;
    };
    /// A splitter's score, as far as it's known.
    struct Rating {
        int balance = 0;    ///< edges in front less edges behind
        int crossings = 0;  ///< edges with an end on each side
        int unsure = 0;     ///< edges that aren't counted yet

        int Bound() const { return std::abs(balance) + crossings - unsure; }
    };
    class Line;

    /// The children of node i are 2 i and 2 i + 1; those of the leaves come last.
    std::vector<Node> nodes;
    std::vector<Leaf> leaves;
    std::size_t leafCount = 1;  ///< a power of two; `leaves` may end earlier
    int gone = 0;               ///< by how much all claims have gone down since they were made
    std::vector<std::uint32_t> open;  ///< reused: nodes that a rating has still to look into

    static void Clear(Leaf& leaf, std::size_t place);
    static void Put(Leaf& leaf, std::size_t place, const BspSegment& edge);
    void Refresh(std::size_t node);
    void RefreshLeaf(std::size_t index);
    void TryLeaf(std::span<const BspSegment> edges, std::size_t index, Claim& best,
                 Splitter& splitter);
    std::vector<Item> Items() const;
    Rating Rate(const BspSegment& splitter, int limit);
};
