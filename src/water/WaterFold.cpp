#include "water/WaterFold.h"

#include <functional>
#include <map>

namespace WaterFold {

namespace {

void Fold(StateFold& fold, const Particle& particle) {
    // The grid is laid anew in each step, but who then lies outside of it keeps its cell, and is
    // pushed by what it meets there.
    const auto& [position, velocity, pushVelocity, temperature, gridX, gridY, inGrid, dying,
                 killTimer, groupDirection, groupScale, speed, history] = particle;
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
             gravity2);
    Fold(fold, color1);
    Fold(fold, color2);
}

/// Numbers the textures of all emitters through, in their order.
class TextureNumbers {
public:
    explicit TextureNumbers(const std::vector<Emitter>& emitters) {
        for (const Emitter& emitter : emitters) {
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

void AddWater(StateFold& fold, const WaterState& water) {
    const auto& [particles, groups, gravity, roomTemperature, heatTransferRate, steamRiseRate,
                 steamScatterRate, particleKillTime] = water;
    fold.Add(gravity, roomTemperature, heatTransferRate, steamRiseRate, steamScatterRate,
             particleKillTime, particles.size());
    for (const Particle& particle : particles) {
        Fold(fold, particle);
    }
    fold.Add(groups.size());
    for (const ParticleGroup& group : groups) {
        Fold(fold, group);
    }
}

void AddEffects(StateFold& fold, const EffectsState& effects) {
    const auto& [emitters, particles, isCrowded] = effects;  // the last is only told
    fold.Add(emitters.size());
    for (const Emitter& emitter : emitters) {
        Fold(fold, emitter);
    }
    const TextureNumbers numbers(emitters);
    fold.Add(particles.size());
    for (const FxParticle& particle : particles) {
        Fold(fold, particle, numbers);
    }
}

}  // namespace WaterFold
