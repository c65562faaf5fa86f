#pragma once
// A short cut into the level's tree. All small circles of one cell of the world take the same
// way down the tree for a while; the grid remembers where each cell's way ends, so that a
// query's cost hangs on what is near it and not on the size of the level.
//
// Order: Prepare after each build of the tree, then any number of queries.

#include <span>

#include "engine/Vector2.h"
#include "level/BspSegment.h"

namespace BspGrid {

/// Takes the tree's nodes, the root first and parents before children; they must stay where
/// they are until the next call. None are fine.
void Prepare(std::span<const BspSegment> nodes);

/// Circles up to this radius use the short cuts; it holds the game's particles.
constexpr float largestRadius = 2.5f;

/// The node from which a descent for this circle may start: it meets the same candidates in
/// the same order as one that starts at the root. Null if there are none.
const BspSegment* StartNode(Vector2 position, float radius);

/// Whether a circle of up to `largestRadius` at `position` can touch anything from `node`
/// down. May be true without need, never false wrongly.
bool CanTouch(const BspSegment* node, Vector2 position);

}  // namespace BspGrid
