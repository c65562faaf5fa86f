#pragma once
// What a move led to, read from the world that played it.

#include <cstdint>
#include <vector>

#include "engine/Vector2.h"
#include "game/RunFile.h"
#include "game/World.h"

enum class Matter : std::uint8_t { Water, Steam, Ice };

struct Drop {
    Vector2 place;  ///< of ice: its lump's
    Matter matter = Matter::Water;
};

/// Water that left the space it can reach.
struct Leak {
    std::uint32_t steps = 0;  ///< of the move, when it was seen
    std::uint32_t drops = 0;
    Vector2 from;  ///< where it was shortly before
};

struct Outcome {
    bool lost = false;        ///< too little water was left: played no further
    bool finished = false;    ///< the level is over
    bool cameBack = false;    ///< all water was lost, and new water began at a check point
    bool settled = false;     ///< at rest, or in a motion that didn't end while it was waited for
    std::vector<Drop> drops;  ///< that are alive
    std::uint32_t steam = 0;  ///< of these
    std::uint32_t ice = 0;
    Vector2 centre;  ///< of the drops
    std::uint32_t elapsedMs = 0;
    float angle = 0.0f;
    std::uint64_t switches = 0;                ///< Switches::State
    std::uint64_t fired = 0;                   ///< a hash of which one-time triggers have fired
    std::vector<std::uint32_t> firedTriggers;  ///< the numbers of these
    std::uint64_t movers = 0;                  ///< a hash of where movers stand, in rough steps
    std::uint64_t machines = 0;                ///< Machines::State
    std::vector<RunStep> steps;                ///< of the move
    // Only where leaks are looked for.
    std::uint32_t watchedSteps = 0;  ///< in which water moved
    std::vector<Leak> leaks;

    std::uint32_t Alive() const { return static_cast<std::uint32_t>(drops.size()); }
};

/// Calls `each` with every drop that is alive.
template <class Each>
void ForDrops(const WaterState& water, Each each) {
    for (const Particle& particle : water.particles) {
        if (particle.dying == 0) {
            const bool isSteam = particle.temperature >= boilingPoint;
            each(Drop{particle.position, isSteam ? Matter::Steam : Matter::Water});
        }
    }
    for (const ParticleGroup& group : water.groups) {
        for (std::size_t i = 0; group.dying == 0 && i < group.particles.size(); ++i) {
            each(Drop{group.position, Matter::Ice});
        }
    }
}

/// How many drops are alive.
std::uint32_t CountAlive(const WaterState& water);
/// Fills in all that the world says at the end of a move.
void ReadWorld(const World& world, Outcome& outcome);
