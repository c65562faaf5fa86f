#pragma once
// What steam sounds like: a hiss while water evaporates, and a loop for the steam there is.

namespace SteamSounds {

/// At a level's start and restart: forgets the running values. The sounds, named by
/// cfg\game_sfx.cfg, are made by the first call and kept.
void Initialise();
/// At the end of the game.
void Shutdown();
/// Once per module step, with the uncapped `dt`; `loopsRest`: what sounds without an event is
/// silent, since a menu shows or the game is paused. Allocates nothing.
void Step(float dt, bool loopsRest);
/// Silences the loops; the next step brings them back.
void Rest();

}  // namespace SteamSounds
