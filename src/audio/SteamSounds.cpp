// The voice of steam.

#include "audio/SteamSounds.h"

#include <cstdint>

#include "audio/LoopLevel.h"
#include "audio/WaterCounts.h"
#include "engine/ConfigFile.h"

namespace SteamSounds {

namespace {

constexpr float evaporateEffectSpeed = 0.001f;  // share of new steam unheard after a second
constexpr float evaporatePerParticle = 0.05f;   // level that each new particle adds
constexpr float evaporateFadeRate = 0.25f;      // share of the level kept per second
constexpr float ambientPerParticle = 0.02f;
constexpr float ambientChangeRate = 0.05f;  // share of the old level kept per second

std::uint32_t lastCount = 0;
float pendingEvaporate = 0.0f;  // new steam that wasn't heard yet, particles
float evaporateVolume = 0.0f;
float ambientVolume = 0.0f;

LevelLoop evaporate;
LevelLoop ambient;

}  // namespace

void Initialise() {
    const ConfigFile file("cfg\\game_sfx.cfg");
    lastCount = 0;
    pendingEvaporate = 0.0f;
    evaporateVolume = 0.0f;
    ambientVolume = 0.0f;
    evaporate.Create(file.GetString("steamEvaporate"));
    ambient.Create(file.GetString("steamAmbient"));
}

void Shutdown() {
    evaporate.Destroy();
    ambient.Destroy();
}

void Step(float dt, bool loopsRest) {
    const std::uint32_t count = SteamCount();
    if (count > lastCount) {
        pendingEvaporate += static_cast<float>(count - lastCount);
    }
    lastCount = count;
    evaporateVolume += Spend(pendingEvaporate, evaporateEffectSpeed, dt) * evaporatePerParticle;
    evaporateVolume = Faded(evaporateVolume, evaporateFadeRate, dt);
    ambientVolume = Approached(ambientVolume, static_cast<float>(count) * ambientPerParticle,
                               ambientChangeRate, dt);
    if (loopsRest) {
        Rest();
    } else {
        evaporate.Drive(evaporateVolume);
        ambient.Drive(ambientVolume);
    }
}

void Rest() {
    evaporate.Rest();
    ambient.Rest();
}

}  // namespace SteamSounds
