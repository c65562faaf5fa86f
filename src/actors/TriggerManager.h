#pragma once
// Triggers: areas that react to the water inside them. Each simulation step every particle and
// every lump of ice is tested against the triggers near the camera; a hit has the effect of the
// trigger's type, at once or after the trigger's delay.
//
// Order of calls: Initialise and Add while a level loads, after everything that a trigger can
// act on; then Step at each simulation step, after the water. The particle is the outer loop:
// all triggers, in list order, see the first particle before any sees the second.

#include <deque>

#include "actors/ActorsStep.h"
#include "actors/Trigger.h"
#include "level/View.h"

namespace TriggerManager {

/// Of any world; the workspace's events tell what happened that others decide on.
void Step(const ActorsParts& parts, const View& view, float dt);

/// In the order of adding; pointers to entries stay valid until Shutdown.
extern std::deque<Trigger> triggers;

// The world in play.

extern bool triggerDraw;
TriggerState& StateOf(const Trigger& trigger);

void Initialise();
void Shutdown();
/// Appends a trigger and binds it to what bears `targetId` now; 0 binds nothing. An unknown
/// type does nothing. `delay` in seconds; it counts only for types that don't act on the water
/// that fired them, and as 0 if it isn't finite.
void Add(int type, std::uint32_t targetId, float delay, Vector2 corner0, Vector2 corner1,
         Vector2 corner2, Vector2 corner3);
/// Level restart: drops delayed effects and lets spent triggers fire again.
void Reset();
/// What happened that others decide on; valid until the next step. Placed sounds have followed it.
const TriggerEvents& Step(const View& view, float dt);
/// Says on the console, once for each life of a level, that too many delayed effects wait.
void TellOfDropped();
/// Debug view (TriggerManagerDraw.cpp).
void Draw(const View& view);

}  // namespace TriggerManager
