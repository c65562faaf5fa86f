// The frame loop: when modules step, with how much time, and what a frame serves at its end.

#include <gtest/gtest.h>

#include <cmath>

#include "support/TestGame.h"

namespace {

TEST(Frame, StepsFromItsSeedAndThenByTheMeanOfSixteenFrames) {
    TestGame game;
    game.Start(TestLevelFile::Room());
    const std::uint32_t before = Game::StepCount();
    game.Frames(1, 16);
    EXPECT_EQ(Game::StepCount(), before + 1);
    EXPECT_FLOAT_EQ(Game::LastStep(), 0.01f);

    game.Frames(14, 16);
    EXPECT_EQ(Game::StepCount(), before + 1) << "no frame time is known before 16 frames";
    game.Frames(1, 16);
    EXPECT_EQ(Game::StepCount(), before + 2);
    EXPECT_FLOAT_EQ(Game::LastStep(), 0.016f);

    game.Frames(16, 2);
    const std::uint32_t fast = Game::StepCount();
    game.Frames(10, 2);
    EXPECT_EQ(Game::StepCount(), fast + 2) << "every fifth frame of 2 ms gathers a step";
}

TEST(Frame, SlowsDownInsteadOfTakingLongSteps) {
    TestGame game;
    LevelFile level = TestLevelFile::Room();
    level.movers = {{5, 30.0f, {0, 0}, {1000, 0}}};
    game.Start(level);
    game.Frames(40, 100);
    ASSERT_FALSE(Camera::IsOpeningFlight());
    MoverManager::movers.front().state = Mover::GoingToEnd;
    game.Frames(1, 100);
    EXPECT_FLOAT_EQ(Game::LastStep(), 0.1f);
    EXPECT_FLOAT_EQ(MoverManager::movers.front().distance, 30.0f * 0.033333335f);
}

TEST(Frame, PauseStandsStillAndOutlivesARestart) {
    TestGame game;
    game.Start(TestLevelFile::Room());
    game.FramesUntil([] { return !Camera::IsOpeningFlight(); });
    Console::Execute("Pause true");
    const std::uint64_t hash = WaterCheck::Hash();
    const std::uint32_t time = LevelProgress::ElapsedMs();
    game.Frames(50);
    EXPECT_EQ(WaterCheck::Hash(), hash);
    EXPECT_EQ(LevelProgress::ElapsedMs(), time);
    game.Restart();
    EXPECT_TRUE(Game::IsPaused());
    Console::Execute("Pause false");
    game.Frames(50);
    EXPECT_NE(WaterCheck::Hash(), hash);
}

TEST(Frame, ServesANewMapBeforeARestartAndKeepsTheOldOneIfItFails) {
    TestGame game;
    game.Start(TestLevelFile::Room());
    game.Write(TestLevelFile::Room(), "lev/b.swah");
    Game::RequestRestart();
    Game::RequestMap("lev/b.swah");
    game.Frames(1);
    EXPECT_EQ(Game::MapName(), "lev/b.swah");

    const std::size_t polygons = LevelData::polygons.size();
    Game::RequestMap("lev/missing.swah");
    game.Frames(1);
    EXPECT_EQ(Game::MapName(), "lev/b.swah");
    EXPECT_EQ(LevelData::polygons.size(), polygons);
    EXPECT_EQ(MenuManager::Current(), MenuManager::Main);
}

}  // namespace
