#pragma once
// The actors' state, for comparing runs (engine/StateFold.h). Check point times and placed sounds
// aren't part of it: they are only shown and heard.

#include "actors/ActorsState.h"
#include "actors/Camera.h"
#include "engine/StateFold.h"

namespace ActorsFold {

void AddCamera(StateFold& fold, const CameraState& camera);
void AddActors(StateFold& fold, const ActorsState& actors);

}  // namespace ActorsFold
