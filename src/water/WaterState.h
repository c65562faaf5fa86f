#pragma once
// All water of a world.

#include <cstddef>

#include "water/Particle.h"

struct WaterState {
    /// The free particles; a particle is in this list or in exactly one group.
    ParticleList particles;
    GroupList groups;

    // From cfg\water.cfg, but the console can change them in play.
    float gravity = 0.0f;           ///< units per second squared
    float roomTemperature = 0.0f;   ///< degrees that all matter drifts to
    float heatTransferRate = 0.0f;  ///< 0..1, share of the gap to it closed per second
    float steamRiseRate = 0.0f;     ///< factor on gravity, upwards
    float steamScatterRate = 0.0f;  ///< factor on gravity, in random directions
    float particleKillTime = 0.0f;  ///< seconds that a killed particle lives on, at least 0.0001

    /// Particles of any state.
    std::size_t AllWater() const;
    /// There are so many bodies that it pays to prepare what each of them looks up.
    bool IsWorthIndexing() const { return particles.size() + groups.size() > 16; }
    /// Starts the last seconds of a particle or a lump; a second call changes nothing.
    void Kill(Particle& particle) const;
    void Kill(ParticleGroup& group) const;
};
