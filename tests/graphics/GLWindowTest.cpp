#include "graphics/GLWindow.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "graphics/GLWindowCursor.h"
#include "graphics/GLWindowDisplay.h"
#include "platform/HeadlessWindow.h"

namespace {

using Platform::DisplayMode;
using Platform::EventKind;

/// Writes down what it hears.
class Recorder : public GLWindowEventListener {
public:
    void OnMouseMove(int x, int y) override { Add("move", x, y); }
    void OnMouseDown(int x, int y, int button) override { Add("down" + Text(button), x, y); }
    void OnMouseUp(int x, int y, int button) override { Add("up" + Text(button), x, y); }
    void OnKeyDown(int key) override { heard.push_back("key " + Text(key)); }
    void OnKeyUp(int key) override { heard.push_back("keyUp " + Text(key)); }
    void OnResize() override { heard.emplace_back("resize"); }
    void OnClose() override { heard.emplace_back("close"); }
    void OnDestroy() override { heard.emplace_back("destroy"); }
    void OnPaint() override {
        heard.emplace_back("paint");
        GLWindow::RequestRepaint();
    }
    void OnFocusLost() override { heard.emplace_back("focusLost"); }

    /// What was heard since the last call.
    std::vector<std::string> Take() { return std::exchange(heard, {}); }

private:
    static std::string Text(int number) { return std::to_string(number); }
    void Add(const std::string& what, int x, int y) {
        heard.push_back(what + " " + Text(x) + " " + Text(y));
    }
    std::vector<std::string> heard;
};

using Heard = std::vector<std::string>;

class GLWindowTest : public testing::Test {
protected:
    GLWindowTest() {
        Platform::UseWindow(&window);
        GLWindow::Create("Game", 800, 600);
        GLWindow::PumpMessages();
        GLWindow::SetListener(&recorder);
    }
    ~GLWindowTest() override {
        GLWindow::SetListener(nullptr);
        GLWindow::Close();
        Platform::UseWindow(nullptr);
    }
    int BestRate(const std::vector<int>& rates) {
        std::vector<DisplayMode> modes{{640, 480, 60}};
        for (const int rate : rates) {
            modes.push_back({800, 600, rate});
        }
        window.SetDisplayModes(modes);
        DisplayMode best;
        EXPECT_TRUE(GLWindow::FindDisplayMode(800, 600, best));
        return best.refreshRate;
    }

    Platform::HeadlessWindow window;
    Recorder recorder;
};

TEST_F(GLWindowTest, CallsTheListenerForEachEvent) {
    window.SetCursorPosition(window.ClientLeft() + 3, window.ClientTop() + 4);
    window.SetButton(4, true);
    window.SetButton(4, false);
    window.SetKey('A', true);
    window.SetKey('A', false);
    GLWindow::RequestRepaint();
    GLWindow::PumpMessages();
    EXPECT_EQ(recorder.Take(),
              (Heard{"move 3 4", "down4 3 4", "up4 3 4", "key 65", "keyUp 65", "paint"}));
    EXPECT_EQ(GLWindow::TakeLastKey(), 'A');
    EXPECT_EQ(GLWindow::TakeLastKey(), 0);
    GLWindow::PumpMessages();
    EXPECT_EQ(recorder.Take(), Heard{"paint"}) << "asked for within the paint before";
}

TEST_F(GLWindowTest, MinimisesOncePerLossOfTheForeground) {
    window.SetForeground(false);
    for (int i = 0; i < 3; ++i) {
        GLWindow::PumpMessages();
    }
    EXPECT_EQ(recorder.Take(), Heard{"focusLost"});
    EXPECT_EQ(window.MinimiseCount(), 1);

    // Back, but the keyboard comes a little later than the picture.
    window.SetMinimised(false);
    GLWindow::PumpMessages();
    EXPECT_EQ(window.MinimiseCount(), 1);
    window.SetForeground(true);
    GLWindow::PumpMessages();
    window.SetForeground(false);
    GLWindow::PumpMessages();
    EXPECT_EQ(recorder.Take(), Heard{"focusLost"});
    EXPECT_EQ(window.MinimiseCount(), 2);
}

TEST_F(GLWindowTest, LeavesAWindowAloneThatTheUserMinimised) {
    window.SetMinimised(true);
    window.SetForeground(false);
    GLWindow::PumpMessages();
    window.SetMinimised(false);
    GLWindow::PumpMessages();
    EXPECT_EQ(window.MinimiseCount(), 0);
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(GLWindowTest, HoldsBackWhatWouldChangeTheWindow) {
    GLWindow::HoldEvents();
    GLWindow::SetListener(nullptr);
    window.SetClientSize(640, 480);
    window.SetForeground(false);
    window.QueueEvent({.kind = EventKind::Close});
    window.SetKey('A', true);
    GLWindow::PumpMessages();
    GLWindow::PumpMessages();
    EXPECT_TRUE(GLWindow::IsOpen());
    EXPECT_EQ(window.MinimiseCount(), 0);
    EXPECT_EQ(window.ViewportWidth(), 800) << "of another context";
    GLWindow::ReleaseEvents();
    GLWindow::SetListener(&recorder);
    EXPECT_TRUE(GLWindow::IsOpen());
    GLWindow::PumpMessages();
    EXPECT_EQ(recorder.Take(), (Heard{"resize", "close", "destroy"}));
    EXPECT_FALSE(GLWindow::IsOpen());

    GLWindow::Create("Game", 800, 600);
    GLWindow::SetListener(&recorder);
    GLWindow::HoldEvents();
    window.SetForeground(false);
    GLWindow::PumpMessages();
    GLWindow::ReleaseEvents();
    GLWindow::PumpMessages();
    EXPECT_EQ(recorder.Take(), Heard{"focusLost"});
    EXPECT_EQ(window.MinimiseCount(), 1);
}

TEST_F(GLWindowTest, WalksTowardsSixtyHertz) {
    EXPECT_EQ(BestRate({60, 75, 85}), 60);
    EXPECT_EQ(BestRate({85, 75, 60}), 60);
    EXPECT_EQ(BestRate({75, 60, 85}), 60);
    EXPECT_EQ(BestRate({50, 56}), 56);
    EXPECT_EQ(BestRate({72, 85}), 72);
    EXPECT_EQ(BestRate({50, 85}), 85) << "from below it takes any higher rate";
    EXPECT_FALSE(GLWindow::HasDisplayMode(801, 600));
}

TEST_F(GLWindowTest, ShowsTheArrowOutsideOfTheClientArea) {
    const auto paintAt = [&](int x, int y) {
        window.SetCursorPosition(x, y);
        GLWindow::RequestRepaint();
        GLWindow::PumpMessages();
    };
    paintAt(window.ClientLeft() + 10, window.ClientTop() + 10);
    GLWindow::SetCursorKind(Platform::Cursor::Empty);
    paintAt(window.ClientLeft() + 20, window.ClientTop() + 10);
    EXPECT_EQ(window.CursorShown(), Platform::Cursor::Empty);
    paintAt(0, 0);
    EXPECT_EQ(window.CursorShown(), Platform::Cursor::Arrow);
    EXPECT_EQ(GLWindow::GetCursorKind(), Platform::Cursor::Arrow);
}

TEST_F(GLWindowTest, FallsBackWhenTheContextHasFewerSamplesThanWereOffered) {
    GLWindow::SetTitle("Mine");
    GLWindow::SetCursorKind(Platform::Cursor::Cross);
    GLWindow::SetClientSize(640, 480);
    GLWindow::Move(50, 60);
    window.SetSampleLimits(8, 4);
    EXPECT_FALSE(GLWindow::SetSamples(8));
    EXPECT_EQ(GLWindow::Samples(), 1u);
    EXPECT_TRUE(GLWindow::SetSamples(4));
    EXPECT_FALSE(GLWindow::SetSamples(8));
    EXPECT_EQ(GLWindow::Samples(), 4u) << "back to what it had";
    // Nothing but the context has changed.
    EXPECT_EQ(window.Title(), "Mine");
    EXPECT_EQ(window.CursorShown(), Platform::Cursor::Cross);
    EXPECT_EQ(GLWindow::ClientWidth(), 640);
    EXPECT_EQ(GLWindow::WindowLeft(), 50);
    EXPECT_EQ(GLWindow::GetListener(), &recorder);
}

TEST_F(GLWindowTest, FindsExtensionsAsWholeWords) {
    window.SetExtensions("GL_ARB_one GL_EXT_swap_control_tear\nGL_ARB_two ");
    EXPECT_TRUE(GLWindow::HasExtension("gl_arb_ONE"));
    EXPECT_TRUE(GLWindow::HasExtension("GL_ARB_two"));
    EXPECT_FALSE(GLWindow::HasExtension("GL_EXT_swap_control"));
    EXPECT_FALSE(GLWindow::HasExtension(""));
    std::vector<std::string> names;
    GLWindow::ListExtensions(names);
    EXPECT_EQ(names,
              (std::vector<std::string>{"GL_ARB_one", "GL_EXT_swap_control_tear", "GL_ARB_two"}));
    GLWindow::Close();
    EXPECT_FALSE(GLWindow::HasExtension("GL_ARB_one"));
}

}  // namespace
