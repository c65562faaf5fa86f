#pragma once
// How a level ends and what it was worth: the stopwatch, the respawn of lost water, the count
// of water in the finish, and the score. There is no failure: water that is all lost comes
// back, and the only ending is success.

#include <cstdint>

#include "actors/TriggerEvents.h"
#include "game/Progress.h"

class GuiAnimatedButton;
class WorldListener;
struct WorldParts;

namespace LevelProgress {

// Of any world.

/// What the triggers of this step told of; before Step.
void Take(const WorldParts& world, const TriggerEvents& events);
/// Once per module step while the level is played; `dt` in seconds, uncapped.
void Step(const WorldParts& world, float dt, WorldListener* listener);

// The world in play.

/// At a level's start and restart: reads cfg\game.cfg and goes back to the first state.
void Initialise();
void Shutdown();
void Take(const TriggerEvents& events);
void Step(float dt);
/// Lost water comes back here from now on, as much of it as there is now; if all of it is lost
/// just now, as much as before.
void SetRespawn(float x, float y);
/// Whether the level's time is the sum of its steps, and not the clock's; off at first.
void CountSteps(bool on);
/// Lets the time since the last tick go by uncounted.
void SkipTime();
/// The finish was reached and its animation is over.
bool IsFinished();
/// The finish was reached; true from then on.
bool IsFinishing();
/// All water in the level, of any state.
std::uint32_t WaterAtFinish();
std::uint32_t ElapsedMs();

/// 436,000 for 2 minutes 40 or less, falling evenly to 1,000 for 8 minutes or more.
std::uint32_t TimeScore();
/// 500 a particle.
std::uint32_t WaterScore();
std::uint32_t TotalScore();

// What is heard and shown of the world in play.

void PlayRespawnSound();
void PlayFinishSound();
/// Silences the level and shows its end.
void ShowEnd();

/// Once a frame after the world (LevelProgressDraw.cpp); leaves the transform in 800 by 600
/// units over the client area.
void Draw();

// What drawing and traces read.

extern ProgressState current;
// Parts of `current` by their own names.
inline float& respawnX = current.respawnX;
inline float& respawnY = current.respawnY;
inline std::uint32_t& respawnAmount = current.respawnAmount;
extern bool timePrint;
/// How far the fade over the finished level is, 0..1; negative while it doesn't show.
float FinishFade();
/// The animation over the finished level, made at the first level's start; null before.
GuiAnimatedButton* FinishAnimation();
/// Loads its pictures, which are as large as the window, in a moment that nobody waits for; false
/// if there is nothing to load. Else they are loaded when it first shows.
bool PrepareFinish();

}  // namespace LevelProgress
