// Driving loops by levels.

#include "audio/LoopLevel.h"

#include <cmath>

#include "platform/Assert.h"

namespace {

constexpr float inaudible = 0.001f;

}  // namespace

void LevelLoop::Create(std::string_view fileName) {
    if (!sound) {
        sound = std::make_unique<Sound>(fileName);
    }
}

void LevelLoop::Drive(float level) {
    if (!sound) {
        return;
    }
    if (!(level >= inaudible)) {
        Rest();
        return;
    }
    sound->SetVolume(level);
    if (!sound->IsPlaying()) {
        sound->PlayLooped();
    }
}

void LevelLoop::Rest() {
    if (sound && sound->IsPlaying()) {
        sound->Stop();
    }
}

float Faded(float value, float rate, float dt) {
    VANTREL_ASSERT(rate >= 0.0f && rate <= 1.0f && dt >= 0.0f);
    return value * std::pow(rate, dt);
}

float Approached(float value, float target, float rate, float dt) {
    VANTREL_ASSERT(rate >= 0.0f && rate <= 1.0f && dt >= 0.0f);
    const float kept = std::pow(rate, dt);
    return value * kept + target * (1.0f - kept);
}

float Spend(float& pending, float rate, float dt) {
    VANTREL_ASSERT(rate >= 0.0f && rate <= 1.0f && dt >= 0.0f);
    const float spent = pending * (1.0f - std::pow(rate, dt));
    pending -= spent;
    return spent;
}
