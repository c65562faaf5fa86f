#include "actors/TriggerManager.h"

#include <gtest/gtest.h>

#include <cmath>

#include "level/Collision.h"
#include "support/TestWorld.h"

namespace {

constexpr float dt = 0.02f;

/// A trigger of the given type over (0, 0) to (100, 100) with particles in it, in view.
class Triggers : public testing::Test {
protected:
    static Trigger& Make(TriggerKind kind, std::uint32_t targetId = 0, float delay = 0.0f) {
        return TestWorld::AddTrigger(kind, {0.0f, 0.0f}, {100.0f, 100.0f}, targetId, delay);
    }
    static Particle& Inside() { return TestWorld::AddParticle({50.0f, 50.0f}); }

    TestWorld world;
};

TEST_F(Triggers, FireOnceOrForAllWaterInEveryStep) {
    const Trigger& once = Make(TriggerKind::CameraZoomOnce);
    const Trigger& always = Make(TriggerKind::CameraZoom);
    for (int i = 0; i < 100; ++i) {
        Inside();
    }
    TriggerManager::Step(Camera::Look(), dt);
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(TriggerManager::StateOf(once).fireCount, 1u);
    EXPECT_EQ(TriggerManager::StateOf(always).fireCount, 200u);
    TriggerManager::Reset();
    EXPECT_EQ(TriggerManager::StateOf(once).fireCount, 0u);
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(TriggerManager::StateOf(once).fireCount, 1u);
}

TEST_F(Triggers, ReactOnlyNearTheCamera) {
    // The square reaches 440 units from the camera, whatever the zoom.
    const Trigger& near = TestWorld::AddTrigger(TriggerKind::Null, {440.0f, 0.0f}, {500.0f, 50.0f});
    const Trigger& far = TestWorld::AddTrigger(TriggerKind::Null, {440.5f, 0.0f}, {500.0f, 50.0f});
    TestWorld::AddParticle({470.0f, 20.0f});
    Camera::zoom = 2.5f;
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(TriggerManager::StateOf(near).fireCount, 1u);
    EXPECT_EQ(TriggerManager::StateOf(far).fireCount, 0u);
}

TEST_F(Triggers, HeatCoolAndKillWhatIsInside) {
    Make(TriggerKind::ToSteam);
    Particle& particle = Inside();
    const Particle& outside = TestWorld::AddParticle({150.0f, 50.0f});
    ParticleGroup& ice = GroupedParticleMover::groups.emplace_back();
    ice.position = {20.0f, 20.0f};
    ice.temperature = -10.0f;
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(particle.temperature, 20.0f + dt * 80.0f);
    EXPECT_EQ(outside.temperature, 20.0f);
    EXPECT_EQ(ice.temperature, -10.0f + dt * 80.0f);

    Make(TriggerKind::Kill, 0, 3.0f);
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(particle.dying, 1);
    EXPECT_EQ(ice.dying, 1);
    EXPECT_EQ(outside.dying, 0);
}

TEST_F(Triggers, TakeThingsOutOfTheLevelAndPutThemBack) {
    LevelPolygon& gate = TestWorld::Add(TestLevel::Box(200.0f, 0.0f, 220.0f, 50.0f), 7);
    ForceManager::Add(7, 0.0f, 0.0f, 1.0f, 0.0f, 1.0f);
    LevelObject object;
    object.id = 7;
    LevelObjectsManager::Add(object);
    TestWorld::Start();
    Inside();
    for (const TriggerKind kind : {TriggerKind::EntityRemove, TriggerKind::EntityAdd}) {
        const int expected = kind == TriggerKind::EntityAdd ? 1 : 0;
        Make(kind, 7);
        TriggerManager::Step(Camera::Look(), dt);
        EXPECT_EQ(LevelData::StateOf(gate).solid, expected);
        EXPECT_EQ(LevelData::StateOf(gate).enabled, expected);
        Vector2 circle{199.0f, 25.0f};
        EXPECT_EQ(Collision::CollideCircle(circle, 2.0f), expected == 1);
        EXPECT_EQ(ForceManager::forces.front().enabled, expected);
        EXPECT_EQ(LevelObjectsManager::objects.front().enabled, expected);
    }
}

TEST_F(Triggers, ApplyEnabledForces) {
    ForceManager::Add(7, 50.0f, 20.0f, 3.0f, 4.0f, 100.0f);
    ForceManager::Add(7, 50.0f, 20.0f, 0.0f, 1.0f, 30.0f);
    ForceManager::Add(8, 50.0f, 20.0f, 0.0f, 1.0f, 1000.0f);
    struct Case {
        TriggerKind kind;
        Vector2 once;    // velocity with all forces of the id enabled
        Vector2 second;  // with the second alone
    };
    const float radial = std::sqrt(1.0f / 31.0f) * dt;
    for (const Case& c :
         {Case{TriggerKind::ForceDirectional,
               {1.0f + 60.0f * dt, 80.0f * dt + 30.0f * dt},
               {1.0f, 30.0f * dt}},
          Case{TriggerKind::ForceInstantaneous, {0.0f, 30.0f}, {0.0f, 30.0f}},
          Case{TriggerKind::ForcePull, {1.0f, -radial * 130.0f}, {1.0f, -radial * 30.0f}},
          Case{TriggerKind::ForcePush, {1.0f, radial * 130.0f}, {1.0f, radial * 30.0f}}}) {
        TriggerManager::Initialise();
        ParticleManager::particles.clear();
        Make(c.kind, 7);
        Particle& particle = Inside();
        for (const bool both : {true, false}) {
            ForceManager::forces.front().enabled = both ? 1 : 0;
            particle.velocity = {1.0f, 0.0f};
            TriggerManager::Step(Camera::Look(), dt);
            const Vector2 expected = both ? c.once : c.second;
            EXPECT_NEAR(particle.velocity.x, expected.x, 1.0e-4f) << static_cast<int>(c.kind);
            EXPECT_NEAR(particle.velocity.y, expected.y, 1.0e-4f) << static_cast<int>(c.kind);
        }
    }
}

TEST_F(Triggers, PullNothingThatStandsOnTheForceItself) {
    ForceManager::Add(7, 50.0f, 50.0f, 1.0f, 0.0f, 1.0e30f);
    Make(TriggerKind::ForcePull, 7);
    Make(TriggerKind::ForcePush, 7);
    const Particle& particle = Inside();
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(particle.velocity, Vector2{});
}

TEST_F(Triggers, KeepTheWaterFiniteUnderForcesWithoutMeasure) {
    for (LevelPolygon& wall : TestLevel::Bowl(100.0f, 100.0f)) {
        TestWorld::Add(wall);
    }
    for (const float strength : {3.0e38f, 1.0e30f, 1.0e17f, -9.0e17f, 1.0e12f}) {
        ForceManager::Add(7, 50.0f, 80.0f, 1.0f, 1.0f, strength);
    }
    for (const TriggerKind kind : {TriggerKind::ForceDirectional, TriggerKind::ForceInstantaneous,
                                   TriggerKind::ForcePull, TriggerKind::ForcePush}) {
        Make(kind, 7);
    }
    TestWorld::Start();
    for (int i = 0; i < 60; ++i) {
        const auto place = static_cast<float>(i);
        TestWorld::AddParticle({20.0f + place, 50.0f + place / 2.0f}, i < 10 ? -20.0f : 20.0f);
        TestWorld::Step(1.0f / 30.0f);
        for (const Particle& particle : ParticleManager::particles) {
            ASSERT_TRUE(std::isfinite(Length(particle.velocity)));
            ASSERT_TRUE(std::isfinite(Length(particle.position)));
        }
        for (const ParticleGroup& group : GroupedParticleMover::groups) {
            ASSERT_TRUE(std::isfinite(Length(group.velocity)));
            ASSERT_TRUE(std::isfinite(Length(group.position)));
        }
    }
}

TEST_F(Triggers, BindWhatIsThereWhenTheyAreAdded) {
    ForceManager::Add(7, 0.0f, 0.0f, 1.0f, 0.0f, 10.0f);
    const Trigger& early = Make(TriggerKind::ForceInstantaneous, 7);
    ForceManager::Add(7, 0.0f, 0.0f, 1.0f, 0.0f, 20.0f);
    ForceManager::Add(0, 0.0f, 0.0f, 1.0f, 0.0f, 30.0f);
    const Particle& particle = Inside();
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(particle.velocity.x, 10.0f);
    const Trigger& late = Make(TriggerKind::ForceInstantaneous, 7);
    TriggerManager::Step(Camera::Look(), dt);
    EXPECT_EQ(particle.velocity.x, 20.0f);
    const Trigger& none = Make(TriggerKind::ForceInstantaneous, 0);
    EXPECT_EQ(early.forces.size(), 1u);
    EXPECT_EQ(late.forces.size(), 2u);
    EXPECT_EQ(none.forces.size(), 0u);
}

TEST_F(Triggers, CountWaterInTheFinish) {
    ParticleGroup& ice = GroupedParticleMover::groups.emplace_back();
    ice.position = {50.0f, 50.0f};
    ice.particles.resize(30);
    for (int i = 0; i < 10; ++i) {
        Inside();
    }
    Make(TriggerKind::LevelEnd);
    EXPECT_EQ(TriggerManager::Step(Camera::Look(), dt).waterInFinish, 40u);
    TriggerManager::Reset();
    ParticleManager::particles.clear();
    GroupedParticleMover::groups.clear();
    EXPECT_EQ(TriggerManager::Step(Camera::Look(), dt).waterInFinish, 0u) << "once for a step";
}

}  // namespace
