// Choosing and playing impacts.

#include "audio/Disturbance.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

bool IsPlaying(const std::unique_ptr<Sound>& sound) {
    return sound && sound->IsPlaying();
}

}  // namespace

void Disturbance::ReadNumbers(const ConfigFile& file, std::string_view prefix) {
    const std::string base = std::string(prefix) + "_disturbance_";
    for (std::size_t level = 0; level < levels; ++level) {
        speed[level] = file.GetFloat(base + "level" + std::to_string(level + 1) + "_speed");
    }
    pitchRandomness = file.GetFloat(base + "randomness_pitch");
    volumeRandomness = file.GetFloat(base + "randomness_volume");
}

void Disturbance::CreateSounds(const ConfigFile& file, std::string_view prefix) {
    for (std::size_t level = 0; level < levels; ++level) {
        for (std::size_t variation = 0; variation < variations; ++variation) {
            auto& sound = sounds[level][variation];
            if (!sound) {
                const std::string key = std::string(prefix) + '_' + std::to_string(level + 1) +
                                        '_' + std::to_string(variation + 1);
                sound = std::make_unique<Sound>(file.GetString(key));
            }
        }
    }
}

ImpactChance ImpactChance::Draw(RandomNumbers& random) {
    ImpactChance chance;
    chance.variation = random.Next() & (Disturbance::variations - 1);
    chance.volume = random.Unit();
    chance.pitch = random.Unit();
    return chance;
}

void Disturbance::Step(float drop, float ratio, const ImpactChance& chance) {
    float volume = ratio - chance.volume * volumeRandomness;
    if (volume > 0.0f) {
        volume = std::sqrt(volume);
    }
    const float pitch = (chance.pitch - 0.5f) * pitchRandomness;
    if (!(drop >= speed[0])) {
        return;
    }
    const std::size_t level = drop < speed[1] ? 0 : drop < speed[2] ? 1 : 2;
    auto& chosen = sounds[level];
    if (!chosen[chance.variation] || std::ranges::any_of(chosen, IsPlaying)) {
        return;
    }
    Sound& sound = *chosen[chance.variation];
    sound.SetVolume(volume);
    sound.SetPitch(pitch);
    sound.Rewind();
    sound.Play();
}
