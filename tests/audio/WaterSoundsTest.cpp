// The water's voice against counts and speeds.

#include "RenderedAudio.h"
#include "audio/IceSounds.h"
#include "audio/SteamSounds.h"
#include "audio/WaterSounds.h"
#include "engine/Random.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace {

using namespace Signal;

constexpr float dt = 0.02f;
constexpr double tone = 0.25;

class WaterVoiceTest : public RenderedAudio {
protected:
    WaterVoiceTest() {
        Write("snd/ambient.wav", SineWav(300.0, 1.0, tone));
        Write("snd/loop.wav", SineWav(500.0, 1.0, tone));
        Write("snd/soft.wav", SineWav(1000.0, 0.5, tone));
        Write("snd/mid.wav", SineWav(2000.0, 0.5, tone));
        Write("snd/hard.wav", SineWav(4000.0, 0.5, tone));
        Configure("waterSound_ambient_volume 0\n");
        ParticleManager::ClearAll();
        Random::state = 0;
    }
    ~WaterVoiceTest() override {
        ParticleManager::ClearAll();
        IceSounds::Shutdown();
        WaterSounds::Shutdown();
        SteamSounds::Shutdown();
    }

    void Configure(const std::string& numbers) {
        std::string text = numbers +
                           "waterSound_ambient snd\\ambient.wav\n"
                           "iceSound_freeze snd\\ambient.wav iceSound_friction snd\\loop.wav\n"
                           "steamEvaporate snd\\ambient.wav steamAmbient snd\\loop.wav\n"
                           "water_disturbance_level1_speed -10\n"
                           "water_disturbance_level2_speed 30 water_disturbance_level3_speed 80\n"
                           "ice_disturbance_level1_speed 10\n"
                           "ice_disturbance_level2_speed 30 ice_disturbance_level3_speed 80\n";
        const char* const names[] = {"soft", "mid", "hard"};
        for (int level = 0; level < 3; ++level) {
            for (int variation = 1; variation <= 4; ++variation) {
                const std::string key = std::to_string(level + 1) + "_" + std::to_string(variation);
                const std::string file = std::string(" snd\\") + names[level] + ".wav\n";
                text += "waterSound_disturbance_level_" + key + file;
                text += "iceSound_disturbance_Level_" + key + file;
            }
        }
        Write("cfg/game_sfx.cfg", text);
        IceSounds::Initialise();
        WaterSounds::Initialise();
        SteamSounds::Initialise();
    }
    static void SetWater(int count, float speed, float temperature = 20.0f) {
        ParticleManager::particles.clear();
        for (int i = 0; i < count; ++i) {
            Particle& particle = ParticleManager::particles.emplace_back();
            particle.velocity = {speed, 0.0f};
            particle.temperature = temperature;
        }
    }
    static void SetIce(int count, float speed, bool touching) {
        GroupedParticleMover::groups.clear();
        ParticleGroup& group = GroupedParticleMover::groups.emplace_back();
        group.particles.resize(static_cast<std::size_t>(count));
        group.velocity = {0.0f, speed};
        group.hitThisStep = touching ? 1 : 0;
    }
    /// Steps for that long; loudness against a sample at full volume, over the last half.
    double Run(void (*step)(float, bool), double seconds) {
        std::vector<float> half;
        const int steps = static_cast<int>(std::lround(seconds / static_cast<double>(dt)));
        for (int i = 0; i < steps; ++i) {
            step(dt, loopsRest);
            const auto part = Render(static_cast<double>(dt));
            if (i >= steps / 2) {
                half.insert(half.end(), part.begin(), part.end());
            }
        }
        return Loudness(half) / (tone / std::numbers::sqrt2);
    }
    bool loopsRest = false;
    /// Loudness of a sound at that volume.
    static double At(double volume) { return std::pow(10.0, -5.0 * (1.0 - std::pow(volume, 0.2))); }
};

}  // namespace

TEST_F(WaterVoiceTest, MurmursWithTheAmountOfWater) {
    Configure("waterSound_ambient_volume -0.8\n");
    SetWater(128, 0.0f);
    EXPECT_NEAR(Run(WaterSounds::Step, 0.5), At(0.8), 0.01);
    SetWater(32, 0.0f);
    EXPECT_NEAR(Run(WaterSounds::Step, 0.5), At(0.4), 0.01);
    loopsRest = true;
    EXPECT_LT(Run(WaterSounds::Step, 0.5), 1e-5);
    loopsRest = false;
    EXPECT_NEAR(Run(WaterSounds::Step, 0.5), At(0.4), 0.01);
    // Neither ice nor steam counts as water.
    SetWater(128, 0.0f, 100.0f);
    EXPECT_LT(Run(WaterSounds::Step, 0.5), 1e-5);
}

TEST_F(WaterVoiceTest, SplashesByTheDropOfItsSpeed) {
    const auto splash = [&](float from, float to) {
        SetWater(128, from);
        WaterSounds::Step(dt, false);
        Render(1.0);
        SetWater(128, to);
        WaterSounds::Step(dt, false);
        return Render(0.3);
    };
    EXPECT_LT(Loudness(splash(100.0f, 91.0f)), 1e-6);
    EXPECT_LT(Loudness(splash(0.0f, 500.0f)), 1e-6) << "getting faster is silent";
    EXPECT_NEAR(Pitch(splash(100.0f, 89.0f)), 1000.0, 2.0);
    EXPECT_NEAR(Pitch(splash(100.0f, 69.0f)), 2000.0, 4.0);
    EXPECT_NEAR(Pitch(splash(100.0f, 0.0f)), 4000.0, 8.0);
    EXPECT_NEAR(Loudness(splash(100.0f, 0.0f)), tone / std::numbers::sqrt2, 0.01);
    Render(1.0);
    SetWater(32, 100.0f);
    WaterSounds::Step(dt, false);
    SetWater(32, 0.0f);
    WaterSounds::Step(dt, false);
    EXPECT_NEAR(LoudnessOf(0.3), At(0.5) * tone / std::numbers::sqrt2, 0.01);
    // One of a level at a time: a second drop of that level is lost.
    Render(0.1);
    SetWater(128, 100.0f);
    WaterSounds::Step(dt, false);
    SetWater(128, 0.0f);
    WaterSounds::Step(dt, false);
    Render(0.3);
    EXPECT_LT(LoudnessOf(0.2), 1e-6);
}

TEST_F(WaterVoiceTest, GrindsWhileIceSlidesAndFadesAfterwards) {
    Configure("ice_frictionChangeRate 0.0001 ice_frictionSpeed 0.01\n");
    SetIce(32, 100.0f, true);
    EXPECT_NEAR(Run(IceSounds::Step, 3.0), At(0.5), 0.01);
    SetIce(32, 100.0f, false);
    EXPECT_LT(Run(IceSounds::Step, 3.0), 0.01);
}

TEST_F(WaterVoiceTest, CracklesOnlyWhileWaterFreezes) {
    Configure("ice_freezeEffectSpeed 0.001 ice_freezeVolume 0.05 ice_freezeVolumeFadeRate 0.25\n");
    SetIce(20, 0.0f, false);
    EXPECT_GT(Run(IceSounds::Step, 1.0), 0.02);
    EXPECT_LT(Run(IceSounds::Step, 10.0), 1e-3);
    SetIce(10, 0.0f, false);
    EXPECT_LT(Run(IceSounds::Step, 1.0), 1e-3) << "thawing is silent";
}

TEST_F(WaterVoiceTest, HissesForNewSteamAndHumsForWhatThereIs) {
    SetWater(10, 0.0f, 100.0f);
    // 10 x 0.02 of ambience stays; the hiss of the boiling has gone by then.
    EXPECT_NEAR(Run(SteamSounds::Step, 20.0), At(0.2), 0.005);
    SetWater(20, 0.0f, 100.0f);
    EXPECT_GT(Run(SteamSounds::Step, 0.5), At(0.35));
    SteamSounds::Initialise();
    SetWater(0, 0.0f);
    EXPECT_LT(Run(SteamSounds::Step, 0.4), 1e-5) << "a restart forgets";
}
