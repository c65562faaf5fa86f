// The real program on small levels with and without a place where water is stuck for good.

#include <cstdio>

#include "SolveRun.h"

namespace {

class Stuck : public SolveRun {};

using TestLevelFile::Area;
using TestLevelFile::Box;

constexpr std::uint32_t levelEnd = 801;
constexpr std::uint32_t particleKill = 701;

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

TEST_F(Stuck, NamesThePlaceWhereWaterIsStuck) {
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
    EXPECT_EQ(Run(VANTREL_SIM_PROGRAM, "--replay a.run --quiet"), 0);
    EXPECT_NE(Read("out.txt").find("finished no"), std::string::npos) << Read("out.txt");
}

TEST_F(Stuck, IsContentWhereThereIsAWayOn) {
    LevelFile level = Well();
    level.triggers.push_back(Area(particleKill, 140, 80, 200, 150));
    game.Write(level, "lev/a.swah");
    EXPECT_EQ(RunSolve("lev/a.swah --stuck --jobs 2 --minutes 5"), 0) << Read("out.txt");
    const std::string report = Read("out.txt");
    EXPECT_TRUE(report.starts_with("places where water may be stuck: 0;")) << report;
}
