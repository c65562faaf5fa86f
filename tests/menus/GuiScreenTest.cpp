#include "menus/GuiScreen.h"

#include <vector>

#include "MenuTest.h"
#include "platform/VirtualKeys.h"

namespace {

/// Remembers what reached it.
class Probe : public GuiWidget {
public:
    void OnMouseDown(int, int, int) override { ++presses; }
    void OnKeyDown(int) override { ++keys; }
    void OnGainFocus() override { ++gains; }
    void OnLoseFocus() override { ++losses; }

    int presses = 0;
    int keys = 0;
    int gains = 0;
    int losses = 0;
};

/// What the callbacks heard, in order.
struct Heard {
    GuiWidget* widget;
    int code;  // button or key
    bool operator==(const Heard&) const = default;
};
std::vector<Heard> heard;

bool Stay(GuiWidget* widget, int, int, int button) {
    heard.push_back({widget, button});
    return false;
}
bool Leave(GuiWidget* widget, int, int, int button) {
    heard.push_back({widget, button});
    return true;
}
bool StayOnKey(GuiWidget* widget, int key) {
    heard.push_back({widget, key});
    return false;
}
/// Drops everything, then says that the screen stays.
bool FlushAndStay(GuiWidget* widget, int, int, int button) {
    heard.push_back({widget, button});
    widget->owner->FlushPending();
    return false;
}

class GuiScreenTest : public MenuTest {
protected:
    GuiScreenTest() {
        heard.clear();
        left.SetPosition(100, 100);
        left.SetSize(200, 50);
        right.SetPosition(400, 100);
        right.SetSize(200, 50);
        screen.Reset();
    }

    void PointAtLeft() { screen.OnMouseMove(150, 120); }
    void PointAtRight() { screen.OnMouseMove(450, 120); }
    void PointAtNothing() { screen.OnMouseMove(10, 10); }

    GuiScreen screen;
    Probe& left = screen.Add<Probe>();
    Probe& right = screen.Add<Probe>();
};

TEST_F(GuiScreenTest, GivesOverlappingWidgetsTheirFocusInListOrder) {
    right.SetPosition(100, 100);
    PointAtLeft();
    EXPECT_EQ(screen.focus, &left);
    EXPECT_FALSE(right.hasFocus);
    left.enabled = false;
    PointAtLeft();
    EXPECT_EQ(screen.focus, &right);
    EXPECT_EQ(left.losses, 1);
}

TEST_F(GuiScreenTest, WakesTheKeyboardFocusWithTheFirstKeyOnly) {
    screen.OnKeyDown(VirtualKey::enter);
    EXPECT_EQ(screen.focus, nullptr);

    Probe foreign;
    screen.SetDefaultFocus(&foreign);
    EXPECT_EQ(screen.defaultFocus, nullptr);
    screen.SetDefaultFocus(&left);
    left.MapKey(VirtualKey::right, &right);
    right.MapKey(VirtualKey::right, &foreign);
    right.enabled = false;
    screen.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(screen.focus, &left);
    EXPECT_EQ(left.keys, 0);
    screen.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(left.keys, 1);
    EXPECT_EQ(screen.focus, &right);  // keys reach what the mouse can't
    EXPECT_TRUE(right.hasFocus);
    EXPECT_FALSE(left.hasFocus);
    screen.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(screen.focus, &right);  // never to another screen's widget

    PointAtNothing();
    EXPECT_EQ(screen.focus, nullptr);
    EXPECT_FALSE(right.hasFocus);
    screen.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(screen.focus, &left);
}

TEST_F(GuiScreenTest, RunsADelayedCallbackOnThePaintThatBringsItsDelayToAnEnd) {
    left.onMouseDown = Stay;
    screen.OnMouseDown(150, 120, MouseButton::left);
    EXPECT_TRUE(heard.empty());  // no mouse move has set a focus yet
    PointAtLeft();
    screen.OnMouseDown(150, 120, MouseButton::middle);
    EXPECT_EQ(heard, (std::vector<Heard>{{&left, 4}}));  // without a delay, within the event
    heard.clear();
    left.delayMouseDown = 0.8f;
    screen.OnMouseDown(150, 120, MouseButton::left);
    EXPECT_EQ(left.presses, 2);
    PaintAfter(screen, 500);
    clock.Advance(200);
    EXPECT_TRUE(heard.empty());
    PaintAfter(screen, 200);
    EXPECT_EQ(heard, (std::vector<Heard>{{&left, 1}}));
    PaintAfter(screen, 2000);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(GuiScreenTest, LetsACallbackThatStaysLeaveTheOthersPending) {
    left.onMouseDown = Stay;
    left.delayMouseDown = 0.2f;
    left.onKeyDown = StayOnKey;
    left.delayKeyDown = 0.2f;
    PointAtLeft();
    screen.OnMouseDown(150, 120, MouseButton::left);
    screen.OnKeyDown('A');
    screen.OnMouseDown(150, 120, MouseButton::right);
    PaintAfter(screen, 300);
    EXPECT_EQ(heard, (std::vector<Heard>{{&left, 1}, {&left, 2}, {&left, 65}}));
}

TEST_F(GuiScreenTest, DropsAllThatIsPendingOnceACallbackHasLeft) {
    left.onMouseDown = Leave;
    left.delayMouseDown = 0.8f;
    left.onKeyDown = StayOnKey;
    left.delayKeyDown = 0.8f;
    PointAtLeft();
    screen.OnKeyDown('A');
    screen.OnMouseDown(150, 120, MouseButton::left);
    screen.OnMouseDown(150, 120, MouseButton::right);
    PaintAfter(screen, 900);
    EXPECT_EQ(heard, (std::vector<Heard>{{&left, 1}}));
    PaintAfter(screen, 2000);
    EXPECT_EQ(heard.size(), 1u);

    heard.clear();
    left.onMouseDown = FlushAndStay;
    screen.OnMouseDown(150, 120, MouseButton::left);
    screen.OnMouseDown(150, 120, MouseButton::right);
    PaintAfter(screen, 900);
    EXPECT_EQ(heard, (std::vector<Heard>{{&left, 1}}));
}

TEST_F(GuiScreenTest, FreezesWhatIsPendingWhileUnpaintedUntilTheNextShowing) {
    left.onMouseDown = Stay;
    left.delayMouseDown = 0.8f;
    PointAtLeft();
    screen.OnMouseDown(150, 120, MouseButton::left);
    clock.Advance(60000);
    EXPECT_TRUE(heard.empty());
    screen.Reset();
    EXPECT_EQ(screen.focus, nullptr);
    PaintAfter(screen, 2000);
    EXPECT_TRUE(heard.empty());
    // The flag outlives the showing, so the pointer has to leave before it focuses anew.
    PointAtLeft();
    EXPECT_EQ(left.gains, 1);
    EXPECT_EQ(screen.focus, &left);
    PointAtNothing();
    PointAtLeft();
    EXPECT_EQ(left.gains, 2);
}

}  // namespace
