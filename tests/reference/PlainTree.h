#pragma once
// The build of the tree, plainly: at each node every edge is rated against all others.

#include <cstddef>
#include <cstdlib>
#include <vector>

#include "engine/Geometry.h"
#include "level/BspSegment.h"

namespace Plain {

/// A node of the tree: its segment, and where it hangs.
struct TreeNode {
    BspSegment segment;
    int depth;
    bool isFront;
};

/// How uneven the two sides of the splitter's line are, and how many edges it cuts.
inline int Score(const BspSegment& splitter, const std::vector<BspSegment>& edges) {
    int balance = 0;
    int splits = 0;
    for (const BspSegment& edge : edges) {
        const bool startIsBehind = Dot(edge.start - splitter.start, splitter.normal) < 0.0f;
        const bool endIsBehind = Dot(edge.end - splitter.start, splitter.normal) < 0.0f;
        if (&edge == &splitter) {
            continue;
        }
        if (startIsBehind != endIsBehind) {
            ++splits;
        } else {
            balance += startIsBehind ? -1 : 1;
        }
    }
    return std::abs(balance) + splits;
}

/// Adds the edge to the sides of the node that it lies on, in two pieces if need be.
inline void Divide(const BspSegment& edge, const BspSegment& node, std::vector<BspSegment>& back,
                   std::vector<BspSegment>& front) {
    const float d1 = Dot(edge.start - node.start, node.normal);
    const float d2 = Dot(edge.end - node.start, node.normal);
    if (d1 >= 0.0f && d2 >= -0.1f) {
        front.push_back(edge);
        return;
    }
    if (d1 < 0.0f && d2 < 0.1f) {
        back.push_back(edge);
        return;
    }
    Vector2 cut = LineIntersection(edge.start, edge.end, node.start, node.end).value_or(edge.start);
    const float along = Dot(cut - edge.start, edge.direction);
    cut = along < 0.0f ? edge.start : along > edge.length ? edge.end : cut;
    BspSegment first = edge;
    first.SetEnds(edge.start, cut);
    if (first.length > 0.01f) {
        (d1 >= 0.0f ? front : back).push_back(first);
    }
    BspSegment second = edge;
    second.SetEnds(cut, edge.end);
    if (second.length > 0.01f) {
        (d1 >= 0.0f ? back : front).push_back(second);
    }
}

/// Adds the tree of these edges to `nodes`: the root, then its back subtree, then its front one.
inline void BuildTree(const std::vector<BspSegment>& edges, int depth, bool isFront,
                      std::vector<TreeNode>& nodes) {
    if (edges.empty()) {
        return;
    }
    const BspSegment* splitter = &edges.front();
    for (const BspSegment& edge : edges) {
        if (Score(edge, edges) < Score(*splitter, edges)) {
            splitter = &edge;
        }
    }
    nodes.push_back({*splitter, depth, isFront});
    std::vector<BspSegment> back;
    std::vector<BspSegment> front;
    for (const BspSegment& edge : edges) {
        if (&edge != splitter) {
            Divide(edge, *splitter, back, front);
        }
    }
    BuildTree(back, depth + 1, false, nodes);
    BuildTree(front, depth + 1, true, nodes);
}

}  // namespace Plain
