// The effects of the triggers that heat and cool water.

#include <cmath>

#include "engine/ConfigFile.h"
#include "water/ParticleManager.h"

namespace {

/// What `ToWater` brings particles to, degrees.
constexpr float waterTemperature = 50.0f;

float changeSpeed = 0.0f;        // degrees per second
float changeAmountIce = 0.0f;    // `ToIce` cools down to minus this
float changeAmountSteam = 0.0f;  // `ToSteam` heats up to this

/// The temperature of a particle (kind 0) or a group (kind 1), else null.
float* TemperatureOf(void* target, unsigned kind) {
    if (kind == 0) {
        return &static_cast<Particle*>(target)->temperature;
    }
    return kind == 1 ? &static_cast<ParticleGroup*>(target)->temperature : nullptr;
}

float AtMost(float value, float limit) {
    return value > limit ? limit : value;
}

float AtLeast(float value, float limit) {
    return value < limit ? limit : value;
}

}  // namespace

void TemperatureChangeReadConfig() {
    const ConfigFile config("cfg\\water.cfg");
    changeSpeed = std::fabs(config.GetFloat("triggerTemperatureChangeSpeed"));
    changeAmountIce = std::fabs(config.GetFloat("triggerTemperatureChangeAmountIce"));
    changeAmountSteam = std::fabs(config.GetFloat("triggerTemperatureChangeAmountSteam"));
}

void TemperatureTriggerToWater(Trigger& /*trigger*/, void* target, unsigned kind, float dt) {
    float* const temperature = TemperatureOf(target, kind);
    if (temperature == nullptr) {
        return;
    }
    const float change = dt * changeSpeed;
    if (kind == 1) {
        *temperature += change;
    } else if (*temperature < waterTemperature) {
        *temperature = AtMost(*temperature + change, waterTemperature);
    } else {
        *temperature = AtLeast(*temperature - change, waterTemperature);
    }
}

void TemperatureTriggerToIce(Trigger& /*trigger*/, void* target, unsigned kind, float dt) {
    float* const temperature = TemperatureOf(target, kind);
    if (temperature != nullptr) {
        *temperature = AtLeast(*temperature - dt * changeSpeed, -changeAmountIce);
    }
}

void TemperatureTriggerToSteam(Trigger& /*trigger*/, void* target, unsigned kind, float dt) {
    float* const temperature = TemperatureOf(target, kind);
    if (temperature == nullptr) {
        return;
    }
    *temperature += dt * changeSpeed;
    if (kind == 0) {
        *temperature = AtMost(*temperature, changeAmountSteam);
    }
}
