#pragma once
// The level's static edges in one binary space partition, built once when a level loads.
// Where polygons touch, the shared stretch of their edges is cut away first. After Build only
// `active` changes. Order: Build, queries and Reset, Destroy.

#include <list>
#include <vector>

#include "level/BspSegment.h"
#include "level/LevelPolygon.h"

namespace BspTree {

/// Replaces any tree with one for these polygons, which must outlive it.
void Build(std::list<LevelPolygon>& polygons);
void Destroy();
/// Level restart: all debug views off, all segments active.
void Reset();
/// Appends all nodes: back subtree, the node, front subtree.
void CollectNodes(std::vector<BspSegment*>& nodes);
/// Null without a tree.
BspSegment* Root();
/// The first active segment that the ray hits, or null. On a hit `to` moves to the hit point.
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
