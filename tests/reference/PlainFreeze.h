#pragma once
// Freezing, plainly: a recursion that walks all that is left for each particle taken.

#include <algorithm>
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

/// Moves the particle at `place` to the group's front.
inline Particle& Move(ParticleList& from, std::size_t place, ParticleGroup& group) {
    group.particles.insert(group.particles.begin(), from[place]);
    from.erase(from.begin() + static_cast<std::ptrdiff_t>(place));
    return group.particles.front();
}

/// Takes all of both lists that frost reaches from `centre`.
inline void Grow(Vector2 centre, ParticleGroup& group, ParticleList& frozen, ParticleList& free) {
    std::vector<Vector2> reached;
    for (ParticleList* list : {&frozen, &free}) {
        for (std::size_t i = 0; i < list->size();) {
            if (DistanceSquared((*list)[i].position, centre) <= 12.0f * 12.0f) {
                Particle& taken = Move(*list, i, group);
                GivePlace(taken);
                reached.push_back(taken.position);
            } else {
                ++i;
            }
        }
    }
    for (const Vector2 place : reached) {
        Grow(place, group, frozen, free);
    }
}

inline void Freeze(ParticleList& free, GroupList& groups) {
    ParticleList frozen;
    const auto isFrozen = [](const Particle& particle) { return particle.temperature <= 0.0f; };
    std::ranges::copy_if(free, std::back_inserter(frozen), isFrozen);
    std::erase_if(free, isFrozen);
    while (!frozen.empty()) {
        ParticleGroup& group = *groups.emplace(groups.begin());
        Particle& seed = Move(frozen, 0, group);
        group.radius = 2.0f;
        group.position = seed.position;
        group.velocity = seed.velocity;
        group.pushVelocity = seed.pushVelocity;
        group.temperature = seed.temperature;
        seed.speed = 0.0f;
        GivePlace(seed);
        Grow(group.position, group, frozen, free);
        constexpr float pi = 3.1415927f;
        const auto count = static_cast<float>(group.particles.size());
        group.targetRadius = std::sqrt(count * (2.0f * 2.0f * pi) / pi);
    }
}

}  // namespace Plain
