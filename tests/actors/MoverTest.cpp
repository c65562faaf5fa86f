#include "actors/Mover.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

Mover Along(Vector2 start, Vector2 end, float speed, int state, float distance = 0.0f) {
    Mover mover;
    mover.SetPath(start, end);
    mover.speed = speed;
    mover.state = state;
    mover.distance = distance;
    return mover;
}

TEST(Mover, StopsOrTurnsAtTheEndsOfItsPath) {
    struct Case {
        int before;
        float from;
        float to;
        int after;
    };
    // A path of 10 units, and steps of 4.
    for (const Case& c : {Case{Mover::Stopped, 5.0f, 5.0f, Mover::Stopped},
                          Case{Mover::GoingToEnd, 5.0f, 9.0f, Mover::GoingToEnd},
                          Case{Mover::GoingToEnd, 6.0f, 10.0f, Mover::GoingToEnd},
                          Case{Mover::GoingToEnd, 9.0f, 10.0f, Mover::Stopped},
                          Case{Mover::GoingToStart, 5.0f, 1.0f, Mover::GoingToStart},
                          Case{Mover::GoingToStart, 1.0f, 0.0f, Mover::Stopped},
                          Case{Mover::LoopingToEnd, 9.0f, 10.0f, Mover::LoopingToStart},
                          Case{Mover::LoopingToStart, 1.0f, 0.0f, Mover::LoopingToEnd}}) {
        Mover mover = Along({0.0f, 0.0f}, {6.0f, 8.0f}, 8.0f, c.before, c.from);
        mover.Advance(0.5f);
        EXPECT_EQ(mover.distance, c.to) << c.before << " from " << c.from;
        EXPECT_EQ(mover.state, c.after) << c.before << " from " << c.from;
    }
}

TEST(Mover, NeverLeavesTheFiniteWorld) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    constexpr float most = std::numeric_limits<float>::max();
    for (const float speed : {infinity, -infinity, std::nanf(""), most, -most, -1.0e9f}) {
        for (const float end : {0.0f, 100.0f, most, infinity, std::nanf("")}) {
            for (int state = Mover::Stopped; state <= Mover::LoopingToEnd; ++state) {
                Mover mover = Along({}, {end, 0.0f}, speed, state);
                for (int i = 0; i < 50; ++i) {
                    mover.Advance(1.0f / 30.0f);
                    ASSERT_TRUE(std::isfinite(mover.Offset().x)) << speed << " " << end;
                    ASSERT_TRUE(std::isfinite(mover.Offset().y)) << speed << " " << end;
                }
            }
        }
    }
}

}  // namespace
