#pragma once
// The level's static edges in one binary space partition, built once when a level loads.
// Where polygons touch, the shared stretch of their edges is cut away first. After Build nothing
// of it changes; which segments collide is part of the level's state. Order: Build, queries and
// Reset, Destroy.

#include <cstddef>
#include <deque>
#include <vector>

#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace BspTree {

/// Replaces any tree with one for these polygons, which must outlive it. All segments collide
/// in the world in play.
void Build(std::deque<LevelPolygon>& polygons);
void Destroy();
/// Level restart: all debug views off, all segments collide in the world in play.
void Reset();
/// The root first, each node followed by its back and then its front subtree.
extern std::vector<BspSegment> nodes;
/// A node's place in them and in LevelState::segmentsCollide.
inline std::size_t NumberOf(const BspSegment& node) {
    return static_cast<std::size_t>(&node - nodes.data());
}
/// Whether the node collides in the world in play; it splits space either way.
bool Collides(const BspSegment& node);
/// Appends all nodes: back subtree, the node, front subtree.
void CollectNodes(std::vector<BspSegment*>& nodes);
/// Null without a tree.
BspSegment* Root();
/// The first segment that collides in the world in play and that the ray hits, or null. On a hit
/// `to` moves to the hit point.
BspSegment* CastRay(Vector2 from, Vector2& to);
/// Number of edges after cleaning, before any split.
std::size_t EdgeCount();
int Size();
/// Height of the tree: 0 when empty, 1 for a root alone.
int Depth();
/// Whether all links hold and every child lies on its side of its parent's line.
bool Validate();
/// The debug views that are switched on (BspTreeDraw.cpp).
void DrawDebug();

}  // namespace BspTree
