#include "water/WaterFold.h"

#include <functional>
#include <map>

#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace WaterFold {

namespace {

void Fold(StateFold& fold, const Particle& particle) {
    // The chains are laid anew at the start of each step, but who then lies outside of the grid
    // keeps its cell, and is pushed by what it meets there.
    const auto& [position, history, velocity, pushVelocity, temperature, speed, gridNext,
                 gridPrevious, gridX, gridY, inGrid, dying, killTimer, groupDirection, groupScale] =
        particle;
    fold.Add(position, history[0], history[1], history[2], velocity, pushVelocity, temperature,
             speed, gridX, gridY, dying, killTimer, groupDirection, groupScale);
}

void Fold(StateFold& fold, const ParticleGroup& group) {
    const auto& [members, radius, targetRadius, position, velocity, pushVelocity, hitThisStep,
                 temperature, dying, killTimer] = group;
    fold.Add(radius, targetRadius, position, velocity, pushVelocity, hitThisStep, temperature,
             dying, killTimer, members.size());
    for (const Particle& member : members) {
        Fold(fold, member);
    }
}

void Fold(StateFold& fold, const Colour& colour) {
    const auto& [r, g, b, a] = colour;
    fold.Add(r, g, b, a);
}

void Fold(StateFold& fold, const Emitter& emitter) {
    const auto& [id, position, direction, frequency, timeSinceEmit, spread, burstSize, running,
                 useAlphaBlending, velocity1, velocity2, size1, size2, liveTime1, liveTime2, color1,
                 color2, gravity1, gravity2, textures] = emitter;
    fold.Add(id, position, direction, frequency, timeSinceEmit, spread, burstSize, running,
             useAlphaBlending, velocity1, velocity2, size1, size2, liveTime1, liveTime2, gravity1,
             gravity2, textures.size());
    Fold(fold, color1);
    Fold(fold, color2);
}

/// Numbers the textures of all emitters through, in their order.
class TextureNumbers {
public:
    TextureNumbers() {
        for (const Emitter& emitter : FxParticleManager::emitters) {
            if (!emitter.textures.empty()) {
                blocks[emitter.textures.data()] = count;
                count += emitter.textures.size();
            }
        }
    }
    std::size_t Of(const Texture* texture) const {
        const auto next = blocks.upper_bound(texture);
        if (next == blocks.begin()) {
            return count;
        }
        const auto& [first, number] = *std::prev(next);
        return number + static_cast<std::size_t>(texture - first);
    }

private:
    std::map<const Texture*, std::size_t, std::less<>> blocks;  // an emitter's first texture
    std::size_t count = 0;
};

void Fold(StateFold& fold, const FxParticle& particle, const TextureNumbers& numbers) {
    const auto& [useAlphaBlending, position, velocity, color, size, liveTime, timeLeft, gravity,
                 texture] = particle;
    fold.Add(useAlphaBlending, position, velocity, size, liveTime, timeLeft, gravity,
             numbers.Of(texture));
    Fold(fold, color);
}

}  // namespace

void AddWater(StateFold& fold) {
    using namespace ParticleManager;
    fold.Add(gravity, roomTemperature, heatTransferRate, steamRiseRate, steamScatterRate,
             particleKillTime, particles.size());
    for (const Particle& particle : particles) {
        Fold(fold, particle);
    }
    fold.Add(GroupedParticleMover::groups.size());
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        Fold(fold, group);
    }
}

void AddEffects(StateFold& fold) {
    fold.Add(FxParticleManager::emitters.size());
    for (const Emitter& emitter : FxParticleManager::emitters) {
        Fold(fold, emitter);
    }
    const TextureNumbers numbers;
    fold.Add(FxParticleManager::particles.size());
    for (const FxParticle& particle : FxParticleManager::particles) {
        Fold(fold, particle, numbers);
    }
}

}  // namespace WaterFold
