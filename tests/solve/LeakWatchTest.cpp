// Which drops outside of a level count as leaked, and how often.

#include "LeakWatch.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "game/World.h"
#include "support/TestGame.h"

TEST(LeakWatch, CountsEachDropOnceWhereverItsPlaceInTheList) {
    TestGame game;
    game.Start(TestLevelFile::Room());
    const LeakSpace space;
    World world = CopyWorldInPlay();
    world.camera.state = Camera::Following;
    world.camera.position = {};
    // Below the floor, far from each other, and one that stays inside.
    ASSERT_GE(world.water.particles.size(), 4u);
    world.water.particles.resize(4);
    const Vector2 places[] = {{-100, 200}, {0, 0}, {0, 200}, {100, 200}};
    for (std::size_t i = 0; i < 4; ++i) {
        Particle& drop = world.water.particles[i];
        drop.position = places[i];
        std::ranges::fill(drop.positionHistory, drop.position);
    }
    WorldWorkspace work;
    LeakWatch watch;
    Outcome outcome;
    for (int step = 0; step < 10; ++step) {
        if (step == 5) {
            world.water.particles.erase(world.water.particles.begin());
        }
        StepWorld(world.Parts(work), {0.016f}, {800, 600});
        watch.Look(world, space, outcome);
    }
    EXPECT_EQ(outcome.watchedSteps, 10u);
    EXPECT_EQ(outcome.leaks.size(), 3u);
}
