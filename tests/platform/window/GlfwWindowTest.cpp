// The real window on a real display, with keys and mouse from outside.

#include "platform/GlfwWindow.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "graphics/GLWindowDisplay.h"
#include "platform/Clock.h"
#include "platform/VirtualKeys.h"

namespace {

/// Output of a shell command.
std::string Shell(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return output;
    }
    std::array<char, 256> block{};
    while (std::fgets(block.data(), static_cast<int>(block.size()), pipe) != nullptr) {
        output += block.data();
    }
    pclose(pipe);
    return output;
}

void Xdotool(const std::string& arguments) {
    Shell("xdotool " + arguments);
}

class Recorder : public GLWindowEventListener {
public:
    void OnKeyDown(int key) override { keys.emplace_back(key, GLWindow::KeyToChar(key)); }
    void OnMouseDown(int x, int y, int button) override { clicks.push_back({x, y, button}); }
    void OnMouseMove(int x, int y) override { moves.push_back({x, y}); }
    void OnClose() override { ++closes; }
    void OnPaint() override { ++paints; }
    void OnFocusLost() override { ++losses; }

    std::vector<std::pair<int, char>> keys;
    std::vector<std::array<int, 3>> clicks;
    std::vector<std::array<int, 2>> moves;
    int closes = 0;
    int paints = 0;
    int losses = 0;
};

/// A window as the game opens it. `AnyDesktop` tests need no window manager.
class AnyDesktop : public testing::Test {
protected:
    AnyDesktop() {
        Xdotool("mousemove 5 5");
        Platform::UseWindow(&window);
        GLWindow::Create("Vantrel test", 800, 600);
        GLWindow::SetListener(&recorder);
        EXPECT_TRUE(PumpUntil([] { return GLWindow::IsForeground(); }));
    }
    ~AnyDesktop() override {
        GLWindow::SetListener(nullptr);
        GLWindow::Close();
        Platform::UseWindow(nullptr);
    }

    /// Runs the window's loop until something has come about, for a few seconds at most.
    bool PumpUntil(const std::function<bool()>& condition, std::uint32_t milliseconds = 5000) {
        const std::uint32_t start = clock.Milliseconds();
        while (!condition()) {
            if (clock.Milliseconds() - start > milliseconds) {
                return false;
            }
            GLWindow::PumpMessages();
            clock.Sleep(2);
        }
        return true;
    }
    void PumpFor(std::uint32_t milliseconds) {
        PumpUntil([] { return false; }, milliseconds);
    }
    /// Words that have the pointer moved to a place in client pixels.
    std::string To(int x, int y) const {
        return " mousemove " + std::to_string(window.ClientLeft() + x) + " " +
               std::to_string(window.ClientTop() + y) + " ";
    }
    /// What keys sent from outside arrive as.
    std::vector<std::pair<int, char>> Type(const std::string& keys, std::size_t count) {
        recorder.keys.clear();
        Xdotool("key " + keys);
        PumpUntil([&] { return recorder.keys.size() >= count; });
        return recorder.keys;
    }

    Platform::SteadyClock clock;
    Platform::GlfwWindow window;
    Recorder recorder;
};

class ManagedDesktop : public AnyDesktop {};

using Keys = std::vector<std::pair<int, char>>;

TEST_F(AnyDesktop, OpensWithTheClientAreaAskedFor) {
    EXPECT_EQ(GLWindow::ClientWidth(), 800);
    EXPECT_EQ(GLWindow::ClientHeight(), 600);
    EXPECT_EQ(GLWindow::ScreenWidth(), 1280);
    EXPECT_NEAR(GLWindow::WindowLeft(), (1280 - window.OuterWidth()) / 2, 2);
    EXPECT_NEAR(GLWindow::WindowTop(), (1024 - window.OuterHeight()) / 2, 2);
    EXPECT_FALSE(window.RendererText().empty());
    EXPECT_TRUE(GLWindow::HasExtension("gl_arb_MULTISAMPLE"));
    EXPECT_FALSE(GLWindow::IsResizable());
}

TEST_F(AnyDesktop, KeepsAMouseAtRestAtTheCentre) {
    for (const int size : {600, 601, 333}) {
        GLWindow::SetClientSize(size, size);
        PumpFor(50);
        GLWindow::WarpCursorToCentre();
        EXPECT_EQ(GLWindow::CursorScreenX(), GLWindow::ClientCentreScreenX());
        PumpFor(50);
        EXPECT_EQ(GLWindow::CursorScreenX(), GLWindow::ClientCentreScreenX());
        EXPECT_EQ(GLWindow::CursorScreenY(), GLWindow::ClientCentreScreenY());
        EXPECT_TRUE(GLWindow::IsCursorInClient());
        Xdotool("mousemove_relative 30 7");
        PumpFor(50);
        EXPECT_EQ(GLWindow::CursorScreenX() - GLWindow::ClientCentreScreenX(), 30);
    }
    GLWindow::Move(-500, 100);
    PumpFor(50);
    GLWindow::WarpCursorToCentre();
    EXPECT_EQ(GLWindow::CursorScreenX(), GLWindow::ClientCentreScreenX());
}

TEST_F(AnyDesktop, TakesKeysWithTheirCharacters) {
    EXPECT_EQ(Type("a", 1), (Keys{{'A', 'a'}}));
    EXPECT_EQ(Type("shift+a", 2), (Keys{{16, 0}, {'A', 'A'}}));
    EXPECT_EQ(Type("7", 1), (Keys{{'7', '7'}}));
    EXPECT_EQ(Type("grave", 1), (Keys{{VirtualKey::console, '`'}}));
    EXPECT_EQ(Type("Return Escape Tab BackSpace Pause", 5),
              (Keys{{13, 13}, {27, 27}, {9, 9}, {8, 8}, {19, 0}}));
    EXPECT_EQ(Type("Caps_Lock b Caps_Lock c", 4), (Keys{{20, 0}, {'B', 'B'}, {20, 0}, {'C', 'c'}}));
    // By their places: the names of what they type would have the lock changed for them.
    EXPECT_EQ(Type("83 80 Num_Lock 83 80 Num_Lock", 6),
              (Keys{{37, 0}, {38, 0}, {144, 0}, {100, '4'}, {104, '8'}, {144, 0}}));
    EXPECT_FALSE(GLWindow::IsKeyToggled(VirtualKey::insert));
    Type("Insert", 1);
    EXPECT_TRUE(GLWindow::IsKeyToggled(VirtualKey::insert));

    Xdotool("keydown Left");
    EXPECT_TRUE(PumpUntil([] { return GLWindow::IsKeyDown(VirtualKey::left); }));
    Xdotool("keyup Left");
    EXPECT_TRUE(PumpUntil([] { return !GLWindow::IsKeyDown(VirtualKey::left); }));
}

using Moves = std::vector<std::array<int, 2>>;
using Clicks = std::vector<std::array<int, 3>>;

TEST_F(AnyDesktop, TakesClicksWhereTheyWereMade) {
    Xdotool(To(40, 30) + "click 1" + To(0, 0) + "click 3 click 2" + To(500, 400));
    ASSERT_TRUE(PumpUntil([&] { return GLWindow::MouseX() == 500; }));
    EXPECT_EQ(recorder.clicks, (Clicks{{40, 30, 1}, {0, 0, 2}, {0, 0, 4}}));
    EXPECT_EQ(GLWindow::MouseY(), 400);

    // The window goes away under a pointer at rest.
    GLWindow::Move(GLWindow::WindowLeft() - 50, GLWindow::WindowTop() + 20);
    PumpFor(50);
    Xdotool("click 1");
    ASSERT_TRUE(PumpUntil([&] { return recorder.clicks.size() == 4; }));
    EXPECT_EQ(recorder.clicks[3], (std::array{550, 380, 1}));
    Xdotool("mousemove_relative -- -50 20 click 1");
    ASSERT_TRUE(PumpUntil([&] { return recorder.clicks.size() == 5; }));
    EXPECT_EQ(recorder.clicks[4], (std::array{500, 400, 1})) << "the place reported last but one";
}

TEST_F(AnyDesktop, HearsOfEachMoveOfTheMouseAroundAWarp) {
    Xdotool(To(40, 30));
    ASSERT_TRUE(PumpUntil([&] { return GLWindow::MouseX() == 40; }));
    GLWindow::WarpCursorToCentre();
    PumpFor(50);
    EXPECT_EQ(recorder.moves.back(), (std::array{399, 299}));
    recorder.moves.clear();
    // Where it was before, in and out of where it was put, and into the corner.
    Xdotool(To(40, 30) + To(399, 299) + To(398, 299) + To(399, 299) + "click 1" + To(0, 0) +
            To(1, 1) + To(0, 0) + "click 1");
    ASSERT_TRUE(PumpUntil([&] { return recorder.clicks.size() == 2; }));
    EXPECT_EQ(recorder.moves,
              (Moves{{40, 30}, {399, 299}, {398, 299}, {399, 299}, {0, 0}, {1, 1}, {0, 0}}));
    EXPECT_EQ(recorder.clicks, (Clicks{{399, 299, 1}, {0, 0, 1}}));
}

TEST_F(AnyDesktop, GetsTheSamplesThatTheDriverHas) {
    EXPECT_FALSE(GLWindow::SetSamples(1000));
    EXPECT_EQ(GLWindow::Samples(), 1u);
    if (!GLWindow::SetSamples(4)) {
        GTEST_SKIP() << "no multisampling here";
    }
    GLint samples = 0;
    glGetIntegerv(GL_SAMPLES, &samples);
    EXPECT_GE(samples, 4);
    EXPECT_EQ(GLWindow::ClientWidth(), 800);
    EXPECT_EQ(GLWindow::GetListener(), &recorder);
    EXPECT_TRUE(PumpUntil([] { return GLWindow::IsForeground(); }));
    EXPECT_EQ(recorder.losses, 0);
    EXPECT_EQ(Type("a", 1), (Keys{{'A', 'a'}}));
    EXPECT_TRUE(GLWindow::SetSamples(1));
    EXPECT_TRUE(GLWindow::IsResizable());
}

TEST_F(AnyDesktop, GoesFullscreenAndBack) {
    GLWindow::SetFullscreen(true, 799, 600);
    EXPECT_FALSE(GLWindow::IsFullscreen());
    GLWindow::SetFullscreen(true, GLWindow::ScreenWidth(), GLWindow::ScreenHeight());
    ASSERT_TRUE(GLWindow::IsFullscreen());
    PumpFor(100);
    EXPECT_EQ(GLWindow::ClientWidth(), 1280);
    EXPECT_EQ(GLWindow::ClientHeight(), 1024);
    EXPECT_EQ(window.ClientLeft(), 0);
    GLWindow::SetFullscreen(false, 700, 500);
    PumpFor(100);
    EXPECT_EQ(GLWindow::ClientWidth(), 700);
    EXPECT_EQ(GLWindow::ClientHeight(), 500);
    EXPECT_NEAR(window.ClientLeft(), (1280 - 700) / 2, 40);
    EXPECT_EQ(recorder.losses, 0);
}

TEST_F(AnyDesktop, HearsOfALostForegroundOnce) {
    // Another window takes the keyboard.
    const std::string other = Shell("xev -geometry 200x100+0+0 >/dev/null 2>&1 & echo $!");
    std::string found;
    for (int i = 0; i < 100 && found.empty(); ++i) {
        found = Shell("xdotool search --onlyvisible --name 'Event Tester' 2>/dev/null");
        clock.Sleep(20);
    }
    Xdotool("windowfocus " + found);
    EXPECT_TRUE(PumpUntil([&] { return recorder.losses > 0; }));
    PumpFor(300);
    EXPECT_EQ(recorder.losses, 1);
    EXPECT_FALSE(GLWindow::IsForeground());
    Shell("kill " + other);
}

TEST_F(ManagedDesktop, MinimisesAndComesBack) {
    const std::string id = Shell("xdotool search --name 'Vantrel test'");
    for (int round = 1; round <= 2; ++round) {
        const bool fullscreen = round == 2;
        if (fullscreen) {
            GLWindow::SetFullscreen(true, GLWindow::ScreenWidth(), GLWindow::ScreenHeight());
            PumpFor(100);
        }
        const std::string other = Shell("xev -geometry 200x100+0+0 >/dev/null 2>&1 & echo $!");
        Shell("sleep 0.3; xdotool windowactivate $(xdotool search --name 'Event Tester')");
        EXPECT_TRUE(PumpUntil([&] { return recorder.losses == round; }));
        EXPECT_TRUE(PumpUntil([] { return GLWindow::IsMinimised(); }));
        Shell("xdotool windowactivate " + id);
        EXPECT_TRUE(PumpUntil([] { return GLWindow::IsForeground() && !GLWindow::IsMinimised(); }));
        PumpFor(200);
        EXPECT_EQ(recorder.losses, round);
        EXPECT_FALSE(GLWindow::IsMinimised());
        EXPECT_EQ(GLWindow::ClientWidth(), fullscreen ? 1280 : 800);
        EXPECT_EQ(Type("a", 1), (Keys{{'A', 'a'}}));
        Shell("kill " + other);
        PumpFor(100);
    }
}

}  // namespace
