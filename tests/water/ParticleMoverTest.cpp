// How single particles move, collide and meet.

#include <gtest/gtest.h>

#include "level/Surfaces.h"
#include "water/WaterWorld.h"

namespace {

void Move(Particle& particle, float dt = 0.02f) {
    ParticleMover::MoveParticle(particle, WaterWorld::view, dt);
}

}  // namespace

TEST(ParticleMover, StopsFastWaterAtAWall) {
    std::deque<LevelPolygon> level;
    level.push_back(TestLevel::Box(20.0f, -50.0f, 25.0f, 50.0f, 0.5f));
    const WaterWorld world(std::move(level));
    Particle& particle = WaterWorld::Add({10.0f, 0.0f}, {5000.0f, 100.0f});
    for (int i = 0; i < 10; ++i) {
        Move(particle);
    }
    EXPECT_NEAR(particle.position.x, 18.0f, 1e-3f);
    EXPECT_EQ(particle.velocity.x, 0.0f);
    // Ten steps of 0.02 seconds, the first of which begins off the wall.
    EXPECT_NEAR(particle.velocity.y, 100.0f * std::pow(0.5f, 0.2f), 0.1f);
}

TEST(ParticleMover, PushesNeighboursApartAndMixesThem) {
    const WaterWorld world;
    Particle& still = WaterWorld::Add({0.5f, 0.0f}, {}, 10.0f);
    Particle& moving = WaterWorld::Add({3.5f, 0.0f}, {0.0f, 0.001f}, 30.0f);
    Move(moving);
    EXPECT_NEAR(moving.position.x, 4.5f, 1e-4f);
    EXPECT_EQ(still.position, (Vector2{0.5f, 0.0f}));
    EXPECT_EQ(moving.temperature, 20.0f);
    EXPECT_EQ(still.temperature, 20.0f);
    EXPECT_EQ(still.velocity, moving.velocity);
    // At perfect rest a particle doesn't even meet its neighbours.
    still.velocity = {};
    still.temperature = 0.0f;
    Move(still);
    EXPECT_EQ(still.position, (Vector2{0.5f, 0.0f}));
    EXPECT_EQ(moving.temperature, 20.0f);
}

TEST(ParticleMover, HasNoDirectionForTwoOnOnePoint) {
    const WaterWorld world;
    Particle& still = WaterWorld::Add({1.0f, 0.0f}, {}, 10.0f);
    Particle& moving = WaterWorld::Add({1.0f, 0.0f}, {1e-6f, 0.0f}, 30.0f);
    Move(moving);
    EXPECT_NEAR(moving.position.x, 1.0f, 1e-5f);
    EXPECT_EQ(still.temperature, 20.0f);
}

TEST(ParticleMover, PushesAlongXWhenNeighboursCancelOut) {
    const WaterWorld world;
    WaterWorld::Add({-2.0f, 0.0f});
    WaterWorld::Add({2.0f, 0.0f});
    Particle& moving = WaterWorld::Add({0.0f, 0.0f}, {1e-10f, 0.0f});
    Move(moving);
    EXPECT_NEAR(moving.position.x, 1.7f, 1e-4f);
}

TEST(ParticleMover, DoesNotSeeTheCellRightAboveOrBelow) {
    const WaterWorld world;
    Particle& low = WaterWorld::Add({0.5f, 2.5f}, {}, 10.0f);
    Particle& high = WaterWorld::Add({0.5f, 0.5f}, {1e-6f, 0.0f}, 30.0f);
    Move(high);
    EXPECT_EQ(low.temperature, 10.0f);
    high.position.x = 2.5f;
    Move(high);
    EXPECT_EQ(low.temperature, high.temperature);
}

TEST(ParticleMover, FindsNoOneOutsideOfTheGridButStillCollides) {
    std::deque<LevelPolygon> level;
    level.push_back(TestLevel::Box(2990.0f, 20.0f, 3010.0f, 30.0f));
    const WaterWorld world(std::move(level));
    Particle& other = WaterWorld::Add({3000.0f, 17.0f}, {}, 10.0f);
    Particle& far = WaterWorld::Add({3000.0f, 17.5f}, {0.0f, 100.0f}, 30.0f);
    Move(far);
    EXPECT_EQ(far.inGrid, 0);
    EXPECT_EQ(other.temperature, 10.0f);
    EXPECT_NEAR(far.position.y, 18.0f, 1e-3f);
    // Left of the corner by less than a cell still counts as the first column.
    Particle& edge = WaterWorld::Add({-512.9f, -512.9f});
    Particle& outside = WaterWorld::Add({-513.1f, 0.0f});
    Move(edge);
    EXPECT_EQ(edge.inGrid, 1);
    EXPECT_EQ(outside.inGrid, 0);
}

TEST(Cohesion, PullsABodyTogetherAndLeavesStrangersAlone) {
    const WaterWorld world;
    const Particle& left = WaterWorld::Add({0.0f, 0.0f});
    const Particle& right = WaterWorld::Add({40.0f, 0.0f});
    const Particle& stranger = WaterWorld::Add({81.0f, 0.0f});
    ParticleMover::Cohere(0.01f);
    const float move = 0.01f / 0.75f * 16.0f;
    EXPECT_NEAR(left.position.x, move, 0.051f);
    EXPECT_NEAR(right.position.x, 40.0f - move, 0.051f);
    EXPECT_EQ(stranger.position, (Vector2{81.0f, 0.0f}));
}

TEST(Surfaces, HaveFrictionsFromTheFileAndNoneOutsideOfTheTable) {
    TemporaryDirectory directory;
    const WorkingDirectoryGuard here(directory.path);
    directory.Write("cfg/surfaces.cfg", "surfaceFriction_metal 0.5 surfaceFriction_sand 7");
    Platform::ForgetListings();
    ReadSurfaces();
    EXPECT_EQ(SurfaceFriction(1), 0.5f);
    EXPECT_EQ(SurfaceFriction(2), 0.0f);
    EXPECT_EQ(SurfaceFriction(5), 1.0f);
    EXPECT_EQ(SurfaceFriction(0), 1.0f);
    EXPECT_EQ(SurfaceFriction(6), 1.0f);
    EXPECT_FALSE(IsValidSurface(0));
    EXPECT_TRUE(IsValidSurface(5));
}
