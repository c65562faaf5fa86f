#pragma once
// What steam sounds like: a hiss while water evaporates, and a loop for the steam there is.

namespace SteamSounds {

/// At a level's start and restart: forgets the running values. The sounds, named by
/// cfg\game_sfx.cfg, are made by the first call and kept.
void Initialise();
/// At the end of the game.
void Shutdown();
/// Once per module step, with the uncapped `dt`. Allocates nothing.
void Step(float dt);
/// Silences the loops; the next step brings them back.
void Rest();

}  // namespace SteamSounds
