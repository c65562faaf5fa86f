#include "water/GroupMembers.h"

#include <cmath>

#include "engine/Random.h"

void GivePlace(Particle& member) {
    const float x = Random::Unit() - 0.5f;
    const float y = Random::Unit() - 0.5f;
    member.groupDirection = {x, y};
    Normalise(member.groupDirection);
    member.groupScale = Random::Unit();
}

float TargetRadius(std::size_t memberCount) {
    constexpr float pi = 3.1415927f;
    constexpr float memberArea = Particle::radius * Particle::radius * pi;
    return std::sqrt(static_cast<float>(memberCount) * memberArea / pi);
}

void ReleaseMembers(ParticleGroup& group, ParticleList& particles) {
    while (!group.particles.empty()) {
        Particle& member = group.particles.front();
        member.velocity = group.velocity;
        member.pushVelocity = {};
        member.temperature = group.temperature;
        member.speed = Length(member.velocity);
        for (Vector2& past : member.positionHistory) {
            past = member.position;
        }
        member.inGrid = 0;
        member.gridX = 0;
        member.gridY = 0;
        member.gridNext = nullptr;
        member.gridPrevious = nullptr;
        particles.splice(particles.begin(), group.particles, group.particles.begin());
    }
}
