// Level completion, timing and score; see LevelProgress.h.

#include "game/LevelProgress.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "actors/Camera.h"
#include "actors/SoundSourceManager.h"
#include "actors/Trigger.h"
#include "audio/IceSounds.h"
#include "audio/MusicPlayer.h"
#include "audio/Sound.h"
#include "audio/SteamSounds.h"
#include "audio/WaterSounds.h"
#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/FullBody.h"
#include "game/ListenerInPlay.h"
#include "game/World.h"
#include "level/LevelData.h"
#include "menus/GuiAnimatedButton.h"
#include "menus/MenuManager.h"
#include "platform/Assert.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace LevelProgress {

ProgressState current;
bool timePrint = false;

namespace {

constexpr float respawnRadius = 10.0f;

// A level in `bestTime` milliseconds or less is worth the whole range.
constexpr double bestTime = 160000.0;
constexpr double worstTime = 480000.0;
constexpr double timeScoreRange = 435000.0;
constexpr std::uint32_t timeScoreBase = 1000;
constexpr double waterScoreRange = 64000.0;

float finishAnimationTime = 0.001f;  // seconds
float finishWaterVolume = 0.0f;      // share of the water that must stand in the finish
std::unique_ptr<Sound> finishSound;
std::unique_ptr<Sound> deadSound;
std::unique_ptr<GuiAnimatedButton> finishAnimation;
std::optional<std::string> finishFrames;  // its pictures, until they are loaded

void CreateOnce(std::unique_ptr<Sound>& sound, const std::string& fileName) {
    if (!sound) {
        sound = std::make_unique<Sound>(fileName);
    }
}

void RespawnWater(const WorldParts& world) {
    const ProgressState& progress = world.progress;
    ParticleManager::CreateParticles(world.water, world.random,
                                     {progress.respawnX, progress.respawnY}, respawnRadius,
                                     progress.respawnAmount);
    world.camera.state = Camera::OpeningFlight;
}

/// The level's sounds end with it; no step comes after this one to let the loops rest.
void SilenceLevel() {
    SoundSourceManager::StopAll();
    IceSounds::Rest();
    WaterSounds::Rest();
    SteamSounds::Rest();
}

void StepTime(ProgressState& progress, float dt) {
    if (!progress.countsSteps) {
        progress.stopwatch.Tick();
        return;
    }
    progress.stepSeconds += static_cast<double>(dt);
    progress.stopwatch.elapsedMs = static_cast<std::uint32_t>(progress.stepSeconds * 1000.0);
}

/// True when it runs out.
bool StepFinishTimer(ProgressState& progress, float dt) {
    if (!(progress.finishTimer > 0.0f)) {
        return false;
    }
    progress.finishTimer -= dt;
    return progress.finishTimer <= 0.0f;
}

/// True when the finish is reached.
bool TestFinish(ProgressState& progress, std::size_t allWater) {
    const float share = static_cast<float>(allWater) * finishWaterVolume;
    const auto required = std::max(static_cast<std::int64_t>(share), std::int64_t{1});
    const bool isReached = progress.waterInFinish >= required;
    if (isReached) {
        progress.finishing = true;
        progress.finishTimer = finishAnimationTime;
    }
    progress.waterInFinish = 0;
    return isReached;
}

/// Lost water comes back here from now on, as much of it as there is now; if all of it is lost
/// just now, as much as before: nothing would ever come back else after a delayed check point.
void SetRespawn(const WorldParts& world, Vector2 at) {
    world.progress.respawnX = at.x;
    world.progress.respawnY = at.y;
    if (const std::size_t water = world.water.AllWater(); water > 0) {
        world.progress.respawnAmount = static_cast<std::uint32_t>(water);
    }
}

const Console::CommandTable commands{
    {"TimePrint", Console::Variable<timePrint>, "Prints the level's time in each frame."},
};

}  // namespace

void Initialise() {
    const bool countsSteps = current.countsSteps;
    current = {};
    current.countsSteps = countsSteps;
    respawnX = LevelData::waterStart.x;
    respawnY = LevelData::waterStart.y;
    timePrint = false;

    const ConfigFile file("cfg\\game.cfg");
    finishAnimationTime = std::max(file.GetFloat("finishAnimationTime"), 0.001f);
    current.finishTimer = finishAnimationTime;
    finishWaterVolume = file.GetFloat("finishWaterVolume");
    if (!finishAnimation) {
        finishAnimation = std::make_unique<GuiAnimatedButton>();
        finishAnimation->animationSpeed = file.GetFloat("finishAnimationFrameRate");
        finishFrames = file.GetString("finishAnimationFrames");
    }
    CreateOnce(finishSound, file.GetString("finishSound"));
    CreateOnce(deadSound, file.GetString("deadSound"));

    commands.Add();
    current.stopwatch.Reset();
}

void Shutdown() {
    finishAnimation.reset();
    finishFrames.reset();
    finishSound.reset();
    deadSound.reset();
    commands.Remove();
    current.waterInFinish = 0;
}

void Take(const WorldParts& world, const TriggerEvents& events) {
    world.progress.waterInFinish += events.waterInFinish;
    for (const Trigger* const checkPoint : events.checkPoints) {
        SetRespawn(world, checkPoint->Centre());
    }
}

void Take(const TriggerEvents& events) {
    Take(WorldInPlay(), events);
}

void Step(const WorldParts& world, float dt, WorldListener* listener) {
    VANTREL_ASSERT(dt > 0.0f);
    ProgressState& progress = world.progress;
    if (!progress.finishing) {
        StepTime(progress, dt);
    }
    if (world.water.particles.empty() && world.water.groups.empty()) {
        RespawnWater(world);
        if (listener) {
            listener->OnRespawn();
        }
    }
    if (progress.finishing) {
        if (StepFinishTimer(progress, dt) && listener) {
            listener->OnFinished();
        }
    } else if (TestFinish(progress, world.water.AllWater()) && listener) {
        listener->OnFinishReached();
    }
}

void Step(float dt) {
    Step(WorldInPlay(), dt, &ListenerInPlay());
}

void SetRespawn(float x, float y) {
    SetRespawn(WorldInPlay(), {x, y});
}

void PlayRespawnSound() {
    if (deadSound) {
        deadSound->Rewind();
        deadSound->SetVolume(1.0f);
        deadSound->Play();
    }
}

void PlayFinishSound() {
    if (finishSound) {
        finishSound->Rewind();
        finishSound->Play();
    }
}

void ShowEnd() {
    SilenceLevel();
    MusicPlayer::Stop();
    MenuManager::Show(MenuManager::LevelFinished);
}

void CountSteps(bool on) {
    if (current.countsSteps && !on) {
        current.stopwatch.Skip();
    }
    current.countsSteps = on;
}

void SkipTime() {
    current.SkipTime();
}

bool IsFinished() {
    return current.IsFinished();
}

bool IsFinishing() {
    return current.finishing;
}

std::uint32_t WaterAtFinish() {
    return static_cast<std::uint32_t>(ParticleManager::AllWater());
}

std::uint32_t ElapsedMs() {
    return current.stopwatch.elapsedMs;
}

std::uint32_t TimeScore() {
    const double late = (static_cast<double>(ElapsedMs()) - bestTime) / (worstTime - bestTime);
    const double share = 1.0 - std::clamp(late, 0.0, 1.0);
    return static_cast<std::uint32_t>(timeScoreRange * share) + timeScoreBase;
}

std::uint32_t WaterScore() {
    const double share = static_cast<double>(WaterAtFinish()) / static_cast<double>(fullBody);
    return static_cast<std::uint32_t>(waterScoreRange * share);
}

std::uint32_t TotalScore() {
    return TimeScore() + WaterScore();
}

float FinishFade() {
    if (!current.finishing || current.finishTimer <= 0.0f) {
        return -1.0f;
    }
    return 1.0f - current.finishTimer / finishAnimationTime;
}

bool PrepareFinish() {
    if (!finishFrames) {
        return false;
    }
    finishAnimation->SetFramesOutOfFocus(*finishFrames);
    finishAnimation->SetFramesInFocus(*finishFrames);
    finishAnimation->SetFramesClicked(*finishFrames);
    finishFrames.reset();
    return true;
}

GuiAnimatedButton* FinishAnimation() {
    PrepareFinish();
    return finishAnimation.get();
}

}  // namespace LevelProgress
