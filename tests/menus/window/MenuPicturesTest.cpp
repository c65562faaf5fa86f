// Pictures of all menus, the typing of a name, the end of a level and the console in windows of
// three shapes, with the settings and pictures that ship, compared with the kept ones in pictures/.
// The clock is scripted, so that every animation stands where it stood; no level lies behind; and
// the driver is the one that compiles nothing for the processor at hand, so that it draws the same
// everywhere. So no pixel may differ. A picture that does is left full-sized in the working
// directory.
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

#include "engine/Console.h"
#include "game/GameMenuHost.h"
#include "game/HighScoreTable.h"
#include "game/HighScores.h"
#include "game/LevelProgress.h"
#include "game/Services.h"
#include "graphics/ConsoleDraw.h"
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
        setenv("GALLIUM_DRIVER", "softpipe", 1);
        // First in the list, whatever levels ship.
        directory.Write("lev/00First.swah", "");
        Platform::ForgetListings();
        Platform::UseDataRoot(SourceDirectory() / "data");
        services.emplace(
            ServiceOptions{.clock = &clock,
                           .window = &window,
                           .screen = {&device, &painter, nullptr, Console::ReleaseFont},
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
        const std::string reduced = "convert '" + large + "' -scale 25% -depth 8 ";
        Save(large);
        if (std::getenv("VANTREL_RENEW_PICTURES") != nullptr) {
            Output(reduced + "'" + kept + "'");
            return;
        }
        const std::string pixelsThatDiffer = Output(
            reduced + "small.png; compare -metric AE small.png '" + kept + "' null: 2>&1; :");
        if (pixelsThatDiffer != "0") {
            ADD_FAILURE() << name << ": " << pixelsThatDiffer;
        } else {
            std::filesystem::remove(large);
        }
    }

    void ClearAsTheGameDoes() { painter.Clear({0.055f, 0.075f, 0.095f}); }
    /// Shows a menu from its first frame on, with its default button reached by keys. Frames that
    /// nobody looks at are drawn into one pixel, which takes no time.
    void CompareMenu(int menu, const std::string& name, int milliseconds = 700) {
        MenuManager::Show(menu);
        MenuManager::OnKeyDown(VirtualKey::enter);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_SCISSOR_TEST);
        glScissor(0, 0, 1, 1);
        for (int passed = 100; passed <= milliseconds; passed += 100) {
            if (passed == milliseconds) {
                glDisable(GL_SCISSOR_TEST);
            }
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
        window.onSwap = [] { Compare("nameEntry"); };
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

    /// With what was printed, and a line that is being typed.
    void CompareConsole() {
        Console::Clear();
        Console::Print("\nThe water has reached the sea\nin 203.4 seconds");
        for (const char c : std::string_view("GRAVITY 100")) {
            Console::HandleKey(c);
        }
        ClearAsTheGameDoes();
        Console::Draw();
        Compare("console");
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
        CompareConsole();
    }
}

}  // namespace
