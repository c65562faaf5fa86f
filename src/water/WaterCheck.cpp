#include "water/WaterCheck.h"

#include <bit>
#include <cstdio>
#include <cstdlib>

#include "water/GroupedParticleMover.h"
#include "water/ParticleGrid.h"
#include "water/ParticleManager.h"
#include "water/WaterStep.h"

namespace WaterCheck {
namespace {

class Fnv1a {
public:
    /// The low `bytes` bytes of `word`, lowest first.
    void Add(std::uint64_t word, int bytes) {
        for (int i = 0; i < bytes; ++i) {
            value = (value ^ (word & 0xFF)) * 0x100000001B3u;
            word >>= 8;
        }
    }
    void Add(float number) { Add(std::bit_cast<std::uint32_t>(number), 4); }
    void Add(Vector2 v) {
        Add(v.x);
        Add(v.y);
    }
    void Add(const Particle& particle) {
        Add(particle.position);
        for (const Vector2 past : particle.positionHistory) {
            Add(past);
        }
        Add(particle.velocity);
        Add(particle.pushVelocity);
        Add(particle.temperature);
        Add(particle.speed);
        Add(particle.dying, 1);
        Add(particle.dying != 0 ? particle.killTimer : 0.0f);
        Add(particle.groupDirection);
        Add(particle.groupScale);
    }
    std::uint64_t Value() const { return value; }

private:
    std::uint64_t value = 0xCBF29CE484222325u;
};

bool IsUnreasonable(const Particle& p) {
    return IsBeyondReason(p.position, p.velocity, p.pushVelocity, p.temperature);
}

}  // namespace

std::uint64_t Hash() {
    Fnv1a hash;
    hash.Add(ParticleManager::particles.size(), 8);
    for (const Particle& particle : ParticleManager::particles) {
        hash.Add(particle);
    }
    hash.Add(GroupedParticleMover::groups.size(), 8);
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        hash.Add(group.radius);
        hash.Add(group.targetRadius);
        hash.Add(group.position);
        hash.Add(group.velocity);
        hash.Add(group.pushVelocity);
        hash.Add(group.hitThisStep, 1);
        hash.Add(group.temperature);
        hash.Add(group.dying, 1);
        hash.Add(group.dying != 0 ? group.killTimer : 0.0f);
        hash.Add(group.particles.size(), 8);
        for (const Particle& particle : group.particles) {
            hash.Add(particle);
        }
    }
    return hash.Value();
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
