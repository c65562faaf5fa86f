// Builds the tree. At every node each edge of the list is rated as a splitter against all
// others; the ratings are sums over the list, so a child that keeps most of its parent's list
// takes over the parent's sums and corrects them by what went away or was added. So
// even a tree as deep as it has edges takes no more than the square of their number.

#include "level/BspBuilder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "engine/Geometry.h"
#include "level/BspSideCounter.h"

namespace {

/// World units by which an edge may reach over a node's line without being split.
constexpr float splitTolerance = 0.1f;

/// The edges on one side of a node, in list order, with their ratings against each other.
struct EdgeList {
    std::vector<std::uint32_t> edge;  ///< index into the builder's edges
    std::vector<BspSideTally> tally;  ///< of this edge's line against all others of the list
    std::vector<std::size_t> pieces;  ///< positions of edges that the parent's list hadn't

    std::size_t Size() const { return edge.size(); }
};

/// A subtree that is still to be built.
struct Task {
    EdgeList list;
    std::uint32_t parent = 0;
    bool isFront = false;
};

/// What counting gives for the splitter itself: rounding may put its end behind its line.
BspSideTally CountSelf(const BspSegment& edge) {
    const int behind = Dot(edge.end - edge.start, edge.normal) < 0.0f;
    return {behind, behind};
}

class Builder {
public:
    explicit Builder(std::vector<BspSegment> list) : edges(std::move(list)) {}

    std::vector<BspSegment> Run() {
        if (edges.empty()) {
            return {};
        }
        Task root;
        for (std::size_t i = 0; i < edges.size(); ++i) {
            root.list.edge.push_back(static_cast<std::uint32_t>(i));
        }
        root.list.tally.resize(edges.size());
        Rate(root.list);
        tasks.push_back(std::move(root));
        while (!tasks.empty()) {
            Task task = std::move(tasks.back());
            tasks.pop_back();
            BuildNode(task);
        }
        Link();
        return std::move(nodes);
    }

private:
    enum class Side : std::uint8_t { Back, Front, Neither };

    std::vector<BspSegment> edges;  ///< all edges there ever were, pieces at the end
    std::vector<BspSegment> nodes;
    std::vector<std::pair<std::uint32_t, bool>> links;  ///< per node: parent, is its front child
    std::vector<Task> tasks;
    // Reused from node to node.
    std::vector<Side> fates;
    BspSideCounter all, removed, added;
    std::vector<std::uint32_t> indices;

    void BuildNode(const Task& task) {
        const EdgeList& list = task.list;
        const std::size_t splitter = ChooseSplitter(list);
        const BspSegment node = edges[list.edge[splitter]];
        const auto index = static_cast<std::uint32_t>(nodes.size());
        nodes.push_back(node);
        links.emplace_back(task.parent, task.isFront);

        Task back{{}, index, false};
        Task front{{}, index, true};
        Divide(list, splitter, node, back.list, front.list);
        UpdateTallies(list, Side::Back, back.list);
        UpdateTallies(list, Side::Front, front.list);
        // The last task in is built first: the back subtree follows its node.
        if (front.list.Size() > 0) {
            tasks.push_back(std::move(front));
        }
        if (back.list.Size() > 0) {
            tasks.push_back(std::move(back));
        }
    }

    /// The edge that divides the list most evenly with the fewest splits, both weighing the
    /// same; the earliest of equals.
    static std::size_t ChooseSplitter(const EdgeList& list) {
        const int others = static_cast<int>(list.Size()) - 1;
        std::size_t best = 0;
        int bestScore = 0;
        for (std::size_t i = 0; i < list.Size(); ++i) {
            const BspSideTally tally = list.tally[i];
            // An edge wholly behind has two ends there, one wholly in front none, so this is
            // the count in front less the count behind.
            const int balance = others - tally.endsBehind;
            const int score = std::abs(balance) + tally.crossings;
            if (i == 0 || score < bestScore) {
                best = i;
                bestScore = score;
            }
        }
        return best;
    }

    void Divide(const EdgeList& list, std::size_t splitter, const BspSegment& node, EdgeList& back,
                EdgeList& front) {
        fates.assign(list.Size(), Side::Neither);
        for (std::size_t i = 0; i < list.Size(); ++i) {
            if (i == splitter) {
                continue;
            }
            const std::uint32_t index = list.edge[i];
            const float d1 = Dot(edges[index].start - node.start, node.normal);
            const float d2 = Dot(edges[index].end - node.start, node.normal);
            if (d1 >= 0.0f && d2 >= -splitTolerance) {
                fates[i] = Side::Front;
                Keep(front, index, list.tally[i]);
            } else if (d1 < 0.0f && d2 < splitTolerance) {
                fates[i] = Side::Back;
                Keep(back, index, list.tally[i]);
            } else {
                Split(index, node, d1 >= 0.0f ? front : back, d1 >= 0.0f ? back : front);
            }
        }
    }

    static void Keep(EdgeList& list, std::uint32_t index, BspSideTally tally) {
        list.edge.push_back(index);
        list.tally.push_back(tally);
    }

    /// Cuts an edge where it crosses the node's line; pieces of no length are dropped.
    void Split(std::uint32_t index, const BspSegment& node, EdgeList& startSide,
               EdgeList& endSide) {
        const BspSegment edge = edges[index];
        Vector2 at =
            LineIntersection(edge.start, edge.end, node.start, node.end).value_or(edge.start);
        const float along = Dot(at - edge.start, edge.direction);
        if (along < 0.0f) {
            at = edge.start;
        }
        if (along > edge.length) {
            at = edge.end;
        }
        AddPiece(edge, edge.start, at, startSide);
        AddPiece(edge, at, edge.end, endSide);
    }

    void AddPiece(const BspSegment& edge, Vector2 start, Vector2 end, EdgeList& list) {
        BspSegment piece = edge;
        piece.SetEnds(start, end);
        if (piece.length <= shortestEdge) {
            return;
        }
        list.pieces.push_back(list.Size());
        Keep(list, static_cast<std::uint32_t>(edges.size()), {});
        edges.push_back(piece);
    }

    /// Makes the child's ratings, by the cheaper of two ways.
    void UpdateTallies(const EdgeList& parent, Side side, EdgeList& child) {
        if (child.Size() < 2) {
            return;
        }
        const std::size_t kept = child.Size() - child.pieces.size();
        // Ends that are looked at, and what it takes to begin.
        const auto cost = [](std::size_t splitters, std::size_t edgeCount) {
            return splitters * (edgeCount + 16);
        };
        if (cost(child.Size(), child.Size()) < cost(kept, parent.Size() - kept) +
                                                   cost(kept, child.pieces.size()) +
                                                   cost(child.pieces.size(), child.Size())) {
            Rate(child);
        } else {
            CorrectRates(parent, side, child);
        }
    }

    /// Rates every edge of the list anew.
    void Rate(EdgeList& list) {
        all.Assign(edges, list.edge);
        for (std::size_t i = 0; i < list.Size(); ++i) {
            RateEdge(list, i);
        }
    }

    /// Rates one edge against the list, which is in `all`.
    void RateEdge(EdgeList& list, std::size_t i) {
        const BspSegment& edge = edges[list.edge[i]];
        list.tally[i] = all.Count(edge);
        list.tally[i] -= CountSelf(edge);
    }

    void CorrectRates(const EdgeList& parent, Side side, EdgeList& child) {
        indices.clear();
        for (std::size_t i = 0; i < parent.Size(); ++i) {
            if (fates[i] != side) {
                indices.push_back(parent.edge[i]);
            }
        }
        removed.Assign(edges, indices);
        indices.clear();
        for (const std::size_t piece : child.pieces) {
            indices.push_back(child.edge[piece]);
        }
        added.Assign(edges, indices);
        if (!child.pieces.empty()) {
            all.Assign(edges, child.edge);
        }
        std::size_t nextPiece = 0;
        for (std::size_t i = 0; i < child.Size(); ++i) {
            if (nextPiece < child.pieces.size() && child.pieces[nextPiece] == i) {
                RateEdge(child, i);
                ++nextPiece;
            } else {
                const BspSegment& edge = edges[child.edge[i]];
                child.tally[i] -= removed.Count(edge);
                if (!child.pieces.empty()) {
                    child.tally[i] += added.Count(edge);
                }
            }
        }
    }

    void Link() {
        for (std::size_t i = 1; i < nodes.size(); ++i) {
            const auto [parent, isFront] = links[i];
            nodes[i].parent = &nodes[parent];
            (isFront ? nodes[parent].frontChild : nodes[parent].backChild) = &nodes[i];
        }
    }
};

}  // namespace

std::vector<BspSegment> BspBuilder::Build(std::vector<BspSegment> edges) {
    return Builder(std::move(edges)).Run();
}
