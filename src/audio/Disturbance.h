#pragma once
// Impacts: a body of water or ice that suddenly slows makes one of twelve sounds, by how much
// it slowed (three levels) and by chance (four variations).

#include <array>
#include <memory>
#include <string_view>

#include "audio/Sound.h"
#include "engine/ConfigFile.h"
#include "engine/Random.h"

/// What chance has to say about one step's impact. It is drawn in each step, whether or not a sound
/// follows, since all of a world draws from one source.
struct ImpactChance {
    std::size_t variation = 0;
    float volume = 0.0f;  ///< 0..1
    float pitch = 0.0f;   ///< 0..1

    static ImpactChance Draw(RandomNumbers& random);
};

class Disturbance {
public:
    static constexpr std::size_t levels = 3;
    static constexpr std::size_t variations = 4;

    /// The lowest drop of speed for each level, units per second.
    std::array<float, levels> speed{};
    float pitchRandomness = 0.0f;
    float volumeRandomness = 0.0f;

    /// Reads "<prefix>_disturbance_...": speeds and randomness.
    void ReadNumbers(const ConfigFile& file, std::string_view prefix);
    /// Makes the sounds of the keys "<prefix>_<level>_<variation>", once.
    void CreateSounds(const ConfigFile& file, std::string_view prefix);
    void DestroySounds() { sounds = {}; }

    /// Once per step: `drop` is how much slower the body is now than before, units per second;
    /// `ratio` its size against a full body of water.
    void Step(float drop, float ratio, const ImpactChance& chance);

private:
    std::array<std::array<std::unique_ptr<Sound>, variations>, levels> sounds;
};
