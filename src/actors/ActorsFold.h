#pragma once
// The actors' state, for comparing runs (engine/StateFold.h). Check point times aren't part of it:
// they are only shown, and fade with the frames that are drawn.

#include "engine/StateFold.h"

namespace ActorsFold {

void AddCamera(StateFold& fold);
/// Triggers with what waits for its delay, movers, forces, objects and placed sounds, each in the
/// order of adding.
void AddActors(StateFold& fold);

}  // namespace ActorsFold
