#pragma once
// What is heard of a level: tells placed sounds and the water's voice where the listener is, and
// when to rest.

#include "game/World.h"

namespace GameSounds {

/// Once per module step, `dt` in seconds, uncapped.
void Step(float dt, const ImpactChances& chances);
/// Placed sounds alone, when they have just been started.
void StepSources();

}  // namespace GameSounds
