// Distances to the finish, as the search measures its progress.

#include "FlowMap.h"

#include <gtest/gtest.h>

#include "Switches.h"
#include "support/TestGame.h"

namespace {

using TestLevelFile::Area;
using TestLevelFile::Box;

constexpr std::uint32_t levelEnd = 801;
constexpr std::uint32_t removeEntity = 300;
constexpr std::uint32_t gateId = 5;
const Vector2 left{-150.0f, 100.0f};
const Vector2 middle{0.0f, 100.0f};
const Vector2 right{150.0f, 100.0f};

/// A room with the water on its left side and the finish in its right corner.
LevelFile Room() {
    LevelFile level = TestLevelFile::Room();
    level.triggers.push_back(Area(levelEnd, 170, 110, 200, 150));
    level.waterStart = {-50, 100};
    return level;
}

}  // namespace

TEST(FlowMap, IsLongerWhereWaterMustClimb) {
    TestGame game;
    game.Start(Room());
    Switches::Collect();
    const FlowMap map;
    EXPECT_LT(map.Distance(right, 0), map.Distance(middle, 0));
    EXPECT_LT(map.Distance(middle, 0), map.Distance(left, 0));

    LevelFile raised = Room();
    raised.triggers[0] = Area(levelEnd, 170, -140, 200, -100);
    game.Start(raised, "lev/b.swah");
    Switches::Collect();
    EXPECT_GT(FlowMap().Distance(left, 0), map.Distance(left, 0) + 400.0f);
}

TEST(FlowMap, LeadsOverWhatOpensAGate) {
    TestGame game;
    LevelFile level = Room();
    level.polygons.push_back(TestLevelFile::Box(60, -150, 68, 150, gateId));
    level.triggers.push_back(Area(removeEntity, -200, 110, -170, 150, gateId));
    game.Start(level);
    Switches::Collect();
    const FlowMap map;
    ASSERT_EQ(map.GateCount(), 1u);
    // Shut: first back to the opener on the left, so that the left side is the nearer one.
    EXPECT_LT(map.Distance(left, 0), map.Distance(middle, 0));
    EXPECT_LT(map.Distance(middle, 1), map.Distance(left, 1));
    EXPECT_LT(map.Distance(middle, 1), map.Distance(middle, 0));
}
