// Pictures of all menus, the typing of a name and the end of a level in windows of three shapes,
// with the settings and pictures that ship, compared with the kept ones in pictures/. The clock
// is scripted, so that every animation stands where it stood; no level lies behind. A picture
// that differs is left full-sized in the working directory.
//
// VANTREL_RENEW_PICTURES=1 keeps the pictures anew (needs ImageMagick's convert) and leaves all
// of them full-sized in the working directory, to be looked at before they are committed.

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "game/GameMenuHost.h"
#include "game/HighScoreTable.h"
#include "game/HighScores.h"
#include "game/LevelProgress.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "graphics/ImageReader.h"
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
#include "support/TemporaryDirectory.h"
#include "water/ParticleManager.h"

namespace {

// Taken before the tests go to a directory of their own.
const std::filesystem::path resultFolder = std::filesystem::current_path();

constexpr int keptWidth = 200;
constexpr int block = 8;  // pixels of a kept picture

// Of 255. Drivers filter and blend a little differently; a word, a place or a frame that has
// changed exceeds the second by far.
constexpr double mostOnAverage = 1.5;
constexpr double mostInABlock = 8.0;

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;  // rows from the top
};

/// Made smaller, each pixel the mean of those that it stands for.
Picture Reduced(const Picture& large) {
    Picture small{keptWidth, large.height * keptWidth / large.width, {}};
    for (int y = 0; y < small.height; ++y) {
        const int top = y * large.height / small.height;
        const int bottom = (y + 1) * large.height / small.height;
        for (int x = 0; x < small.width; ++x) {
            const int left = x * large.width / small.width;
            const int right = (x + 1) * large.width / small.width;
            for (int channel = 0; channel < 3; ++channel) {
                int sum = 0;
                for (int row = top; row < bottom; ++row) {
                    for (int column = left; column < right; ++column) {
                        sum += large.rgb[static_cast<std::size_t>((row * large.width + column) * 3 +
                                                                  channel)];
                    }
                }
                small.rgb.push_back(
                    static_cast<std::uint8_t>(sum / ((bottom - top) * (right - left))));
            }
        }
    }
    return small;
}

/// Mean differences of two pictures of one size: of the whole, and of the block that differs
/// most.
std::pair<double, double> Difference(const Picture& a, const Picture& b) {
    double sum = 0.0;
    double worst = 0.0;
    for (int top = 0; top < a.height; top += block) {
        for (int left = 0; left < a.width; left += block) {
            const int bottom = std::min(top + block, a.height);
            const int right = std::min(left + block, a.width);
            double inBlock = 0.0;
            for (int y = top; y < bottom; ++y) {
                for (int i = (y * a.width + left) * 3; i < (y * a.width + right) * 3; ++i) {
                    const auto at = static_cast<std::size_t>(i);
                    inBlock += std::abs(a.rgb[at] - b.rgb[at]);
                }
            }
            sum += inBlock;
            worst = std::max(worst, inBlock / ((bottom - top) * (right - left) * 3));
        }
    }
    return {sum / static_cast<double>(a.rgb.size()), worst};
}

/// As a PNG file.
void Save(const Picture& picture, const std::filesystem::path& path) {
    const std::string plain = path.string() + ".ppm";
    std::ofstream(plain, std::ios::binary) << "P6\n"
                                           << picture.width << ' ' << picture.height << "\n255\n"
                                           << std::string(picture.rgb.begin(), picture.rgb.end());
    const std::string command = "convert '" + plain + "' -strip '" + path.string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    std::filesystem::remove(plain);
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
        Platform::UseDataRoot(VANTREL_SOURCE_DIR "/data");
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
        for (int i = 0; i < 96; ++i) {
            ParticleManager::particles.emplace_front();
        }
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

    static Picture Finished() {
        Picture picture{GLWindow::ClientWidth(), GLWindow::ClientHeight(), {}};
        const auto rowBytes = static_cast<std::size_t>(picture.width) * 3;
        picture.rgb.resize(rowBytes * static_cast<std::size_t>(picture.height));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        for (int row = 0; row < picture.height; ++row) {
            glReadPixels(0, picture.height - 1 - row, picture.width, 1, GL_RGB, GL_UNSIGNED_BYTE,
                         &picture.rgb[rowBytes * static_cast<std::size_t>(row)]);
        }
        return picture;
    }

    static std::filesystem::path KeptPath(const std::string& name) {
        return VANTREL_SOURCE_DIR "/tests/menus/window/pictures/" + name + ".png";
    }
    Picture Kept(const std::string& name) {
        const auto file = device.LoadImage(KeptPath(name));
        if (!file) {
            return {};
        }
        Picture picture{static_cast<int>(file->width), static_cast<int>(file->height), {}};
        for (const std::uint32_t pixel : ConvertImage(*file).pixels) {
            for (const int shift : {16, 8, 0}) {
                picture.rgb.push_back(static_cast<std::uint8_t>(pixel >> shift));
            }
        }
        return picture;
    }

    void Compare(const std::string& menu) {
        const Picture large = Finished();
        const Picture small = Reduced(large);
        const std::string name =
            menu + '_' + std::to_string(large.width) + 'x' + std::to_string(large.height);
        if (std::getenv("VANTREL_RENEW_PICTURES") != nullptr) {
            Save(large, resultFolder / (name + ".png"));
            Save(small, KeptPath(name));
            return;
        }
        const Picture kept = Kept(name);
        ASSERT_EQ(kept.rgb.size(), small.rgb.size()) << name;
        const auto [average, worst] = Difference(small, kept);
        if (average > mostOnAverage || worst > mostInABlock) {
            ADD_FAILURE() << name << ": average " << average << ", worst block " << worst;
            Save(large, resultFolder / (name + ".png"));
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
