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

void TemperatureTriggerToWater(WaterHit hit, float dt) {
    const float change = dt * changeSpeed;
    if (hit.group) {
        hit.group->temperature += change;
    } else if (hit.particle) {
        float& temperature = hit.particle->temperature;
        temperature = temperature < waterTemperature
                          ? AtMost(temperature + change, waterTemperature)
                          : AtLeast(temperature - change, waterTemperature);
    }
}

void TemperatureTriggerToIce(WaterHit hit, float dt) {
    if (hit) {
        hit.Temperature() = AtLeast(hit.Temperature() - dt * changeSpeed, -changeAmountIce);
    }
}

void TemperatureTriggerToSteam(WaterHit hit, float dt) {
    if (hit) {
        hit.Temperature() += dt * changeSpeed;
    }
    if (hit.particle) {
        hit.particle->temperature = AtMost(hit.particle->temperature, changeAmountSteam);
    }
}
