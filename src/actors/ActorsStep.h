#pragma once
// What a step of a world's actors works on and with.

#include <cstdint>
#include <vector>

#include "actors/ActorsState.h"
#include "actors/Camera.h"
#include "actors/TriggerEvents.h"
#include "level/BoxCells.h"
#include "level/CellBits.h"
#include "water/FxParticleManager.h"
#include "water/WaterStep.h"

struct Trigger;

/// A trigger that is tested in a step.
struct TriggerCandidate {
    const Trigger* trigger;
    // Its delayed firings in this step: how many, and when the first and the last came.
    std::uint32_t firings = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};

/// What steps need besides the world, kept from one to the next so that they allocate nothing.
/// Holds nothing of a world between steps. Each thread that steps worlds has its own.
struct ActorsWorkspace {
    std::vector<TriggerCandidate> candidates;
    BoxCells candidateBoxes;                    ///< outside of which they contain nothing
    std::vector<DelayedEffects::Firing> fired;  ///< with a delay, in this step
    std::vector<DelayedEffects::Due> due;       ///< in this step
    TriggerEvents events;                       ///< of the last step

    // Water that no moving polygon has caught yet, in list order, and the load of the one at work.
    std::vector<Particle*> freeParticles;
    CellBits freeMap;  ///< of those particles, and of some that were caught since
    std::vector<ParticleGroup*> freeGroups;
    std::vector<Particle*> carriedParticles;
    std::vector<ParticleGroup*> carriedGroups;
};

/// A world without its progress.
struct ActorsParts : WaterParts {
    EffectsState& effects;
    ActorsState& actors;
    CameraState& camera;
    ActorsWorkspace& actorsWork;
};

namespace Actors {

/// The world in play with what its steps need.
ActorsParts Parts();

}  // namespace Actors
