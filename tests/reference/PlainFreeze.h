#pragma once
// Freezing, plainly: a recursion that walks all that is left for each particle taken.

#include <cmath>
#include <iterator>
#include <vector>

#include "engine/Random.h"
#include "water/Particle.h"

namespace Plain {

inline void GivePlace(Particle& particle) {
    particle.groupDirection.x = Random::Unit() - 0.5f;
    particle.groupDirection.y = Random::Unit() - 0.5f;
    Normalise(particle.groupDirection);
    particle.groupScale = Random::Unit();
}

/// Takes all of both lists that frost reaches from `from`.
inline void Grow(const Particle& from, ParticleGroup& group, ParticleList& frozen,
                 ParticleList& free) {
    std::vector<Particle*> reached;
    for (ParticleList* list : {&frozen, &free}) {
        for (auto it = list->begin(); it != list->end();) {
            const auto particle = it++;
            if (DistanceSquared(particle->position, from.position) <= 12.0f * 12.0f) {
                group.particles.splice(group.particles.begin(), *list, particle);
                GivePlace(*particle);
                reached.push_back(&*particle);
            }
        }
    }
    for (const Particle* particle : reached) {
        Grow(*particle, group, frozen, free);
    }
}

inline void Freeze(ParticleList& free, GroupList& groups) {
    ParticleList frozen;
    for (auto it = free.begin(); it != free.end();) {
        const auto particle = it++;
        if (particle->temperature <= 0.0f) {
            frozen.splice(frozen.end(), free, particle);
        }
    }
    while (!frozen.empty()) {
        ParticleGroup& group = groups.emplace_front();
        group.particles.splice(group.particles.begin(), frozen, frozen.begin());
        Particle& seed = group.particles.front();
        group.radius = 2.0f;
        group.position = seed.position;
        group.velocity = seed.velocity;
        group.pushVelocity = seed.pushVelocity;
        group.temperature = seed.temperature;
        seed.speed = 0.0f;
        GivePlace(seed);
        Grow(seed, group, frozen, free);
        constexpr float pi = 3.1415927f;
        const auto count = static_cast<float>(group.particles.size());
        group.targetRadius = std::sqrt(count * (2.0f * 2.0f * pi) / pi);
    }
}

}  // namespace Plain
