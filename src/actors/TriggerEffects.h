#pragma once
// What triggers do: one function a type of level/TriggerTypes.h.

#include "actors/ActorsStep.h"
#include "actors/Trigger.h"
#include "water/WaterHit.h"

/// One firing of a trigger.
struct TriggerFiring {
    const Trigger& trigger;
    WaterHit water;  ///< what fired it; nothing if the effect was delayed
    float dt;        ///< seconds, of the step of firing
    const ActorsParts& world;
    TriggerEvents& events;
};

namespace TriggerEffects {

/// Never null: an unknown kind has an effect that does nothing.
TriggerEffect Of(TriggerKind kind);
}  // namespace TriggerEffects
