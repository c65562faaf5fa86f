#include "water/WaterCheck.h"

#include <cstdio>
#include <cstdlib>

#include "water/GroupedParticleMover.h"
#include "water/ParticleGrid.h"
#include "water/ParticleManager.h"
#include "water/WaterFold.h"
#include "water/WaterStep.h"

namespace WaterCheck {
namespace {

bool IsUnreasonable(const Particle& p) {
    return IsBeyondReason(p.position, p.velocity, p.pushVelocity, p.temperature);
}

}  // namespace

std::uint64_t Hash() {
    StateFold fold;
    WaterFold::AddWater(fold);
    return fold.Value();
}

const char* ListFault() {
    if (!ParticleGrid::IsConsistent(ParticleManager::particles)) {
        return "the grid's chains don't fit the list of free particles";
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        for (const Particle& particle : group.particles) {
            if (particle.inGrid != 0 || particle.gridNext != nullptr) {
                return "a frozen particle is in the grid";
            }
        }
    }
    return nullptr;
}

const char* ValueFault() {
    for (const Particle& particle : ParticleManager::particles) {
        if (IsUnreasonable(particle)) {
            return "a free particle holds values beyond reason";
        }
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        for (const Particle& particle : group.particles) {
            if (IsUnreasonable(particle)) {
                return "a frozen particle holds values beyond reason";
            }
        }
    }
    return nullptr;
}

void AfterStep() {
#ifdef VANTREL_VALIDATE
    if (const char* const fault = ListFault()) {
        std::fprintf(stderr, "Water: %s\n", fault);
        std::abort();
    }
#endif
}

}  // namespace WaterCheck
