#pragma once
// What of the water something acts on: a free particle or a lump of ice.

#include "platform/Assert.h"
#include "water/Particle.h"

/// At most one is set; neither when nothing of the water is meant.
struct WaterHit {
    Particle* particle = nullptr;
    ParticleGroup* group = nullptr;

    explicit operator bool() const { return particle != nullptr || group != nullptr; }
    // For what is set.
    Vector2 Position() const { return Check().particle ? particle->position : group->position; }
    Vector2& Velocity() const { return Check().particle ? particle->velocity : group->velocity; }
    float& Temperature() const {
        return Check().particle ? particle->temperature : group->temperature;
    }

private:
    const WaterHit& Check() const {
        VANTREL_ASSERT((particle != nullptr) != (group != nullptr));
        return *this;
    }
};
