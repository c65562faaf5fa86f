#include "water/GroupMembers.h"

#include <algorithm>
#include <cmath>

void GivePlace(Particle& member, RandomNumbers& random) {
    const float x = random.Unit() - 0.5f;
    const float y = random.Unit() - 0.5f;
    member.groupDirection = {x, y};
    Normalise(member.groupDirection);
    member.groupScale = random.Unit();
}

float TargetRadius(std::size_t memberCount) {
    constexpr float pi = 3.1415927f;
    constexpr float memberArea = Particle::radius * Particle::radius * pi;
    return std::sqrt(static_cast<float>(memberCount) * memberArea / pi);
}

void ReleaseMembers(ParticleGroup& group, ParticleList& particles) {
    for (Particle& member : group.particles) {
        member.velocity = group.velocity;
        member.pushVelocity = {};
        member.temperature = group.temperature;
        member.speed = Length(member.velocity);
        std::ranges::fill(member.positionHistory, member.position);
        member.inGrid = 0;
        member.gridX = 0;
        member.gridY = 0;
    }
    // One after the other to the front.
    particles.insert(particles.begin(), group.particles.rbegin(), group.particles.rend());
    group.particles.clear();
}

void EraseAt(ParticleList& particles, std::span<const std::uint32_t> places) {
    if (places.empty()) {
        return;
    }
    std::size_t kept = places.front();
    auto next = places.begin();
    for (std::size_t i = kept; i < particles.size(); ++i) {
        if (next != places.end() && *next == i) {
            ++next;
        } else {
            particles[kept++] = particles[i];
        }
    }
    particles.resize(kept);
}
