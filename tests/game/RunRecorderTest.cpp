// Recorded runs: whatever the player did besides steering, the replay goes the same way.

#include "game/RunRecorder.h"

#include <gtest/gtest.h>

#include "game/StateHash.h"
#include "platform/VirtualKeys.h"
#include "support/TestGame.h"

namespace {

using TestLevelFile::Area;
using TestLevelFile::Room;

constexpr std::uint32_t levelEnd = 801;

struct Replay : testing::Test {
    Replay() {
        RunRecorder::Stop();
        // Emitters whose direction is drawn at random.
        level.emitters = {{6, {20, 30}, {0.0f, 0.0f}, "cfg\\mist.cfg"},
                          {7, {450, 0}, {0.0f, 0.0f}, "cfg\\mist.cfg"}};
        game.directory.Write("cfg/mist.cfg",
                             "active true frequency 0.05 spread 90 velocity_1 5 velocity_2 80\n"
                             "liveTime_1 0.2 liveTime_2 2 texture0 a\n");
    }
    ~Replay() override { RunRecorder::Stop(); }

    std::string Path() const { return (game.directory.path / "a.run").string(); }
    /// Starts the run's level in another window, with other random numbers and a key held.
    void StartReplay() {
        std::string reason;
        auto run = ReadRun(Path(), reason);
        ASSERT_TRUE(run && FitsLevel(*run, reason)) << reason;
        Random::state = 4711;
        GLWindow::SetClientSize(640, 480);
        game.window.SetKey(VirtualKey::right, true);
        const std::string name = run->level;
        RunRecorder::Replay(std::move(*run));
        Game::Initialise(name);
        ASSERT_TRUE(RunRecorder::IsReplaying());
        EXPECT_EQ(MenuManager::Current(), MenuManager::None);
    }

    TestGame game;
    LevelFile level = Room();
};

TEST_F(Replay, GoesThroughMenusPausesAndWindowShapesAsRecorded) {
    GLWindow::SetClientSize(1280, 720);
    RunRecorder::Record(Path());
    game.Write(level, "lev/a.swah");
    Game::Initialise((game.directory.path / "lev/a.swah").string());
    game.Frames(50);  // before the main menu
    MenuManager::Show(MenuManager::None);
    game.window.SetKey(VirtualKey::left, true);
    game.Frames(150, 17);
    EXPECT_GT(Camera::angle, 1.0f);
    Console::Execute("Restart");  // what came before is no part of the run
    game.Frames(100);
    Console::Execute("Pause true");
    game.Frames(30);  // the view turns on
    Console::Execute("Pause false");
    game.window.SetKey(VirtualKey::left, false);
    GLWindow::SetClientSize(500, 700);
    game.Frames(60, 33);
    MenuManager::Show(MenuManager::InGame);
    game.Frames(40);
    MenuManager::Show(MenuManager::None);
    Console::Execute("FreeCamera true");
    game.Frames(200, 19);
    game.Frames(20, 2000);  // a machine that slept; no step of a run lasts as long
    ASSERT_FALSE(Camera::IsOpeningFlight());
    const std::uint64_t end = StateHash();
    const std::uint32_t time = LevelProgress::ElapsedMs();
    EXPECT_GT(time, 1000u);

    RunRecorder::LevelEnds();
    RunRecorder::Stop();
    StartReplay();
    EXPECT_EQ(RunRecorder::Current().level, "lev\\a.swah");
    EXPECT_NEAR(RunRecorder::Current().viewWidth, 1066.7f, 0.1f);
    while (Game::StepReplay()) {
    }
    EXPECT_EQ(StateHash(), end);
    EXPECT_EQ(LevelProgress::ElapsedMs(), time);
}

TEST_F(Replay, EndsWithTheFinishedLevelAsInPlay) {
    level.triggers = {Area(levelEnd, -200, 100, 200, 150)};
    RunRecorder::Record(Path());
    game.Start(level);
    game.window.SetKey(VirtualKey::left, true);
    ASSERT_TRUE(game.FramesUntil(LevelProgress::IsFinished));
    const std::uint64_t end = StateHash();
    const std::uint32_t score = LevelProgress::TotalScore();
    EXPECT_FALSE(RunRecorder::WantsRecording()) << "a finished run isn't recorded over";
    RunRecorder::Stop();

    StartReplay();
    EXPECT_EQ(LevelProgress::ElapsedMs(), 0u);
    game.Frames(40, 5);
    MenuManager::Show(MenuManager::InGame);  // the viewer's, which holds the replay
    const std::uint64_t held = StateHash();
    game.Frames(50);
    EXPECT_EQ(StateHash(), held);
    MenuManager::Show(MenuManager::None);
    ASSERT_TRUE(game.FramesUntil(LevelProgress::IsFinished));
    EXPECT_EQ(StateHash(), end);
    EXPECT_EQ(LevelProgress::TotalScore(), score);
    EXPECT_EQ(MenuManager::Current(), MenuManager::LevelFinished);
    EXPECT_TRUE(RunRecorder::WasReplayed()) << "its score doesn't count";
}

TEST_F(Replay, NamesNoLevelOutsideOfTheGame) {
    const TemporaryDirectory elsewhere;
    const auto file = elsewhere.path / "b.swah";
    game.Write(level, "b.swah");
    std::filesystem::rename(game.directory.path / "b.swah", file);
    RunRecorder::Record(Path());
    testing::internal::CaptureStderr();
    Game::Initialise(file.string());
    EXPECT_NE(testing::internal::GetCapturedStderr(), "") << "where the run will look for it";
    EXPECT_EQ(RunRecorder::Current().level, "lev\\b.swah");
    const WorkingDirectoryGuard inDirectory(elsewhere.path);
    Game::Initialise(file.string());
    EXPECT_EQ(RunRecorder::Current().level, "b.swah");
}

TEST_F(Replay, HandsTheLevelToThePlayerAtTheRunsEnd) {
    RunRecorder::Record(Path());
    game.Start(level);
    game.Frames(300);
    RunRecorder::LevelEnds();
    RunRecorder::Stop();
    StartReplay();
    const auto isOver = [] { return !RunRecorder::IsReplaying(); };
    ASSERT_TRUE(game.FramesUntil(isOver, 400)) << "at the speed of the recording";
    const float angle = Camera::angle;
    EXPECT_EQ(angle, 0.0f) << "the key that was held meant nothing";
    const std::uint32_t time = LevelProgress::ElapsedMs();
    game.Frames(50);
    EXPECT_LT(Camera::angle, angle);
    EXPECT_NEAR(LevelProgress::ElapsedMs(), time + 800, 100);
}

}  // namespace
