// Life, temperature and console commands of the free particles.

#include <gtest/gtest.h>

#include "actors/TriggerManager.h"
#include "engine/Console.h"
#include "water/WaterWorld.h"

using ParticleManager::particles;

TEST(ParticleManager, DropsWaterBeyondTheViewAndItsMargin) {
    const WaterWorld world;  // the view ends at 400
    ParticleManager::gravity = 0.0f;
    WaterWorld::Add({530.0f, 0.0f});
    WaterWorld::Add({530.01f, 0.0f});
    ParticleManager::Step(WaterWorld::view, 0.01f);
    ASSERT_EQ(ParticleManager::Count(), 1u);
    EXPECT_EQ(particles.front().position.x, 530.0f);
}

TEST(ParticleManager, TurnsGravityAndViewWithTheCamera) {
    const WaterWorld world;
    WaterWorld::Add({-390.0f, 0.0f});
    WaterWorld::Add({0.0f, 440.0f});
    WaterWorld::view.angle = 90.0f;
    ParticleManager::Step(WaterWorld::view, 0.01f);
    ASSERT_EQ(ParticleManager::Count(), 2u);
    EXPECT_NEAR(particles.back().velocity.x, -5.0f, 1e-4f);
    EXPECT_NEAR(particles.back().velocity.y, 0.0f, 1e-4f);
}

TEST(ParticleManager, KillsOnceAndRemovesAtZero) {
    const WaterWorld world;
    Particle& particle = WaterWorld::Add({0.0f, 0.0f});
    ParticleManager::KillParticle(particle);
    ParticleManager::Step(WaterWorld::view, 0.5f);
    ParticleManager::KillParticle(particle);
    EXPECT_EQ(particle.killTimer, 0.5f);
    ParticleManager::Step(WaterWorld::view, 0.5f);
    EXPECT_EQ(ParticleManager::Count(), 0u);
}

TEST(ParticleManager, LetsHostileValuesGoWithoutHangingOrSpreading) {
    const WaterWorld world(WaterLevels::CrowdedBowl(100.0f, 100.0f), {50.0f, 50.0f});
    const float bad[] = {std::nanf(""), INFINITY, -INFINITY, 3e38f, 1e20f};
    for (const float value : bad) {
        WaterWorld::Add({50.0f, 50.0f}, {value, 1.0f});
        WaterWorld::Add({value, 50.0f});
        WaterWorld::Add({50.0f, 50.0f}).pushVelocity.y = value;
        WaterWorld::Add({50.0f, 50.0f}).temperature = value;
        ParticleGroup& group = GroupedParticleMover::groups.emplace_back();
        group.position = {50.0f, 50.0f};
        group.radius = group.targetRadius = 2.0f;
        group.temperature = -10.0f;
        group.velocity = {value, 0.0f};
        group.particles.resize(1);
    }
    const Particle& good = WaterWorld::Add({51.0f, 50.0f});
    WaterWorld::Steps(3);
    EXPECT_TRUE(std::isfinite(good.position.x) && std::isfinite(good.velocity.x));
    EXPECT_EQ(ParticleManager::Count(), 1u);
    // Merely absurd speed of a group must end too.
    ParticleGroup& group = GroupedParticleMover::groups.emplace_back();
    group.position = {50.0f, -200.0f};
    group.radius = group.targetRadius = 2.0f;
    group.temperature = -10.0f;
    group.velocity = {0.0f, -1e14f};
    group.particles.resize(1);
    WaterWorld::Steps(2);
    EXPECT_TRUE(GroupedParticleMover::groups.empty());
}

TEST(TemperatureTriggers, HeatAndCoolToTheirLimits) {
    const WaterWorld world;
    Particle particle;
    ParticleGroup group;
    const auto apply = [&](auto effect, float from, float dt) {
        particle.temperature = group.temperature = from;
        effect(WaterHit{.particle = &particle}, dt);
        effect(WaterHit{.group = &group}, dt);
        effect(WaterHit{}, dt);
        return Vector2{particle.temperature, group.temperature};
    };
    // 80 degrees a second.
    EXPECT_EQ(apply(TemperatureTriggerToWater, 20.0f, 0.25f), (Vector2{40.0f, 40.0f}));
    EXPECT_EQ(apply(TemperatureTriggerToWater, 40.0f, 0.25f), (Vector2{50.0f, 60.0f}));
    EXPECT_EQ(apply(TemperatureTriggerToWater, 50.0f, 0.25f), (Vector2{50.0f, 70.0f}));
    EXPECT_EQ(apply(TemperatureTriggerToIce, 0.0f, 0.25f), (Vector2{-20.0f, -20.0f}));
    EXPECT_EQ(apply(TemperatureTriggerToIce, 0.0f, 1.0f), (Vector2{-40.0f, -40.0f}));
    EXPECT_EQ(apply(TemperatureTriggerToSteam, 150.0f, 0.25f), (Vector2{160.0f, 170.0f}));
}

TEST(ParticleManager, IsTunedFromTheConsole) {
    const WaterWorld world;
    Console::Execute("Gravity -3");
    Console::Execute("HeatTransferRate 4");
    EXPECT_EQ(ParticleManager::gravity, -3.0f);
    EXPECT_EQ(ParticleManager::heatTransferRate, 1.0f);
}
