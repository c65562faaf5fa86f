// The real program on a level with a platform between two walls, which it fits exactly or runs
// into.

#include "SolveRun.h"

namespace {

class Leaks : public SolveRun {};

using TestLevelFile::Area;
using TestLevelFile::Box;

constexpr std::uint32_t levelEnd = 801;
constexpr std::uint32_t toAndFro = 408;
constexpr std::uint32_t liftId = 5;

/// The lift goes up and down from the start and reaches `depth` into the walls.
LevelFile Lift(int depth) {
    LevelFile level = TestLevelFile::Room();
    level.polygons.push_back(Box(-200 - depth, 100, 200 + depth, 120, liftId));
    level.movers = {{liftId, 90.0f, {0, 0}, {0, -100}}};
    level.triggers = {Area(toAndFro, -30, -30, 30, 30)};
    level.triggers[0].targetId = liftId;
    return level;
}

}  // namespace

TEST_F(Leaks, NamesWhereAPlatformCarriesWaterIntoTheWall) {
    game.Write(Lift(0), "lev/a.swah");
    ASSERT_EQ(RunSolve("lev/a.swah --leaks --minutes 4 --seeds 2 --jobs 2 -o a.run"), 3)
        << Read("error.txt");
    const std::string report = Read("out.txt");
    const std::size_t place = report.find("leak near (");
    ASSERT_NE(place, std::string::npos) << report;
    const double x = std::abs(std::strtod(report.c_str() + place + 11, nullptr));
    EXPECT_TRUE(x > 190.0 && x < 206.0) << report;
    // Its run can be looked at.
    EXPECT_EQ(Run(VANTREL_SIM_PROGRAM, "--replay a.run --quiet"), 0) << Read("error.txt");
}

TEST_F(Leaks, IsContentWhereThePlatformRunsInTheWall) {
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
