// Pictures of all menus, the typing of a name and the end of a level in windows of three shapes,
// with the settings and pictures that ship, compared with the kept ones in pictures/. The clock
// is scripted, so that every animation stands where it stood; no level lies behind. A picture
// that differs is left full-sized in the working directory.
//
// VANTREL_RENEW_PICTURES=1 keeps the pictures anew and leaves all of them full-sized in the
// working directory, to be looked at before they are committed.

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include "game/GameMenuHost.h"
#include "game/HighScoreTable.h"
#include "game/HighScores.h"
#include "game/LevelProgress.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureDeviceDraw.h"
#include "menus/GuiPainterDraw.h"
#include "menus/MenuHost.h"
#include "menus/MenuManager.h"
#include "menus/Menu_LevelFinished.h"
#include "platform/Clock.h"
#include "platform/DataRoot.h"
#include "platform/GlfwWindow.h"
#include "platform/Paths.h"
#include "platform/VirtualKeys.h"
#include "support/Places.h"
#include "support/TemporaryDirectory.h"
#include "water/ParticleManager.h"

namespace {

// Taken before the tests go to a directory of their own.
const std::filesystem::path resultFolder = std::filesystem::current_path();

// Of 255: of the whole picture, and of the block of it that differs most. Drivers filter and blend
// a little differently; a word, a place or a frame that has changed exceeds the second by far.
constexpr double mostOnAverage = 1.5;
constexpr double mostInABlock = 8.0;

/// What a shell command prints.
std::string Output(const std::string& command) {
    FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 256> text{};
    const std::size_t length = std::fread(text.data(), 1, text.size(), pipe);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return {text.data(), length};
}

/// Each key makes the character of its code; the finished picture can be looked at.
class ScriptedWindow : public Platform::GlfwWindow {
public:
    char KeyToChar(int virtualKey) const override { return static_cast<char>(virtualKey); }
    void SwapBuffers() override {
        if (onSwap) {
            onSwap();
        }
        GlfwWindow::SwapBuffers();
    }
    std::function<void()> onSwap;
};

class MenuPicturesTest : public testing::Test {
protected:
    void SetUp() override {
        // First in the list, whatever levels ship.
        directory.Write("lev/00First.swah", "");
        Platform::ForgetListings();
        Platform::UseDataRoot(SourceDirectory() / "data");
        services.emplace(ServiceOptions{.clock = &clock,
                                        .window = &window,
                                        .screen = {&device, &painter},
                                        .title = "Vantrel test",
                                        .width = 400,
                                        .height = 300});
        HighScoreTable::Load();
        HighScoreTable::Insert({"Ada", 500000});
        HighScoreTable::Insert({"wide mmm WWW 0123456", 4294967295});
        FinishALevel();
        MenuHost::Use(&GameMenuHost());
        MenuManager::Initialise();
    }
    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        MenuManager::Shutdown();
        MenuHost::Use(nullptr);
        LevelProgress::Shutdown();
        ParticleManager::particles.clear();
        services.reset();
        Platform::ForgetListings();
    }

    /// With three quarters of the water, in a good time.
    void FinishALevel() {
        ParticleManager::particles.resize(96);
        LevelProgress::Initialise();
        clock.Advance(203456);
        LevelProgress::Step(0.01f);
    }

    void Resize(int width, int height) {
        GLWindow::SetClientSize(width, height);
        Platform::SteadyClock real;
        const std::uint32_t start = real.Milliseconds();
        while ((GLWindow::ClientWidth() != width || GLWindow::ClientHeight() != height) &&
               real.Milliseconds() - start < 20000) {
            GLWindow::PumpMessages();
            real.Sleep(5);
        }
        ASSERT_EQ(GLWindow::ClientWidth(), width);
        ASSERT_EQ(GLWindow::ClientHeight(), height);
        window.SetViewport(width, height);
        window.SwapBuffers();  // takes the picture's new size into force
    }

    /// The window's picture, as a file.
    static void Save(const std::string& path) {
        const int width = GLWindow::ClientWidth();
        const int height = GLWindow::ClientHeight();
        std::string rows(static_cast<std::size_t>(width * height) * 3, '\0');
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rows.data());
        std::ofstream("bottomUp.ppm", std::ios::binary) << "P6\n"
                                                        << width << ' ' << height << "\n255\n"
                                                        << rows;
        Output("convert bottomUp.ppm -flip -strip '" + path + "'");
    }

    static void Compare(const std::string& menu) {
        const std::string name = menu + '_' + std::to_string(GLWindow::ClientWidth()) + 'x' +
                                 std::to_string(GLWindow::ClientHeight()) + ".png";
        const std::string large = (resultFolder / name).string();
        const std::string kept = SourceDirectory() / "tests/menus/window/pictures" / name;
        const std::string reduced = "convert '" + large + "' -scale 25% ";
        Save(large);
        if (std::getenv("VANTREL_RENEW_PICTURES") != nullptr) {
            Output(reduced + "'" + kept + "'");
            return;
        }
        const std::string told =
            Output(reduced + "'" + kept +
                   "' -compose difference -composite -separate -evaluate-sequence mean"
                   " -format '%[fx:mean*255] ' -write info: -scale 12.5%"
                   " -format '%[fx:maxima*255]' info:");
        double average = 0.0;
        double worst = 0.0;
        ASSERT_EQ(std::sscanf(told.c_str(), "%lf %lf", &average, &worst), 2) << name << told;
        if (average > mostOnAverage || worst > mostInABlock) {
            ADD_FAILURE() << name << ": average " << average << ", worst block " << worst;
        } else {
            std::filesystem::remove(large);
        }
    }

    void ClearAsTheGameDoes() { painter.Clear({0.055f, 0.075f, 0.095f}); }
    /// Shows a menu from its first frame on, with its default button reached by keys.
    void CompareMenu(int menu, const std::string& name, int milliseconds = 700) {
        MenuManager::Show(menu);
        MenuManager::OnKeyDown(VirtualKey::enter);
        glEnable(GL_DEPTH_TEST);
        for (int passed = 0; passed < milliseconds; passed += 100) {
            clock.Advance(100);
            ClearAsTheGameDoes();
            MenuManager::Draw();
        }
        EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST)) << "the state around a menu is to stay";
        glDisable(GL_DEPTH_TEST);
        Compare(name);
    }
    /// With the longest name there is, over the end of a level.
    void CompareNameEntry() {
        Menu_LevelFinished finished;
        HighScores entry(&finished);
        for (const char c : std::string_view("ADA LOVELACE 1815 WQ")) {
            entry.OnKeyDown(c);
        }
        window.onSwap = [this] { Compare("nameEntry"); };
        entry.OnPaint();
        window.onSwap = nullptr;
    }
    /// The water that closes over a finished level, when it has all but done so.
    void CompareFinish() {
        LevelProgress::Take({.waterInFinish = 96});
        LevelProgress::Step(0.01f);
        LevelProgress::Step(1.2f);
        ClearAsTheGameDoes();
        LevelProgress::Draw();
        Compare("finish");
        LevelProgress::Initialise();
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
    Platform::ScriptedClock clock;
    ScriptedWindow window;
    GLTextureDevice device;
    GLGuiPainter painter;
    std::optional<Services> services;
};

TEST_F(MenuPicturesTest, LookAsTheyDidInThreeShapesOfWindow) {
    constexpr int sizes[][2] = {{800, 600}, {1280, 720}, {600, 800}};
    for (const auto& size : sizes) {
        Resize(size[0], size[1]);
        CompareMenu(MenuManager::Main, "main");
        CompareMenu(MenuManager::InGame, "inGame");
        CompareMenu(MenuManager::Options, "options");
        CompareMenu(MenuManager::HighScores, "highScores");
        CompareMenu(MenuManager::Instructions, "instructions");
        CompareMenu(MenuManager::QuitGame, "quitGame");
        CompareMenu(MenuManager::LoadMap, "loadMap");
        CompareMenu(MenuManager::Credits, "credits");
        CompareMenu(MenuManager::LevelFinished, "levelFinishing", 3000);
        CompareMenu(MenuManager::LevelFinished, "levelFinished", 9000);
        CompareMenu(MenuManager::Restart, "restart");
        CompareNameEntry();
        CompareFinish();
    }
}

}  // namespace
