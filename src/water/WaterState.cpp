#include "water/WaterState.h"

namespace {

template <class Body>
void StartDying(Body& body, float killTime) {
    if (body.dying == 0) {
        body.dying = 1;
        body.killTimer = killTime;
    }
}

}  // namespace

std::size_t WaterState::AllWater() const {
    std::size_t count = particles.size();
    for (const ParticleGroup& group : groups) {
        count += group.particles.size();
    }
    return count;
}

void WaterState::Kill(Particle& particle) const {
    StartDying(particle, particleKillTime);
}

void WaterState::Kill(ParticleGroup& group) const {
    StartDying(group, particleKillTime);
}
