// The game itself, heard: a scripted run through the shipped level.

#include "RenderedAudio.h"
#include "audio/MusicPlayer.h"
#include "game/Game.h"
#include "game/GameState.h"
#include "game/LevelProgress.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "menus/MenuManager.h"
#include "platform/Clock.h"
#include "platform/DataRoot.h"
#include "platform/HeadlessWindow.h"
#include "support/Places.h"

namespace {

using namespace Signal;

class RunTest : public testing::Test {
protected:
    static constexpr std::uint32_t frameMs = 20;

    RunTest() {
        SoundManager::SetMasterVolume(1.0f);
        Platform::UseDataRoot(SourceDirectory() / "data");
        Platform::ForgetListings();
        Game::Initialise("lev\\testLevel.swah");
        MenuManager::Show(MenuManager::None);
        MusicPlayer::Stop();
    }
    ~RunTest() override {
        SetPaused(false);
        Platform::ForgetListings();
    }
    std::vector<float> Render(double seconds) { return Signal::Render(audio, seconds); }
    std::vector<float> Play(double seconds) {
        std::vector<float> signal;
        for (int i = 0; i < static_cast<int>(seconds * 1000.0 / frameMs); ++i) {
            clock.Advance(frameMs);
            GLWindow::PumpMessages();
            Game::Frame();
            const auto part = Render(frameMs / 1000.0);
            signal.insert(signal.end(), part.begin(), part.end());
        }
        return signal;
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
    Platform::OpenAlAudio audio{44100};
    Services services{{.clock = &clock, .window = &window, .audio = &audio}};
};

}  // namespace

TEST_F(RunTest, FallsSilentWhenTheLevelIsFinishedAndWhenItIsPaused) {
    std::string reason;
    const auto run = ReadRun(SourceDirectory() / "levels/testLevel.run", reason);
    ASSERT_TRUE(run) << reason;
    RunRecorder::Replay(*run);
    Game::Initialise(run->level);
    MenuManager::Show(MenuManager::None);
    while (Game::StepReplay()) {
    }
    ASSERT_TRUE(LevelProgress::IsFinishing());
    EXPECT_GT(Loudness(Play(0.5)), 1e-4);
    for (int i = 0; i < 30 && MenuManager::Current() != MenuManager::LevelFinished; ++i) {
        Play(1.0);
    }
    ASSERT_EQ(MenuManager::Current(), MenuManager::LevelFinished);
    MenuManager::Show(MenuManager::None);  // and with it the menu's own loop
    Render(4.0);                           // Splashes under way ring out.
    EXPECT_LT(Loudness(Render(0.5)), 1e-6);
    Game::Initialise(run->level);
    MenuManager::Show(MenuManager::None);
    MusicPlayer::Stop();
    EXPECT_GT(Loudness(Play(1.0)), 1e-4) << "the next level is heard";
    SetPaused(true);
    Play(2.0);
    EXPECT_LT(Loudness(Play(0.5)), 1e-6);
}
