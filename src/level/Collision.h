#pragma once
// The game's one collision query: push a circle out of whatever edges it touches and report
// the average contact. It works on the tree's segments and on those of moving polygons. The
// results of the last query stay readable until the next one. Not re-entrant.

#include <vector>

#include "level/BspSegment.h"

namespace Collision {

/// Moves `position` out of all edges within `radius`; true if anything was touched.
bool CollideCircle(Vector2& position, float radius);
/// The same against the static level only.
bool CollideCircleStatic(Vector2& position, float radius);
/// Average of the unit vectors from the circle into what it touched; not normalised, (0, 0)
/// without contact.
Vector2 ContactNormal();
/// Average friction of what was touched; 1 without contact.
float ContactFriction();

/// The segments of moving polygons near the camera, in the order that queries take them. The
/// mover manager keeps the list; null for none.
void UseMovingSegments(const std::vector<BspSegment*>* segments);

}  // namespace Collision
