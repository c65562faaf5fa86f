// Recorded runs: whatever the player did besides steering, the replay goes the same way.

#include "game/RunRecorder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <utility>

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

    /// A run in the file: eleven seconds of tilting to one side.
    ::Run Recorded() {
        RunRecorder::Record(Path());
        game.Start(level);
        game.window.SetKey(VirtualKey::left, true);
        game.Frames(700);
        game.window.SetKey(VirtualKey::left, false);
        RunRecorder::LevelEnds();
        RunRecorder::Stop();
        std::string reason;
        return ReadRun(Path(), reason).value();
    }
    /// Replays the run in the file to its end; what standard error says meanwhile.
    std::string Replayed() {
        testing::internal::CaptureStderr();
        StartReplay();
        while (Game::StepReplay()) {
        }
        return testing::internal::GetCapturedStderr();
    }
    /// The last of equal keys counts.
    void AddSetting(const std::string& file, const std::string& words) {
        std::ofstream(game.directory.path / file, std::ios::app) << ' ' << words << '\n';
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
    EXPECT_FALSE(RunRecorder::HasDiffered());
}

TEST_F(Replay, ComesToTheSameStatesInSilenceAndGivesTheSameRun) {
    const ::Run run = Recorded();
    EXPECT_GE(run.hashes.size(), 3u);
    EXPECT_EQ(run.hashes.back(), StateHash());
    AddSetting("cfg/water.cfg", "water_color_r 0.3 ROOMTEMPERATURE 20.0");
    EXPECT_EQ(Replayed(), "");
    EXPECT_EQ(RunRecorder::Current(), run);
}

TEST_F(Replay, TellsOfOtherSettingsAndOtherHashes) {
    ::Run run = Recorded();
    const std::string other = "recorded under other settings";
    for (const auto& [file, words] :
         {std::pair("cfg/mist.cfg", "frequency 0.06"), std::pair("cfg/water.cfg", "gravity 501")}) {
        AddSetting(file, words);
        const std::string said = Replayed();
        EXPECT_NE(said.find(other), std::string::npos) << words << ": " << said;
        EXPECT_NE(said.find("parted between 0.0 s"), std::string::npos) << words << ": " << said;
        ASSERT_TRUE(WriteRun(Path(), RunRecorder::Current()));
    }
    ++run.hashKind;
    ASSERT_TRUE(WriteRun(Path(), run));
    const std::string said = Replayed();
    EXPECT_NE(said.find("another kind"), std::string::npos) << said;
    EXPECT_FALSE(RunRecorder::HasDiffered()) << "what can't be compared";
    run.hashes.clear();
    ASSERT_TRUE(WriteRun(Path(), run));
    EXPECT_EQ(Replayed(), "") << "of a run that knows nothing of them";
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
