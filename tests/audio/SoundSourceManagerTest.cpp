// Placed sounds as they are heard.

#include "actors/SoundSourceManager.h"

#include "RenderedAudio.h"
#include "actors/TriggerEffects.h"
#include "actors/TriggerManager.h"
#include "game/LevelLife.h"
#include "level/LevelData.h"
#include "support/TestLevelFile.h"

namespace {

using namespace Signal;

class SoundSourceTest : public RenderedAudio {
protected:
    SoundSourceTest() {
        Write("snd/tone.wav", SineWav(441.0, 1.0, 0.25));
        SoundSourceManager::Initialise();
    }
    ~SoundSourceTest() override { SoundSourceManager::Shutdown(); }
    static void Add(float x, float strength, bool looping, std::uint32_t id = 1) {
        SoundSourceManager::Add(
            {x, 0.0f, strength, Sound("snd\\tone.wav"), static_cast<std::uint8_t>(looping), 1, id});
    }
    /// Loudness against one sound at full volume, after a step.
    double Level() {
        SoundSourceManager::Step(listener, mayBeHeard);
        Render(0.05);
        return LoudnessOf(0.3) / (0.25 / std::numbers::sqrt2);
    }
    static double At(float volume) { return std::pow(10.0, -5.0 * (1.0 - std::pow(volume, 0.2))); }

    Vector2 listener;
    bool mayBeHeard = true;
};

}  // namespace

TEST_F(SoundSourceTest, GrowsLouderAsTheCameraNears) {
    Add(100.0f, 200.0f, true);
    SoundSourceManager::StartLooping({});
    EXPECT_NEAR(Level(), At(0.5f), 0.005);
    listener.x = 100.0f;
    EXPECT_NEAR(Level(), 1.0, 0.02);
    listener.x = -100.0f;
    EXPECT_LT(Level(), 1e-5);
    EXPECT_FALSE(SoundSourceManager::loopingSources[1].front().sound.IsPlaying());
    listener.x = 10.0f;
    EXPECT_NEAR(Level(), At(0.55f), 0.005);
}

TEST_F(SoundSourceTest, HasNoReachWithoutStrength) {
    Add(0.0f, 0.0f, true);
    SoundSourceManager::StartLooping({});
    EXPECT_LT(Level(), 1e-5);
    listener.x = 1.0f;
    EXPECT_LT(Level(), 1e-5);
}

TEST_F(SoundSourceTest, KeepsCopiesInPhase) {
    Add(0.0f, 100.0f, true, 1);
    SoundSourceManager::StartLooping({});
    Level();
    Render(0.1234);
    Add(0.0f, 100.0f, true, 2);
    SoundSourceManager::Play(2);
    SoundSourceManager::Stop(2);
    Render(0.0321);
    SoundSourceManager::loopingSources[2].front().stopped = 0;
    EXPECT_NEAR(Level(), 2.0, 0.03);
}

TEST_F(SoundSourceTest, PauseSilencesLoopsAndBringsThemBack) {
    Add(0.0f, 100.0f, true);
    Add(0.0f, 100.0f, false, 2);
    SoundSourceManager::StartLooping({});
    EXPECT_NEAR(Level(), 1.0, 0.02);
    mayBeHeard = false;
    EXPECT_LT(Level(), 1e-5);
    mayBeHeard = true;
    EXPECT_NEAR(Level(), 1.0, 0.02);
    SoundSourceManager::StopAll();
    Render(0.05);
    EXPECT_LT(LoudnessOf(0.2), 1e-5);
    EXPECT_NEAR(Level(), 1.0, 0.02);
}

TEST_F(SoundSourceTest, WaitsForItsTriggerAndObeysIt) {
    Add(0.0f, 100.0f, true, 7);
    Add(5000.0f, 100.0f, false, 7);
    SoundSourceManager::StartLooping({3, 7});
    EXPECT_LT(Level(), 1e-5);
    SoundSourceManager::Play(7);
    Render(0.05);
    // The far one plays once, at full volume wherever it is.
    EXPECT_NEAR(Level(), 2.0, 0.05);
    Render(1.0);
    EXPECT_NEAR(Level(), 1.0, 0.02);
    SoundSourceManager::Stop(7);
    EXPECT_LT(Level(), 1e-5);
    SoundSourceManager::Play(7);
    SoundSourceManager::Reset();
    EXPECT_LT(Level(), 1e-5);
    SoundSourceManager::Play(8);
    EXPECT_LT(Level(), 1e-5);
}

TEST_F(SoundSourceTest, LivesWithItsLevel) {
    LevelFile file;
    file.sounds = {{1, {0, 0}, 100, 1, "snd\\tone.wav"}, {2, {0, 0}, 100, 1, "snd\\tone.wav"}};
    const LevelFile::Point far{9000, 9000};
    file.triggers = {{2, 100, 0.0f, {far, far, far, far}}, {1, 101, 0.0f, {far, far, far, far}}};
    const auto bytes = file.Serialise();
    Write("lev/level.swah", std::string(TestLevelFile::Text(bytes)));
    ASSERT_TRUE(LevelData::Load("lev\\level.swah"));
    const auto fire = [](std::size_t number) {
        const Trigger& trigger = TriggerManager::triggers[number];
        TriggerEvents events;
        trigger.effect({trigger, {}, 0.0f, Actors::Parts(), events});
        SoundSourceManager::Follow(events.sounds);
    };
    EXPECT_NEAR(Level(), 1.0, 0.02) << "the other waits for its trigger";
    fire(0);
    EXPECT_TRUE(SoundSourceManager::loopingSources[2].front().sound.IsPlaying());
    fire(1);
    EXPECT_NEAR(Level(), 1.0, 0.02) << "the other alone";
    LevelData::Restart();
    EXPECT_NEAR(Level(), 1.0, 0.02);
    EXPECT_TRUE(SoundSourceManager::loopingSources[2].front().stopped);
    LevelData::Unload();
    EXPECT_LT(Level(), 1e-5);
}
