// Level completion, timing and score; see LevelProgress.h.

#include "game/LevelProgress.h"

#include <algorithm>
#include <memory>

#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
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
#include "engine/Timer.h"
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
bool countsSteps = false;
std::unique_ptr<Sound> finishSound;
std::unique_ptr<Sound> deadSound;
std::unique_ptr<GuiAnimatedButton> finishAnimation;

void CreateFinishAnimation(const ConfigFile& file) {
    finishAnimation = std::make_unique<GuiAnimatedButton>();
    const std::string frames = file.GetString("finishAnimationFrames");
    finishAnimation->SetFramesOutOfFocus(frames);
    finishAnimation->SetFramesInFocus(frames);
    finishAnimation->SetFramesClicked(frames);
    finishAnimation->animationSpeed = file.GetFloat("finishAnimationFrameRate");
}

void CreateOnce(std::unique_ptr<Sound>& sound, const std::string& fileName) {
    if (!sound) {
        sound = std::make_unique<Sound>(fileName);
    }
}

void RespawnWater() {
    if (deadSound) {
        deadSound->Rewind();
        deadSound->SetVolume(1.0f);
        deadSound->Play();
    }
    ParticleManager::CreateParticles(respawnX, respawnY, respawnRadius, respawnAmount);
    Camera::SetState(Camera::OpeningFlight);
}

/// The level's sounds end with it; no step comes after this one to let the loops rest.
void SilenceLevel() {
    SoundSourceManager::StopAll();
    IceSounds::Rest();
    WaterSounds::Rest();
    SteamSounds::Rest();
}

void StepTime(float dt) {
    if (!countsSteps) {
        current.stopwatch.Tick();
        return;
    }
    current.stepSeconds += static_cast<double>(dt);
    current.stopwatch.elapsedMs = static_cast<std::uint32_t>(current.stepSeconds * 1000.0);
}

void StepFinishTimer(float dt) {
    if (current.finishTimer > 0.0f) {
        current.finishTimer -= dt;
        if (current.finishTimer <= 0.0f) {
            SilenceLevel();
            MusicPlayer::Stop();
            MenuManager::Show(MenuManager::LevelFinished);
        }
    }
}

void TestFinish() {
    const float share = static_cast<float>(WaterAtFinish()) * finishWaterVolume;
    const auto required = std::max(static_cast<std::int64_t>(share), std::int64_t{1});
    if (current.waterInFinish >= required) {
        current.finishing = true;
        current.finishTimer = finishAnimationTime;
        if (finishSound) {
            finishSound->Rewind();
            finishSound->Play();
        }
    }
    current.waterInFinish = 0;
}

const Console::CommandTable commands{
    {"TimePrint", Console::Variable<timePrint>, "Prints the level's time in each frame."},
};

}  // namespace

void Initialise() {
    current = {};
    respawnX = LevelData::waterStart.x;
    respawnY = LevelData::waterStart.y;
    timePrint = false;

    const ConfigFile file("cfg\\game.cfg");
    finishAnimationTime = std::max(file.GetFloat("finishAnimationTime"), 0.001f);
    current.finishTimer = finishAnimationTime;
    finishWaterVolume = file.GetFloat("finishWaterVolume");
    if (!finishAnimation) {
        CreateFinishAnimation(file);
    }
    CreateOnce(finishSound, file.GetString("finishSound"));
    CreateOnce(deadSound, file.GetString("deadSound"));

    commands.Add();
    current.stopwatch.Reset();
}

void Shutdown() {
    finishAnimation.reset();
    finishSound.reset();
    deadSound.reset();
    commands.Remove();
    current.waterInFinish = 0;
}

void Take(const TriggerEvents& events) {
    current.waterInFinish += events.waterInFinish;
    for (const Trigger* const checkPoint : events.checkPoints) {
        const Vector2 centre = checkPoint->Centre();
        SetRespawn(centre.x, centre.y);
        CheckPointTimesManager::Reached(*checkPoint, ElapsedMs());
    }
}

void Step(float dt) {
    VANTREL_ASSERT(dt > 0.0f);
    if (!current.finishing) {
        StepTime(dt);
    }
    if (ParticleManager::particles.empty() && GroupedParticleMover::groups.empty()) {
        RespawnWater();
    }
    if (current.finishing) {
        StepFinishTimer(dt);
    } else {
        TestFinish();
    }
}

void CountSteps(bool on) {
    if (countsSteps && !on) {
        current.stopwatch.Skip();
    }
    countsSteps = on;
}

void SkipTime() {
    current.stopwatch.Skip();
}

bool IsFinished() {
    return current.finishing && current.finishTimer <= 0.0f;
}

bool IsFinishing() {
    return current.finishing;
}

void SetRespawn(float x, float y) {
    respawnX = x;
    respawnY = y;
    // A delayed check point may find all water lost: nothing would ever come back then.
    if (const std::uint32_t water = WaterAtFinish(); water > 0) {
        respawnAmount = water;
    }
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

GuiAnimatedButton* FinishAnimation() {
    return finishAnimation.get();
}

}  // namespace LevelProgress
