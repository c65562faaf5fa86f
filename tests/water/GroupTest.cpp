// Ice: freezing, sliding, merging, thawing.

#include <gtest/gtest.h>

#include <chrono>
#include <deque>

#include "engine/Console.h"
#include "reference/PlainHops.h"
#include "water/WaterWorld.h"

using GroupedParticleMover::groups;

namespace {

ParticleGroup& AddGroup(Vector2 position, std::size_t members, float temperature = -10.0f) {
    ParticleGroup& group = groups.emplace_back();
    group.position = position;
    group.temperature = temperature;
    group.radius = group.targetRadius = 2.0f * std::sqrt(static_cast<float>(members));
    group.particles.resize(members);
    for (Particle& member : group.particles) {
        member.position = position;
        member.groupDirection = {1.0f, 0.0f};
    }
    return group;
}

}  // namespace

TEST(Groups, TakeWarmNeighboursWithinReachAndThoseLinkedByThem) {
    const WaterWorld world;
    WaterWorld::Add({0.0f, 0.0f}, {}, 0.0f);
    WaterWorld::Add({12.0f, 0.0f}, {3.0f, 0.0f}, 50.0f);
    WaterWorld::Add({24.0f, 0.0f}, {}, 120.0f);
    WaterWorld::Add({24.0f, 12.01f}, {}, 50.0f);
    GroupedParticleMover::Freeze();
    ASSERT_EQ(groups.size(), 1u);
    EXPECT_EQ(groups.front().particles.size(), 3u);
    EXPECT_EQ(groups.front().position, (Vector2{0.0f, 0.0f}));
    EXPECT_FLOAT_EQ(groups.front().targetRadius, 2.0f * std::sqrt(3.0f));
    EXPECT_EQ(groups.front().particles[1].temperature, 50.0f);
    ASSERT_EQ(ParticleManager::Count(), 1u);
    EXPECT_EQ(ParticleManager::particles.front().position.y, 12.01f);
}

TEST(Groups, ThawAboveZeroAndStayAtZero) {
    const WaterWorld world;
    ParticleManager::heatTransferRate = 0.0f;
    AddGroup({0.0f, 0.0f}, 2, 0.0f).velocity = {5.0f, 0.0f};
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    ASSERT_EQ(groups.size(), 1u);
    groups.front().temperature = 0.5f;
    const Vector2 velocity = groups.front().velocity;
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    EXPECT_TRUE(groups.empty());
    ASSERT_EQ(ParticleManager::Count(), 2u);
    const Particle& thawed = ParticleManager::particles.front();
    EXPECT_EQ(thawed.temperature, 0.5f);
    EXPECT_EQ(thawed.velocity.x, velocity.x);
    EXPECT_GT(thawed.velocity.y, velocity.y);
    EXPECT_EQ(thawed.positionHistory[2], thawed.position);
}

TEST(Groups, MergeOnlyBelowTheSumOfRadiiAndMargin) {
    const WaterWorld world;
    ParticleManager::gravity = 0.0f;
    AddGroup({0.0f, 0.0f}, 1);
    AddGroup({6.0f, 0.0f}, 1);
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    EXPECT_EQ(groups.front().particles.size(), 1u);
    groups.back().position.x = 5.99f;
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_TRUE(groups.front().particles.empty());  // the tie goes to the later one
    EXPECT_EQ(groups.back().particles.size(), 2u);
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    EXPECT_EQ(groups.size(), 1u);
}

TEST(Groups, SlideWithoutLossAndTellThatTheyTouch) {
    std::deque<LevelPolygon> level;
    level.push_back(TestLevel::Box(-500.0f, 10.0f, 500.0f, 50.0f, 0.0f));
    const WaterWorld world(std::move(level));
    ParticleGroup& group = AddGroup({0.0f, 4.0f}, 9, -30.0f);
    group.velocity = {100.0f, 0.0f};
    for (int i = 0; i < 60; ++i) {
        GroupedParticleMover::Step(WaterWorld::view, 1.0f / 60.0f);
    }
    EXPECT_NEAR(group.velocity.x, 100.0f, 0.01f);
    EXPECT_NEAR(group.position.x, 100.0f, 0.1f);
    EXPECT_NEAR(group.position.y, 4.0f, 0.01f);
    EXPECT_EQ(group.hitThisStep, 1);
    for (const Particle& member : group.particles) {
        EXPECT_NEAR(member.position.x, group.position.x, 0.1f);
    }
}

TEST(Groups, PassTheirDeathOnAndDieWithTheirMembers) {
    const WaterWorld world;
    ParticleGroup& group = AddGroup({0.0f, 0.0f}, 3);
    GroupedParticleMover::KillGroup(group);
    GroupedParticleMover::Step(WaterWorld::view, 0.25f);
    GroupedParticleMover::KillGroup(group);
    EXPECT_EQ(group.killTimer, 0.75f);
    EXPECT_EQ(group.particles.front().killTimer, 0.75f);
    EXPECT_EQ(group.particles.front().dying, 1);
    group.temperature = 9.0f;
    GroupedParticleMover::Step(WaterWorld::view, 0.25f);
    ASSERT_EQ(ParticleManager::Count(), 3u);
    EXPECT_EQ(ParticleManager::particles.front().killTimer, 0.5f);
    GroupedParticleMover::KillGroup(AddGroup({0.0f, 0.0f}, 3));
    GroupedParticleMover::Step(WaterWorld::view, 1.0f);
    EXPECT_TRUE(groups.empty());
}

TEST(Groups, LeaveWithTheViewAndItsMargin) {
    const WaterWorld world;  // the view ends at 400
    ParticleManager::gravity = 0.0f;
    AddGroup({400.0f + 128.0f + 2.0f, 0.0f}, 1);
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    EXPECT_EQ(groups.size(), 1u);
    groups.front().position.x += 0.01f;
    GroupedParticleMover::Step(WaterWorld::view, 0.01f);
    EXPECT_TRUE(groups.empty());
}

TEST(Groups, GoToTheEndOfTheirMoveHoweverFarItIs) {
    std::deque<LevelPolygon> level;
    level.push_back(TestLevel::Box(-50.0f, 20000.0f, 50.0f, 20040.0f));
    level.push_back(TestLevel::Polygon({{0.0f, 40.0f}, {90.0f, 20.0f}, {90.0f, 60.0f}}));
    const WaterWorld world(std::move(level));
    ParticleManager::gravity = 0.0f;
    constexpr float dt = 1.0f / 64.0f;
    for (const Vector2 velocity :
         {Vector2{0.0f, 1.2e6f}, Vector2{0.0f, 4.0e6f}, Vector2{-3.0e5f, 9.0e5f},
          Vector2{2.0e6f, 7.0e5f}, Vector2{1.0e3f, 1.0e8f}, Vector2{64.0f, 2.0e3f}}) {
        for (const std::size_t members : {1u, 30u}) {
            groups.clear();
            ParticleGroup& group = AddGroup({-30.0f, 10.0f}, members);
            group.velocity = velocity;
            const Vector2 end = Plain::HopThrough(group.position, group.radius, velocity * dt);
            GroupedParticleMover::Step(WaterWorld::view, dt);
            EXPECT_EQ(group.position, end) << velocity.x << ' ' << velocity.y << ' ' << members;
        }
    }
}

TEST(Groups, ComeToAnEndOfAMoveWithout) {
    const WaterWorld world;
    const auto before = std::chrono::steady_clock::now();
    for (const float speed : {3.0e9f, 1.0e14f}) {
        AddGroup({0.0f, 0.0f}, 1).velocity = {0.0f, speed};
        GroupedParticleMover::Step(WaterWorld::view, 0.02f);
        ASSERT_EQ(groups.size(), 1u);
        EXPECT_GT(groups.front().position.y, 9.0e4f);
        GroupedParticleMover::Step(WaterWorld::view, 0.02f);
        EXPECT_TRUE(groups.empty()) << "it has left the view";
    }
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(10));
}
