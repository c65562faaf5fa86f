// The voice of ice.

#include "audio/IceSounds.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "audio/Disturbance.h"
#include "audio/LoopLevel.h"
#include "audio/WaterCounts.h"
#include "engine/ConfigFile.h"
#include "water/GroupedParticleMover.h"

namespace IceSounds {

namespace {

float frictionChangeRate = 0.0f;  // share of the old level kept per second
float frictionSpeed = 0.0f;       // level per unit of speed
float freezeEffectSpeed = 0.0f;   // share of what froze still unheard after a second
float freezePerParticle = 0.0f;   // level that each frozen particle adds
float freezeFadeRate = 0.0f;      // share of the level kept per second

std::uint32_t lastCount = 0;
float pendingFreeze = 0.0f;  // frozen particles that weren't heard yet
float freezeVolume = 0.0f;
float frictionVolume = 0.0f;
float lastSpeed = 0.0f;

LevelLoop freeze;
LevelLoop friction;
Disturbance disturbance;

float ReadShare(const ConfigFile& file, const char* key) {
    return std::clamp(file.GetFloat(key), 0.0f, 1.0f);
}

/// How loud all lumps that touch something grind together.
float FrictionTarget() {
    float target = 0.0f;
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        if (group.hitThisStep) {
            const float ratio = BodyRatio(group.particles.size());
            target += Length(group.velocity) * frictionSpeed * std::sqrt(ratio);
        }
    }
    return target;
}

void StepFreeze(std::uint32_t count, float dt) {
    if (count > lastCount) {
        pendingFreeze += static_cast<float>(count - lastCount);
    }
    lastCount = count;
    freezeVolume += Spend(pendingFreeze, freezeEffectSpeed, dt) * freezePerParticle;
    freezeVolume = Faded(freezeVolume, freezeFadeRate, dt);
}

}  // namespace

void Initialise() {
    const ConfigFile file("cfg\\game_sfx.cfg");
    frictionChangeRate = ReadShare(file, "ice_frictionChangeRate");
    frictionSpeed = file.GetFloat("ice_frictionSpeed");
    freezeEffectSpeed = ReadShare(file, "ice_freezeEffectSpeed");
    freezePerParticle = file.GetFloat("ice_freezeVolume");
    freezeFadeRate = ReadShare(file, "ice_freezeVolumeFadeRate");
    disturbance.ReadNumbers(file, "ice");

    lastCount = 0;
    pendingFreeze = 0.0f;
    freezeVolume = 0.0f;
    frictionVolume = 0.0f;
    lastSpeed = 0.0f;

    freeze.Create(file.GetString("iceSound_freeze"));
    friction.Create(file.GetString("iceSound_friction"));
    disturbance.CreateSounds(file, "iceSound_disturbance_Level");
}

void Shutdown() {
    freeze.Destroy();
    friction.Destroy();
    disturbance.DestroySounds();
}

void Step(float dt, bool loopsRest, const ImpactChance& chance) {
    const MovingBody ice = Ice();
    const float drop = lastSpeed - ice.meanSpeed;
    lastSpeed = ice.meanSpeed;
    StepFreeze(ice.count, dt);
    disturbance.Step(drop, ice.ratio, chance);
    frictionVolume = Approached(frictionVolume, FrictionTarget(), frictionChangeRate, dt);
    if (loopsRest) {
        Rest();
    } else {
        freeze.Drive(freezeVolume);
        friction.Drive(frictionVolume);
    }
}

void Step(float dt, bool loopsRest) {
    Step(dt, loopsRest, ImpactChance::Draw(Random::current));
}

void Rest() {
    freeze.Rest();
    friction.Rest();
}

}  // namespace IceSounds
