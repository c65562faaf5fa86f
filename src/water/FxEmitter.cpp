// What an emitter reads from its settings, and how it throws a particle.

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/ConfigFile.h"
#include "engine/Random.h"
#include "level/Limits.h"
#include "platform/Assert.h"
#include "water/FxParticleManager.h"

namespace {

constexpr float shortestFrequency = 0.001f;
constexpr float shortestLiveTime = 0.0001f;
constexpr std::size_t textureKeys = 8;

float FiniteOrZero(float value) {
    return std::isfinite(value) ? value : 0.0f;
}

float Mix(float a, float b, float r) {
    return a * r + b * (1.0f - r);
}

Colour Mix(const Colour& a, const Colour& b, float r) {
    return {Mix(a.r, b.r, r), Mix(a.g, b.g, r), Mix(a.b, b.b, r), Mix(a.a, b.a, r)};
}

/// What a key that is there says: 0 if its form is wrong or it is too large for a float.
float Number(const ConfigFile& file, const char* key) {
    return FiniteOrZero(file.GetFloat(key));
}

/// Both values of a range, or neither.
void ReadRange(const ConfigFile& file, const char* key1, const char* key2, float& value1,
               float& value2) {
    if (file.Has(key1) && file.Has(key2)) {
        value1 = Number(file, key1);
        value2 = Number(file, key2);
    }
}

void ReadColours(const ConfigFile& file, Colour& colour1, Colour& colour2) {
    const std::array<const char*, 8> keys = {"color_1_r", "color_1_g", "color_1_b", "color_1_a",
                                             "color_2_r", "color_2_g", "color_2_b", "color_2_a"};
    if (!std::ranges::all_of(keys, [&](const char* key) { return file.Has(key); })) {
        return;
    }
    const auto read = [&](std::size_t first) {
        return Colour{Number(file, keys[first]), Number(file, keys[first + 1]),
                      Number(file, keys[first + 2]), Number(file, keys[first + 3])};
    };
    colour1 = read(0);
    colour2 = read(4);
}

void ReadBool(const ConfigFile& file, const char* key, std::uint8_t& value) {
    if (file.Has(key)) {
        value = file.GetBool(key) ? 1 : 0;
    }
}

std::vector<Texture> ReadTextures(const ConfigFile& file) {
    std::vector<Texture> textures;
    for (std::size_t i = 1; i <= textureKeys; ++i) {
        const std::string key = "texture" + std::to_string(i);
        if (file.Has(key)) {
            textures.emplace_back(file.GetString(key), "DEFAULT_SPRITE");
        }
    }
    return textures;
}

}  // namespace

void Emitter::SetDirection(float x, float y) {
    direction = {FiniteOrZero(x), FiniteOrZero(y)};
    if (direction.x == 0.0f && direction.y == 0.0f) {
        direction.x = Random::Unit() - 0.5f;
        direction.y = Random::Unit() - 0.5f;
    }
    Normalise(direction);
}

void Emitter::LoadSettings(const std::string& fileName) {
    const ConfigFile file(fileName);
    ReadBool(file, "active", running);
    if (file.Has("frequency")) {
        frequency = std::max(Number(file, "frequency"), shortestFrequency);
    }
    if (file.Has("burstSize")) {
        const int size = file.GetInt("burstSize");
        const bool isValid = size >= 0 && static_cast<std::uint32_t>(size) <= Limits::burst;
        burstSize = isValid ? static_cast<std::uint32_t>(size) : Limits::burst;
    }
    if (file.Has("spread")) {
        spread = Number(file, "spread") * degreesToRadians;
    }
    ReadRange(file, "gravity_1", "gravity_2", gravity1, gravity2);
    ReadRange(file, "size_1", "size_2", size1, size2);
    ReadRange(file, "liveTime_1", "liveTime_2", liveTime1, liveTime2);
    liveTime1 = std::max(liveTime1, shortestLiveTime);
    liveTime2 = std::max(liveTime2, shortestLiveTime);
    ReadRange(file, "velocity_1", "velocity_2", velocity1, velocity2);
    ReadBool(file, "useAlphaBlending", useAlphaBlending);
    ReadColours(file, color1, color2);
    textures = TextureSet(ReadTextures(file));
}

void Emitter::EmitOne(EffectsState& effects, RandomNumbers& random) const {
    if (textures.empty() || !effects.HasRoom()) {
        return;
    }
    FxParticle& particle = effects.particles.emplace_back();
    particle.useAlphaBlending = useAlphaBlending;
    particle.position = position;
    Vector2 heading = direction;
    Rotate(heading, random.Unit() * spread - spread * 0.5f);
    particle.color = Mix(color1, color2, random.Unit());
    particle.velocity = heading * Mix(velocity1, velocity2, random.Unit());
    particle.gravity = Mix(gravity1, gravity2, random.Unit());
    particle.size = Mix(size1, size2, random.Unit());
    particle.liveTime = Mix(liveTime1, liveTime2, random.Unit());
    particle.timeLeft = particle.liveTime;
    particle.texture = &textures[random.Next() % textures.size()];
}

void Emitter::Burst(EffectsState& effects, RandomNumbers& random) const {
    VANTREL_ASSERT(burstSize <= Limits::burst);
    for (std::uint32_t i = 0; i < burstSize && effects.HasRoom(); ++i) {
        EmitOne(effects, random);
    }
}

void Emitter::EmitOne() const {
    EmitOne(FxParticleManager::current, Random::current);
}

void Emitter::Burst() const {
    Burst(FxParticleManager::current, Random::current);
}
