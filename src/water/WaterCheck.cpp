#include "water/WaterCheck.h"

#include <cstdio>
#include <cstdlib>

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
    WaterFold::AddWater(fold, ParticleManager::current);
    return fold.Value();
}

const char* ValueFault() {
    for (const Particle& particle : ParticleManager::particles) {
        if (IsUnreasonable(particle)) {
            return "a free particle holds values beyond reason";
        }
    }
    for (const ParticleGroup& group : ParticleManager::current.groups) {
        for (const Particle& particle : group.particles) {
            if (IsUnreasonable(particle)) {
                return "a frozen particle holds values beyond reason";
            }
        }
    }
    return nullptr;
}

void AfterMoves([[maybe_unused]] const ParticleGrid& grid,
                [[maybe_unused]] std::span<const Particle> particles) {
#ifdef VANTREL_VALIDATE
    if (!grid.IsConsistent(particles)) {
        std::fputs("Water: the grid's cells don't fit the list of particles\n", stderr);
        std::abort();
    }
#endif
}

}  // namespace WaterCheck
