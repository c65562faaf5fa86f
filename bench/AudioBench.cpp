// What the water's voice and placed sounds cost per module step, on the real audio with a
// device that renders into memory.

#include <benchmark/benchmark.h>

#include "actors/SoundSourceManager.h"
#include "audio/IceSounds.h"
#include "audio/SteamSounds.h"
#include "audio/WaterSounds.h"
#include "game/Services.h"
#include "platform/DataRoot.h"
#include "platform/OpenAlAudio.h"
#include "support/Places.h"
#include "support/TestWorld.h"

namespace {

constexpr float dt = 1.0f / 60.0f;

/// The game's own sounds and settings, ready to play.
class AudioWorld {
public:
    AudioWorld() {
        Platform::UseDataRoot(SourceDirectory() / "data");
        IceSounds::Initialise();
        WaterSounds::Initialise();
        SteamSounds::Initialise();
        SoundSourceManager::Initialise();
    }
    ~AudioWorld() {
        SoundSourceManager::Shutdown();
        IceSounds::Shutdown();
        WaterSounds::Shutdown();
        SteamSounds::Shutdown();
    }
    AudioWorld(const AudioWorld&) = delete;
    AudioWorld& operator=(const AudioWorld&) = delete;

    /// Mixes what is due, so that sounds come to their ends.
    void Render() { audio.Render(stereo); }

private:
    Platform::OpenAlAudio audio{44100};
    Services services{{.audio = &audio}};
    std::vector<float> stereo = std::vector<float>(2 * 735);
};

/// 128 particles, a third each of water, ice in lumps of two, and steam, that change their
/// speed all the time, so that impacts come with nearly every step.
void WaterVoice(benchmark::State& state) {
    TestWorld world;
    AudioWorld sounds;
    for (int i = 0; i < 86; ++i) {
        TestWorld::AddParticle({}, i % 2 == 0 ? 20.0f : 120.0f);
    }
    for (int i = 0; i < 21; ++i) {
        ParticleGroup& group = GroupedParticleMover::groups.emplace_back();
        group.particles.resize(2);
        group.hitThisStep = 1;
    }
    float speed = 0.0f;
    for (auto _ : state) {
        state.PauseTiming();
        speed = speed > 0.0f ? 0.0f : 60.0f;
        for (Particle& particle : ParticleManager::particles) {
            particle.velocity = {speed, 1.0f};
        }
        for (ParticleGroup& group : GroupedParticleMover::groups) {
            group.velocity = {speed, 1.0f};
        }
        sounds.Render();
        state.ResumeTiming();
        IceSounds::Step(dt, false);
        WaterSounds::Step(dt, false);
        SteamSounds::Step(dt, false);
    }
}
BENCHMARK(WaterVoice);

/// Placed looping sounds, all of them within reach.
void SoundSources(benchmark::State& state) {
    TestWorld world;
    AudioWorld sounds;
    for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(state.range(0)); ++i) {
        SoundSourceManager::Add(
            {static_cast<float>(i), 0.0f, 1000.0f, Sound("snd\\water_ambience.wav"), 1, 1, i});
    }
    SoundSourceManager::StartLooping({});
    Vector2 listener;
    for (auto _ : state) {
        listener.x = listener.x > 100.0f ? 0.0f : listener.x + 1.0f;
        SoundSourceManager::Step(listener, true);
    }
}
BENCHMARK(SoundSources)->Arg(10)->Arg(300);

}  // namespace
