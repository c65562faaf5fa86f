#pragma once
// The forces of the level. Order of calls: Initialise, Add, Shutdown. There is no reset: a level
// restart keeps `enabled` as triggers left it.

#include "actors/ActorsState.h"
#include "level/View.h"

namespace ForceManager {

/// Of the world in play.
inline std::vector<Force>& forces = Actors::current.forces;
extern bool forceDraw;

void Initialise();
void Shutdown();
/// Appends an enabled force; the direction is normalised, (0, 0) becoming (1, 0). Values that
/// aren't finite count as 0.
void Add(std::uint32_t id, float x, float y, float directionX, float directionY, float strength);
/// Debug view (ForceManagerDraw.cpp).
void Draw(const View& view);

}  // namespace ForceManager
