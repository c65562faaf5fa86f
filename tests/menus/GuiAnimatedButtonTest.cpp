#include "menus/GuiAnimatedButton.h"

#include "MenuTest.h"

namespace {

class ButtonTest : public MenuTest {
protected:
    ButtonTest() {
        for (const char* number : {"1", "2", "3"}) {
            WritePicture(std::string("img/idle_FRAME") + number + ".tga", 40, 20);
        }
        for (const char* number : {"1", "2", "3", "4", "5"}) {
            WritePicture(std::string("img/focus_FRAME") + number + ".tga", 60, 20);
        }
        WritePicture("img/click.tga", 50, 30);
        for (GuiAnimatedButton* button : {&first, &second}) {
            button->SetFramesOutOfFocus("img\\idle_FRAME1.tga");
            button->SetFramesInFocus("img\\focus_FRAME1.tga");
            button->SetFramesClicked("img\\click.tga");
            button->SetSize(100, 50);
        }
        second.SetPosition(0, 100);
        screen.Reset();
    }

    /// One step of the animation per paint.
    void Frames(int count) {
        for (int i = 0; i < count; ++i) {
            PaintAfter(screen, 100);
        }
    }

    GuiScreen screen;
    GuiAnimatedButton& first = screen.Add<GuiAnimatedButton>();
    GuiAnimatedButton& second = screen.Add<GuiAnimatedButton>();
};

TEST_F(ButtonTest, LoopsItsIdleFrames) {
    ASSERT_EQ(first.framesOutOfFocus.size(), 3u);
    EXPECT_EQ(first.framesClicked.size(), 1u);
    Frames(2);
    EXPECT_EQ(first.frame, 2u);
    EXPECT_EQ(first.CurrentFrame()->name, "IMG\\idle_FRAME3.tga");
    Frames(1);
    EXPECT_EQ(first.frame, 0u);
    PaintAfter(screen, 5000);  // a long time unpainted is one step, too
    EXPECT_EQ(first.frame, 1u);
    first.animationSpeed = 0.0f;
    Frames(3);
    EXPECT_EQ(first.frame, 1u);
}

TEST_F(ButtonTest, PlaysItsFocusForwardHoldsItAndRunsItBackward) {
    screen.OnMouseMove(50, 25);
    EXPECT_EQ(first.state, GuiAnimatedButton::InFocus);
    EXPECT_EQ(first.frame, 0u);
    Frames(2);
    EXPECT_EQ(first.frame, 2u);
    screen.OnMouseMove(400, 400);
    Frames(1);
    EXPECT_EQ(first.frame, 1u);
    screen.OnMouseMove(50, 25);  // back again: forward from here
    Frames(2);
    EXPECT_EQ(first.frame, 3u);
    Frames(4);
    EXPECT_EQ(first.frame, 4u);
    screen.OnMouseMove(400, 400);
    Frames(4);
    EXPECT_EQ(first.state, GuiAnimatedButton::InFocus);
    EXPECT_EQ(first.frame, 0u);
    Frames(1);
    EXPECT_EQ(first.state, GuiAnimatedButton::OutOfFocus);
    EXPECT_EQ(first.frame, 0u);
}

}  // namespace
