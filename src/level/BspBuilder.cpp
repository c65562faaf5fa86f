// Builds the tree. At every node each edge of the list is rated as a splitter against all
// others; the ratings are sums over the list, so a child that keeps most of its parent's list
// takes over the parent's sums and corrects them by what went away or was added. That keeps
// the whole build at a few times the square of the edge count, however deep the tree becomes.

#include "level/BspBuilder.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <utility>

#include "engine/Geometry.h"

namespace {

/// World units by which an edge may reach over a node's line without being split.
constexpr float splitTolerance = 0.1f;

/// What an edge's line does to a list of edges.
struct Tally {
    int endsBehind = 0;  ///< ends on the back side, 0 to 2 per edge
    int crossings = 0;   ///< edges with an end on each side

    Tally& operator+=(Tally t) {
        endsBehind += t.endsBehind;
        crossings += t.crossings;
        return *this;
    }
    Tally& operator-=(Tally t) {
        endsBehind -= t.endsBehind;
        crossings -= t.crossings;
        return *this;
    }
};

/// Edges with their ends in arrays, as the counting loop likes them.
struct EdgeEnds {
    std::vector<float> startX, startY, endX, endY;

    std::size_t Size() const { return startX.size(); }

    void Add(const BspSegment& edge) {
        startX.push_back(edge.start.x);
        startY.push_back(edge.start.y);
        endX.push_back(edge.end.x);
        endY.push_back(edge.end.y);
    }
    void Clear() {
        for (auto* array : {&startX, &startY, &endX, &endY}) {
            array->clear();
        }
    }
};

/// The edges on one side of a node, in list order, with their ratings against each other.
struct EdgeList {
    std::vector<std::uint32_t> edge;  ///< index into the builder's edges
    std::vector<Tally> tally;         ///< of this edge's line against all others of the list
    std::vector<std::size_t> pieces;  ///< positions of edges that the parent's list hadn't

    std::size_t Size() const { return edge.size(); }
};

/// A subtree that is still to be built.
struct Task {
    EdgeList list;
    std::uint32_t parent = 0;
    bool isFront = false;
};

Tally CountSides(const BspSegment& splitter, const EdgeEnds& ends) {
    const Vector2 origin = splitter.start;
    const Vector2 normal = splitter.normal;
    const std::size_t count = ends.Size();
    const float* startX = ends.startX.data();
    const float* startY = ends.startY.data();
    const float* endX = ends.endX.data();
    const float* endY = ends.endY.data();
    int endsBehind = 0;
    int crossings = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const float d1 = (startX[i] - origin.x) * normal.x + (startY[i] - origin.y) * normal.y;
        const float d2 = (endX[i] - origin.x) * normal.x + (endY[i] - origin.y) * normal.y;
        const int behind1 = d1 < 0.0f;
        const int behind2 = d2 < 0.0f;
        endsBehind += behind1 + behind2;
        crossings += behind1 ^ behind2;
    }
    return {endsBehind, crossings};
}

/// What CountSides gives for the splitter itself: rounding may put its end behind its line.
Tally CountSelf(const BspSegment& edge) {
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
    EdgeEnds all, removed, added;

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
            const Tally tally = list.tally[i];
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

    static void Keep(EdgeList& list, std::uint32_t index, Tally tally) {
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
        const double size = static_cast<double>(child.Size());
        const double pieces = static_cast<double>(child.pieces.size());
        const double kept = size - pieces;
        const double gone = static_cast<double>(parent.Size()) - kept;
        // The constant stands for what it costs to begin a counting loop.
        if (size * size < kept * (gone + pieces + 16.0) + pieces * size) {
            Rate(child);
        } else {
            CorrectRates(parent, side, child);
        }
    }

    /// Rates every edge of the list anew.
    void Rate(EdgeList& list) {
        Gather(list.edge, all);
        for (std::size_t i = 0; i < list.Size(); ++i) {
            RateEdge(list, i);
        }
    }

    /// Rates one edge against the list, whose ends are in `all`.
    void RateEdge(EdgeList& list, std::size_t i) {
        const BspSegment& edge = edges[list.edge[i]];
        list.tally[i] = CountSides(edge, all);
        list.tally[i] -= CountSelf(edge);
    }

    void CorrectRates(const EdgeList& parent, Side side, EdgeList& child) {
        removed.Clear();
        for (std::size_t i = 0; i < parent.Size(); ++i) {
            if (fates[i] != side) {
                removed.Add(edges[parent.edge[i]]);
            }
        }
        added.Clear();
        for (const std::size_t piece : child.pieces) {
            added.Add(edges[child.edge[piece]]);
        }
        if (!child.pieces.empty()) {
            Gather(child.edge, all);
        }
        std::size_t nextPiece = 0;
        for (std::size_t i = 0; i < child.Size(); ++i) {
            if (nextPiece < child.pieces.size() && child.pieces[nextPiece] == i) {
                RateEdge(child, i);
                ++nextPiece;
            } else {
                const BspSegment& edge = edges[child.edge[i]];
                child.tally[i] -= CountSides(edge, removed);
                child.tally[i] += CountSides(edge, added);
            }
        }
    }

    void Gather(std::span<const std::uint32_t> indices, EdgeEnds& ends) const {
        ends.Clear();
        for (const std::uint32_t index : indices) {
            ends.Add(edges[index]);
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
