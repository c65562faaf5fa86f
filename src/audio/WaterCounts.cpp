// Counting the water.

#include "audio/WaterCounts.h"

#include "engine/FullBody.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace {

MovingBody BodyOf(std::uint32_t count, float speedSum) {
    return {count, BodyRatio(count), count > 0 ? speedSum / static_cast<float>(count) : 0.0f};
}

}  // namespace

float BodyRatio(std::size_t count) {
    return static_cast<float>(count) / static_cast<float>(fullBody);
}

MovingBody LiquidWater() {
    std::uint32_t count = 0;
    float speedSum = 0.0f;
    for (const Particle& particle : ParticleManager::particles) {
        if (particle.temperature > freezingPoint && particle.temperature < boilingPoint) {
            ++count;
            speedSum += Length(particle.velocity);
        }
    }
    return BodyOf(count, speedSum);
}

MovingBody Ice() {
    std::uint32_t count = 0;
    float speedSum = 0.0f;
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        const auto size = static_cast<std::uint32_t>(group.particles.size());
        count += size;
        speedSum += Length(group.velocity) * static_cast<float>(size);
    }
    return BodyOf(count, speedSum);
}

std::uint32_t SteamCount() {
    std::uint32_t count = 0;
    for (const Particle& particle : ParticleManager::particles) {
        count += particle.temperature >= boilingPoint ? 1u : 0u;
    }
    return count;
}
