// An hour of play among many placed sounds: nothing may grow.

#include <unistd.h>

#include <fstream>

#include "RenderedAudio.h"
#include "actors/SoundSourceManager.h"

namespace {

/// Memory that the process holds, bytes.
std::size_t ResidentBytes() {
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

// How much it may grow by chance. Address sanitizers keep freed memory for a while.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t slack = 64u << 20;
#elif defined(__has_feature)
constexpr std::size_t slack = (__has_feature(address_sanitizer) ? 65536u : 512u) << 10;
#else
constexpr std::size_t slack = 512u << 10;
#endif

class HourTest : public RenderedAudio {
protected:
    // A coarse device: what is heard doesn't matter here, only that all of it is mixed.
    HourTest() : RenderedAudio(8000) {}
};

}  // namespace

TEST_F(HourTest, KeepsVoicesAndMemoryFlat) {
    Write("snd/a.wav", Signal::SineWav(200.0, 0.5, 0.1, 8000));
    Write("snd/b.wav", Signal::SineWav(300.0, 0.7, 0.1, 8000));
    SoundSourceManager::Initialise();
    for (std::uint32_t i = 0; i < 300; ++i) {
        const auto x = static_cast<float>(i) * 50.0f;
        const auto looping = static_cast<std::uint8_t>(i % 10 != 0);
        const Sound sound(i % 2 == 0 ? "snd\\a.wav" : "snd\\b.wav");
        SoundSourceManager::Add({x, 0.0f, 1500.0f, sound, looping, 1, i});
    }
    SoundSourceManager::StartLooping({});

    constexpr int stepsPerSecond = 10;
    std::vector<float> stereo(2 * 8000 / stepsPerSecond);
    const auto playMinutes = [&](int minutes) {
        for (int i = 0; i < minutes * 60 * stepsPerSecond; ++i) {
            // To and fro through the level, once in two minutes, with sounds set off all over.
            const float phase = static_cast<float>(i % 1200) / 600.0f;
            const Vector2 listener{15000.0f * (phase < 1.0f ? phase : 2.0f - phase), 0.0f};
            SoundSourceManager::Play(static_cast<std::uint32_t>(i * 10 % 300));
            SoundSourceManager::Step(listener, true);
            audio.Render(stereo);
        }
    };
    playMinutes(4);
    const std::size_t sources = audio.SourceCount();
    const std::size_t bytes = ResidentBytes();
    playMinutes(56);
    EXPECT_EQ(audio.SourceCount(), sources);
    EXPECT_LE(ResidentBytes(), bytes + slack);
    std::printf("%zu sources, %zu KB at first, %zu KB after an hour\n", sources, bytes >> 10,
                ResidentBytes() >> 10);
    SoundSourceManager::Shutdown();
}
