// Hands the sounds what they need of the game; see GameSounds.h.

#include "game/GameSounds.h"

#include "actors/Camera.h"
#include "actors/SoundSourceManager.h"
#include "audio/IceSounds.h"
#include "audio/SteamSounds.h"
#include "audio/WaterSounds.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "menus/MenuManager.h"

namespace GameSounds {

namespace {

/// No loop may sound while the game is paused or a menu shows.
bool LoopsMustRest() {
    return MenuManager::Current() != MenuManager::None || Game::IsPaused();
}

}  // namespace

void Step(float dt, const ImpactChances& chances) {
    const bool loopsRest = LoopsMustRest();
    StepSources();
    IceSounds::Step(dt, loopsRest, chances.ice);
    WaterSounds::Step(dt, loopsRest, chances.water);
    SteamSounds::Step(dt, loopsRest);
}

void StepSources() {
    const bool mayBeHeard = !LoopsMustRest() && !LevelProgress::IsFinished();
    SoundSourceManager::Step(Camera::position + Camera::shakeOffset, mayBeHeard);
}

}  // namespace GameSounds
