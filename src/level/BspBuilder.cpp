// Builds the tree, node by node: the set of edges finds its splitter, and what isn't on the
// side with more edges leaves it.

#include "level/BspBuilder.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>

#include "engine/Geometry.h"
#include "level/BspEdgeOrder.h"
#include "level/BspEdgeSet.h"

namespace {

/// World units by which an edge may reach over a node's line without being split.
constexpr float splitTolerance = 0.1f;

/// A subtree that is still to be built.
struct Task {
    BspEdgeSet set;
    std::uint32_t parent = 0;
    bool isFront = false;
};

/// The root's edges, ordered by place, with no bounds yet.
std::vector<BspEdgeSet::Item> RootItems(std::span<const BspSegment> edges) {
    std::vector<BspEdgeOrder::Item> order;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        order.push_back({BspEdgeReach(edges[i]), i});
    }
    BspEdgeOrder::Sort(order, std::bit_ceil(order.size()), 1);
    std::vector<BspEdgeSet::Item> items;
    for (const BspEdgeOrder::Item& item : order) {
        const auto number = static_cast<std::uint32_t>(item.number);
        items.push_back({number, number, 0});
    }
    return items;
}

class Builder {
public:
    explicit Builder(std::vector<BspSegment> list) : edges(std::move(list)) {}

    std::vector<BspSegment> Run() {
        if (edges.empty()) {
            return {};
        }
        tasks.push_back({BspEdgeSet(edges, RootItems(edges))});
        while (!tasks.empty()) {
            Task task = std::move(tasks.back());
            tasks.pop_back();
            BuildNode(std::move(task));
        }
        Link();
        return std::move(nodes);
    }

private:
    std::vector<BspSegment> edges;  ///< all edges there ever were, pieces at the end
    std::vector<BspSegment> nodes;
    std::vector<std::pair<std::uint32_t, bool>> links;  ///< per node: parent, is its front child
    std::vector<Task> tasks;
    // Reused from node to node.
    std::vector<std::size_t> slots;
    std::vector<BspEdgeSet::Item> moved;

    /// The child on the side with more edges goes on with the node's set; those on the other
    /// side move into a set of their own.
    void BuildNode(Task task) {
        const auto [slot, frontIsLarger] = task.set.FindSplitter(edges);
        const BspSegment node = edges[task.set.At(slot).edge];
        const auto index = static_cast<std::uint32_t>(nodes.size());
        nodes.push_back(node);
        links.emplace_back(task.parent, task.isFront);

        Divide(task.set, slot, node, frontIsLarger);
        std::optional<Task> kept, other;
        if (task.set.Size() > 0) {
            kept = Task{std::move(task.set), index, frontIsLarger};
        }
        if (!moved.empty()) {
            other = Task{BspEdgeSet(edges, moved), index, !frontIsLarger};
        }
        // The last task in is built first: the back subtree follows its node.
        for (auto* child : {frontIsLarger ? &kept : &other, frontIsLarger ? &other : &kept}) {
            if (child->has_value()) {
                tasks.push_back(std::move(**child));
            }
        }
    }

    /// Takes the splitter out of the set, and all that isn't on the kept side of the node, which
    /// goes into `moved`.
    void Divide(BspEdgeSet& set, std::size_t splitter, const BspSegment& node, bool keepFront) {
        const int before = static_cast<int>(set.Size());
        int cut = 0;
        int keptPieces = 0;
        int movedPieces = 0;
        moved.clear();
        set.Remove(splitter);
        set.CollectOff(node, keepFront, slots);
        for (const std::size_t slot : slots) {
            const BspEdgeSet::Item item = set.At(slot);
            const float d1 = Dot(edges[item.edge].start - node.start, node.normal);
            const float d2 = Dot(edges[item.edge].end - node.start, node.normal);
            const bool startsInFront = d1 >= 0.0f;
            if ((startsInFront && d2 >= -splitTolerance) || (d1 < 0.0f && d2 < splitTolerance)) {
                if (startsInFront != keepFront) {
                    moved.push_back(item);
                    set.Remove(slot);
                }
                continue;
            }
            ++cut;
            auto [keptPiece, movedPiece] = Split(item.edge, node);
            if (startsInFront != keepFront) {
                std::swap(keptPiece, movedPiece);
            }
            if (keptPiece) {
                set.Replace(slot, edges[*keptPiece], *keptPiece);
                ++keptPieces;
            } else {
                set.Remove(slot);
            }
            if (movedPiece) {
                moved.push_back({*movedPiece, item.rank, 0});
                ++movedPieces;
            }
        }
        // Each edge that isn't there any more takes one off a score at most, as does each piece.
        const int movedWhole = static_cast<int>(moved.size()) - movedPieces;
        slots.push_back(splitter);
        set.Settle(edges, slots, 1 + movedWhole + cut + keptPieces);
        for (BspEdgeSet::Item& item : moved) {
            item.bound = std::max(0, item.bound - (before - movedWhole + movedPieces));
        }
    }

    using Piece = std::optional<std::uint32_t>;

    /// Cuts an edge where it crosses the node's line: the piece at its start and that at its
    /// end; those of no length are dropped.
    std::pair<Piece, Piece> Split(std::uint32_t index, const BspSegment& node) {
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
        return {AddPiece(edge, edge.start, at), AddPiece(edge, at, edge.end)};
    }

    Piece AddPiece(const BspSegment& edge, Vector2 start, Vector2 end) {
        BspSegment piece = edge;
        piece.SetEnds(start, end);
        if (piece.length <= shortestEdge) {
            return {};
        }
        edges.push_back(piece);
        return static_cast<std::uint32_t>(edges.size() - 1);
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
