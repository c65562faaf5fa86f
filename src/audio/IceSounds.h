#pragma once
// What ice sounds like: knocks when it suddenly slows, a grinding loop while it slides along
// surfaces, and a crackle while water freezes.

#include "audio/Disturbance.h"

namespace IceSounds {

/// At a level's start and restart: reads cfg\game_sfx.cfg and forgets the running values.
/// The sounds are made by the first call and kept.
void Initialise();
/// At the end of the game.
void Shutdown();
/// Once per module step, with the uncapped `dt`; `loopsRest`: what sounds without an event is
/// silent, since a menu shows or the game is paused. Allocates nothing.
void Step(float dt, bool loopsRest, const ImpactChance& chance);
/// The same with a chance that it draws itself.
void Step(float dt, bool loopsRest);
/// Silences the loops; the next step brings them back.
void Rest();

}  // namespace IceSounds
