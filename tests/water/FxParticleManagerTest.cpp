#include "water/FxParticleManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "engine/Console.h"
#include "engine/Random.h"
#include "level/View.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "water/ParticleManager.h"

namespace {

constexpr float dt = 1.0f / 30.0f;

class FxParticles : public testing::Test {
protected:
    FxParticles() {
        Console::Initialise();
        FxParticleManager::Initialise();
        ParticleManager::gravity = 500.0f;
        Random::state = 0;
    }
    ~FxParticles() override {
        FxParticleManager::Shutdown();
        Console::Shutdown();
        Platform::ForgetListings();
    }

    Emitter Load(const std::string& settings) const {
        directory.Write("fx/e.cfg", settings);
        Platform::ForgetListings();
        Emitter emitter;
        emitter.LoadSettings("fx\\e.cfg");
        return emitter;
    }
    Emitter& AddLoaded(const std::string& settings) const {
        FxParticleManager::Add(Load(settings));
        return FxParticleManager::emitters.back();
    }
    static std::size_t Count() { return FxParticleManager::particles.size(); }

    View view;
    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
};

TEST_F(FxParticles, TakeSettingsOnlyInWholeGroups) {
    const Emitter half = Load(
        "size_1 4 gravity_2 3 liveTime_1 9 velocity_2 5 color_1_r 0 "
        "color_1_g 0 color_1_b 0 color_1_a 0 color_2_r 0 color_2_g 0 "
        "color_2_b 0 texture3 a.png");
    EXPECT_EQ(half.size1, 0.0f);
    EXPECT_EQ(half.gravity2, 0.0f);
    EXPECT_EQ(half.liveTime1, 1.0f);
    EXPECT_EQ(half.velocity2, 0.0f);
    EXPECT_EQ(half.color1.r, 1.0f);
    EXPECT_EQ(half.textures.size(), 1u);

    const Emitter whole = Load(
        "size_1 4 size_2 6 spread 180 active FALSE useAlphaBlending FALSE "
        "color_1_r 0.1 color_1_g 0.2 color_1_b 0.3 color_1_a 0.4 "
        "color_2_r 0.5 color_2_g 0.6 color_2_b 0.7 color_2_a 0.8 "
        "texture8 b.png texture1 a.png");
    EXPECT_EQ(whole.size2, 6.0f);
    EXPECT_FLOAT_EQ(whole.spread, 3.1415926f);
    EXPECT_EQ(whole.running, 0);
    EXPECT_EQ(whole.useAlphaBlending, 0);
    EXPECT_EQ(whole.color1.b, 0.3f);
    EXPECT_EQ(whole.color2.a, 0.8f);
    ASSERT_EQ(whole.textures.size(), 2u);
    EXPECT_EQ(whole.textures[0].name, "a.png");
}

TEST_F(FxParticles, HoldSettingsWithinTheirLimits) {
    const std::string huge(60, '9');
    for (const char* size : {"-1", "5000", "4097", "99999999999999"}) {
        EXPECT_EQ(Load("burstSize " + std::string(size)).burstSize, 4096u) << size;
    }
    EXPECT_EQ(Load("burstSize 4096").burstSize, 4096u);
    EXPECT_EQ(Load("burstSize 0").burstSize, 0u);
    // Badly formed values count as 0 or false; so does what no float holds.
    const Emitter bad = Load("frequency x active yes burstSize 1.5 liveTime_1 " + huge +
                             " liveTime_2 -1 size_1 nan size_2 " + huge +
                             " gravity_1 - "
                             "gravity_2 -" +
                             huge);
    EXPECT_EQ(bad.frequency, 0.001f);
    EXPECT_EQ(bad.running, 0);
    EXPECT_EQ(bad.burstSize, 0u);
    EXPECT_EQ(bad.liveTime1, 0.0001f);
    EXPECT_EQ(bad.liveTime2, 0.0001f);
    EXPECT_EQ(bad.size1, 0.0f);
    EXPECT_EQ(bad.size2, 0.0f);
    EXPECT_EQ(bad.gravity2, 0.0f);

    Emitter missing;
    missing.LoadSettings("fx\\none.cfg");
    EXPECT_EQ(missing.frequency, 1.0f);
    EXPECT_TRUE(missing.textures.empty());
    missing.Burst();
    EXPECT_EQ(Count(), 0u);
}

TEST_F(FxParticles, ComeAtTheEmittersRateWhileItIsInView) {
    Emitter& emitter = AddLoaded("frequency 0 liveTime_1 9 liveTime_2 9 texture1 a.png");
    emitter.position = {400.0f, -400.0f};  // on the corner of the view
    FxParticleManager::Step(view, dt);
    EXPECT_EQ(Count(), 33u);
    const float timeBefore = emitter.timeSinceEmit;
    emitter.position.x = 400.5f;
    FxParticleManager::Step(view, dt);
    EXPECT_EQ(Count(), 33u);
    EXPECT_EQ(emitter.timeSinceEmit, timeBefore);
    view.centre.x = 1.0f;
    FxParticleManager::Step(view, dt);
    EXPECT_GE(Count(), 66u);
    const std::size_t before = Count();
    emitter.running = 0;
    FxParticleManager::Step(view, dt);
    EXPECT_EQ(Count(), before);
    emitter.burstSize = 4096;
    emitter.Burst();
    EXPECT_EQ(Count(), before + 4096);
    FxParticleManager::ClearParticles();
    EXPECT_EQ(Count(), 0u);
    EXPECT_EQ(FxParticleManager::emitters.size(), 1u);
}

TEST_F(FxParticles, DrawTheirRandomNumbersInAFixedOrder) {
    Emitter& emitter = AddLoaded(
        "spread 60 size_1 10 size_2 20 velocity_1 100 velocity_2 200 "
        "gravity_1 1 gravity_2 3 liveTime_1 2 liveTime_2 4 "
        "texture1 a.png texture2 b.png texture3 c.png");
    emitter.EmitOne();
    const FxParticle& particle = FxParticleManager::particles.back();
    const std::uint32_t after = Random::state;

    Random::state = 0;
    float r[6];
    for (float& value : r) {
        value = Random::Unit();
    }
    const auto mix = [](float a, float b, float share) { return a * share + b * (1.0f - share); };
    Vector2 heading{1.0f, 0.0f};
    const float spread = 60.0f * degreesToRadians;
    Rotate(heading, r[0] * spread - spread * 0.5f);
    EXPECT_EQ(particle.velocity, heading * mix(100.0f, 200.0f, r[2]));
    EXPECT_EQ(particle.gravity, mix(1.0f, 3.0f, r[3]));
    EXPECT_EQ(particle.size, mix(10.0f, 20.0f, r[4]));
    EXPECT_EQ(particle.liveTime, mix(2.0f, 4.0f, r[5]));
    EXPECT_EQ(particle.timeLeft, particle.liveTime);
    EXPECT_EQ(particle.texture, &emitter.textures[Random::Next() % 3]);
    EXPECT_EQ(Random::state, after);
}

TEST_F(FxParticles, AreBoundedHoweverManyAreAskedFor) {
    Emitter emitter =
        Load("burstSize 4096 frequency 0.001 liveTime_1 9 liveTime_2 9 texture1 a.png");
    for (int i = 0; i < 60; ++i) {
        emitter.Burst();
    }
    EXPECT_EQ(Count(), 200000u);
    const auto drawn = Random::state;
    FxParticleManager::Add(emitter);
    FxParticleManager::Step(view, dt);
    EXPECT_EQ(Count(), 200000u);
    EXPECT_EQ(Random::state, drawn);
    const std::string text(Console::OutputText());
    const std::size_t at = text.find("\nToo many effect particles");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(text.find("effect particles", at + 15), std::string::npos) << "once";
    FxParticleManager::ClearParticles();
    emitter.Burst();
    EXPECT_EQ(Count(), 4096u);
}

TEST_F(FxParticles, ComeFromEmittersMadeOnTheConsole) {
    directory.Write("fx/e.cfg", "texture1 a.png");
    Platform::ForgetListings();
    Console::Execute("FxEmitterCreate 10 20 0 -5 7 fx\\e.cfg");
    ASSERT_EQ(FxParticleManager::emitters.size(), 1u);
    const Emitter& emitter = FxParticleManager::emitters.front();
    EXPECT_EQ(emitter.position, (Vector2{10.0f, 20.0f}));
    EXPECT_EQ(emitter.direction, (Vector2{0.0f, -1.0f}));
    EXPECT_EQ(emitter.id, 7u);
    EXPECT_EQ(emitter.textures.size(), 1u);
    Console::Execute("FxEmitterCreate 1 2 x 4 5 e");
    EXPECT_NE(Console::OutputText().find("\nUSAGE: Emitter create < x"), std::string::npos);
    EXPECT_EQ(FxParticleManager::emitters.size(), 1u);
}

TEST_F(FxParticles, HaveEmittersWithADirectionOfLengthOne) {
    const float infinity = std::numeric_limits<float>::infinity();
    Emitter emitter;
    for (const Vector2 given :
         {Vector2{0.0f, 0.0f}, Vector2{3.0f, 4.0f}, Vector2{std::nanf(""), infinity}}) {
        emitter.SetDirection(given.x, given.y);
        EXPECT_NEAR(Length(emitter.direction), 1.0f, 1e-5f);
    }
}

}  // namespace
