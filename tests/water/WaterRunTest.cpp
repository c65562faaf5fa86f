// Whole bodies of water over seconds: what a player sees, and what a run costs in allocations.

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "support/CountedAllocations.h"
#include "water/WaterCheck.h"
#include "water/WaterWorld.h"

namespace {

/// A sloped floor in a box of 200 by 120 that ends in a pocket at the right.
std::deque<LevelPolygon> Slope() {
    std::deque<LevelPolygon> level = TestLevel::Bowl(200.0f, 120.0f);
    level.push_back(
        TestLevel::Polygon({{0.0f, 70.0f}, {120.0f, 100.0f}, {120.0f, 120.0f}, {0.0f, 120.0f}}));
    level.push_back(TestLevel::Box(60.0f, 30.0f, 80.0f, 40.0f));
    for (LevelPolygon& polygon : level) {
        polygon.SetFriction(0.6f);
    }
    return level;
}

template <class Visitor>
void ForAllParticles(Visitor visit) {
    for (const Particle& particle : ParticleManager::particles) {
        visit(particle);
    }
    for (const ParticleGroup& group : GroupedParticleMover::groups) {
        for (const Particle& particle : group.particles) {
            visit(particle);
        }
    }
}

struct Extent {
    float left = 1e9f, right = -1e9f, top = 1e9f, bottom = -1e9f;
    float Width() const { return right - left; }
};

Extent WaterExtent() {
    Extent e;
    ForAllParticles([&e](const Particle& p) {
        e.left = std::min(e.left, p.position.x);
        e.right = std::max(e.right, p.position.x);
        e.top = std::min(e.top, p.position.y);
        e.bottom = std::max(e.bottom, p.position.y);
    });
    return e;
}

float MeanY() {
    float sum = 0.0f;
    float count = 0.0f;
    ForAllParticles([&](const Particle& p) {
        sum += p.position.y;
        count += 1.0f;
    });
    return sum / count;
}

void SetTemperatures(float temperature) {
    for (Particle& particle : ParticleManager::particles) {
        particle.temperature = temperature;
    }
    for (ParticleGroup& group : GroupedParticleMover::groups) {
        group.temperature = temperature;
    }
}

}  // namespace

TEST(Water, PoursDownAndComesToRestInsideOfTheWalls) {
    const WaterWorld world(Slope(), {100.0f, 60.0f});
    ParticleManager::CreateParticles(30.0f, 40.0f, 10.0f, 128);
    WaterWorld::Steps(420);
    EXPECT_EQ(ParticleManager::Count(), 128u);
    const Extent resting = WaterExtent();
    EXPECT_GT(resting.left, 110.0f);  // all in the pocket
    EXPECT_LT(resting.right, 198.1f);
    EXPECT_LT(resting.bottom, 118.1f);
    EXPECT_GT(resting.top, 90.0f);
    float fastest = 0.0f;
    for (int i = 0; i < 60; ++i) {
        ParticleManager::Step(WaterWorld::view, 1.0f / 60.0f);
        ForAllParticles([&](const Particle& p) { fastest = std::max(fastest, p.speed); });
    }
    EXPECT_LT(fastest, 60.0f);
    EXPECT_EQ(WaterCheck::ValueFault(), nullptr);
}

TEST(Water, StaysOutOfSolidsHoweverTheLevelTurns) {
    const WaterWorld world(Slope(), {100.0f, 60.0f});
    ParticleManager::CreateParticles(30.0f, 40.0f, 10.0f, 128);
    for (int i = 0; i < 600; ++i) {
        WaterWorld::view.angle = 60.0f * std::sin(static_cast<float>(i) * 0.05f);
        ParticleManager::Step(WaterWorld::view, 1.0f / 60.0f);
        ForAllParticles([](const Particle& p) {
            const bool inBlock = p.position.x > 60.5f && p.position.x < 79.5f &&
                                 p.position.y > 30.5f && p.position.y < 39.5f;
            const bool inWall =
                p.position.x < -0.5f || p.position.x > 200.5f || p.position.y > 120.5f;
            ASSERT_FALSE(inBlock || inWall) << p.position.x << " " << p.position.y;
        });
    }
}

TEST(Water, FreezesIntoOneLumpThatSlidesAndFlowsWhenItThaws) {
    const WaterWorld world(TestLevel::Bowl(400.0f, 200.0f), {200.0f, 100.0f});
    ParticleManager::CreateParticles(100.0f, 180.0f, 10.0f, 128);
    WaterWorld::Steps(60);
    SetTemperatures(-1.0f);
    ParticleManager::heatTransferRate = 0.0f;
    ParticleManager::Step(WaterWorld::view, 1.0f / 60.0f);
    ASSERT_EQ(GroupedParticleMover::groups.size(), 1u);
    ParticleGroup& lump = GroupedParticleMover::groups.front();
    EXPECT_EQ(lump.particles.size(), 128u);
    WaterWorld::Steps(120);
    EXPECT_NEAR(lump.radius, 22.6f, 0.2f);
    EXPECT_NEAR(lump.position.y, 200.0f - lump.radius, 0.5f);
    const float before = lump.position.x;
    WaterWorld::view.angle = -20.0f;
    WaterWorld::Steps(60);
    EXPECT_GT(lump.position.x, before + 60.0f);
    EXPECT_LT(WaterExtent().Width(), 50.0f);
    WaterWorld::view.angle = 0.0f;
    SetTemperatures(5.0f);
    WaterWorld::Steps(60);
    EXPECT_EQ(ParticleManager::Count(), 128u);
    EXPECT_GT(MeanY(), 190.0f);  // a flat sheet on the floor
}

TEST(Water, AllocatesNothingOnceWarmedUp) {
    const WaterWorld world(Slope(), {100.0f, 60.0f});
    ParticleManager::CreateParticles(100.0f, 60.0f, 60.0f, 500);
    WaterWorld::Steps(120);
    for (int i = 0; i < 40; ++i) {
        WaterWorld::Add({10.0f * static_cast<float>(i % 20), 10.0f + static_cast<float>(i)}, {},
                        -9.0f);
    }
    WaterWorld::Steps(40);
    ASSERT_FALSE(GroupedParticleMover::groups.empty());
    const std::size_t before = countedAllocations;
    WaterWorld::Steps(60);
    EXPECT_EQ(countedAllocations, before);
}
