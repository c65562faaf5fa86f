// The voice of liquid water.

#include "audio/WaterSounds.h"

#include <cmath>

#include "audio/Disturbance.h"
#include "audio/LoopLevel.h"
#include "audio/WaterCounts.h"
#include "engine/ConfigFile.h"

namespace WaterSounds {

namespace {

float lastSpeed = 0.0f;
float ambientVolume = 0.0f;  // level at a full body of water
LevelLoop ambient;
Disturbance disturbance;

}  // namespace

void Initialise() {
    const ConfigFile file("cfg\\game_sfx.cfg");
    lastSpeed = 0.0f;
    ambientVolume = std::fabs(file.GetFloat("waterSound_ambient_volume"));
    disturbance.ReadNumbers(file, "water");
    for (float& speed : disturbance.speed) {
        speed = std::fabs(speed);
    }
    disturbance.pitchRandomness = std::fabs(disturbance.pitchRandomness);
    disturbance.volumeRandomness = std::fabs(disturbance.volumeRandomness);
    ambient.Create(file.GetString("waterSound_ambient"));
    disturbance.CreateSounds(file, "waterSound_disturbance_level");
}

void Shutdown() {
    ambient.Destroy();
    disturbance.DestroySounds();
}

void Step(float /*dt*/, bool loopsRest, const ImpactChance& chance) {
    const MovingBody water = LiquidWater();
    const float drop = lastSpeed - water.meanSpeed;
    lastSpeed = water.meanSpeed;
    if (loopsRest) {
        Rest();
    } else {
        ambient.Drive(std::sqrt(water.ratio) * ambientVolume);
    }
    disturbance.Step(drop, water.ratio, chance);
}

void Step(float dt, bool loopsRest) {
    Step(dt, loopsRest, ImpactChance::Draw(Random::current));
}

void Rest() {
    ambient.Rest();
}

}  // namespace WaterSounds
