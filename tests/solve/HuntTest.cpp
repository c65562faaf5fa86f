// The real program on small levels, hunting for places where water leaks through a wall or is stuck
// for good.

#include <cstdio>

#include "SolveRun.h"

namespace {

class Hunt : public SolveRun {};

using TestLevelFile::Area;
using TestLevelFile::Box;

constexpr std::uint32_t levelEnd = 801;
constexpr std::uint32_t particleKill = 701;
constexpr std::uint32_t toAndFro = 408;
constexpr std::uint32_t liftId = 5;

/// A platform goes up and down between two walls, from the start, and reaches `depth` into them.
LevelFile Lift(int depth) {
    LevelFile level = TestLevelFile::Room();
    level.polygons.push_back(Box(-200 - depth, 100, 200 + depth, 120, liftId));
    level.movers = {{liftId, 90.0f, {0, 0}, {0, -100}}};
    level.triggers = {Area(toAndFro, -30, -30, 30, 30)};
    level.triggers[0].targetId = liftId;
    return level;
}

/// A floor with the finish at its left end and a deep well at its right end.
LevelFile Well() {
    LevelFile level = TestLevelFile::Room();
    level.polygons.push_back(Box(-200, 20, 140, 150));
    level.triggers.push_back(Area(levelEnd, -200, -60, -120, 20));
    level.waterStart = {20, -20};
    level.cameraStart = {0, -20};
    return level;
}

}  // namespace

TEST_F(Hunt, NamesWhereAPlatformCarriesWaterIntoTheWall) {
    game.Write(Lift(0), "lev/a.swah");
    ASSERT_EQ(RunSolve("lev/a.swah --leaks --minutes 4 --seeds 2 --jobs 2 -o a.run"), 3)
        << Read("error.txt");
    const std::string report = Read("out.txt");
    const std::size_t place = report.find("leak near (");
    ASSERT_NE(place, std::string::npos) << report;
    const double x = std::abs(std::strtod(report.c_str() + place + 11, nullptr));
    EXPECT_TRUE(x > 190.0 && x < 206.0) << report;
    // Its run can be looked at.
    EXPECT_EQ(Run("vantrel-sim", "--replay a.run --quiet"), 0) << Read("error.txt");
}

TEST_F(Hunt, IsContentWhereAPlatformRunsInTheWall) {
    LevelFile level = Lift(2);
    // Neither a finish nor lost water ends the hunt.
    level.triggers.push_back(Area(levelEnd, 150, -40, 200, 0));
    game.Write(level, "lev/a.swah");
    EXPECT_EQ(RunSolve("lev/a.swah --leaks --minutes 4"), 0) << Read("out.txt");
    const std::string report = Read("out.txt");
    EXPECT_TRUE(report.starts_with("seed 1: 4.")) << report;
    EXPECT_EQ(report.find(" 0 won"), std::string::npos) << report;
    EXPECT_NE(report.find("drops leaked: 0\n"), std::string::npos) << report;
}

TEST_F(Hunt, NamesThePlaceWhereWaterIsStuck) {
    game.Write(Well(), "lev/a.swah");
    ASSERT_EQ(RunSolve("lev/a.swah --stuck -o a.run --jobs 2 --minutes 5"), 3) << Read("error.txt");
    const std::string report = Read("out.txt");
    int x = 0;
    int y = 0;
    ASSERT_EQ(std::sscanf(report.c_str(), "stuck? near (%d, %d), state water", &x, &y), 2)
        << report;
    EXPECT_TRUE(x > 140 && x < 200 && y > 40) << report;
    EXPECT_NE(report.find("may be stuck: 1;"), std::string::npos) << report;
    // Its run can be looked at, and doesn't finish.
    EXPECT_EQ(Run("vantrel-sim", "--replay a.run --quiet"), 0);
    EXPECT_NE(Read("out.txt").find("finished no"), std::string::npos) << Read("out.txt");
}

TEST_F(Hunt, IsContentWhereThereIsAWayOn) {
    LevelFile level = Well();
    level.triggers.push_back(Area(particleKill, 140, 80, 200, 150));
    game.Write(level, "lev/a.swah");
    EXPECT_EQ(RunSolve("lev/a.swah --stuck --jobs 2 --minutes 5"), 0) << Read("out.txt");
    const std::string report = Read("out.txt");
    EXPECT_TRUE(report.starts_with("places where water may be stuck: 0;")) << report;
}
