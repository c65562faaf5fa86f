#include <gtest/gtest.h>

#include "MenuTest.h"
#include "menus/GuiOptionChooser.h"
#include "menus/GuiScoreLabel.h"
#include "menus/GuiTextBox.h"
#include "platform/VirtualKeys.h"

namespace {

using Lines = std::vector<std::string>;

class WidgetTest : public MenuTest {};

TEST_F(WidgetTest, WrapsTextAtWordsAndKeepsLineBreaks) {
    GuiTextBox box;
    box.SetSize(100, 1);
    box.SetFontSize(10.0f);
    box.SetText("still waters run very deep");
    EXPECT_EQ(box.lines, (Lines{"still ", "waters run ", "very deep"}));
    box.SetText("one\r\ntwo\n\nfour");
    EXPECT_EQ(box.lines, (Lines{"one\r", "\n", "two\n", "\n", "four"}));
    box.SetText("exactly10c\nnext");
    EXPECT_EQ(box.lines, (Lines{"exactly10c\n", "next"}));
    box.SetText("");
    EXPECT_TRUE(box.lines.empty());
    // A word that fits on no line goes down one character at a time, until its rest fits.
    box.SetText("extraordinary end");
    EXPECT_EQ(box.lines, (Lines{"e", "x", "t", "raordinary ", "end"}));
    // Whatever the text, nothing of it is lost.
    const std::string odd = std::string("\xff\x01   \r\r\n ") + std::string(50, 'w') + " x";
    for (const int width : {0, 1, 15, 40, 100, 5000}) {
        box.SetSize(width, 1);
        box.SetText(odd);
        std::string joined;
        for (const std::string& line : box.lines) {
            EXPECT_FALSE(line.empty());
            joined += line;
        }
        EXPECT_EQ(joined, odd) << width;
    }
}

TEST_F(WidgetTest, AChooserGoesToTheSideOfItsCentreThatIsClicked) {
    GuiOptionChooser chooser;
    chooser.SetPosition(100, 100);
    chooser.SetSize(200, 40);
    for (const char* text : {"one", "two", "four"}) {
        chooser.AddOption(text);
    }
    chooser.OnMouseDown(200, 120, MouseButton::left);  // the centre counts as left
    EXPECT_EQ(chooser.selected, 0u);
    chooser.OnMouseDown(201, 120, MouseButton::left);
    EXPECT_EQ(chooser.selected, 1u);
    chooser.OnKeyDown(VirtualKey::right);
    chooser.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(chooser.selected, 2u);
    chooser.OnKeyDown(VirtualKey::left);
    chooser.OnMouseDown(110, 120, MouseButton::left);
    chooser.OnMouseDown(110, 120, MouseButton::left);
    EXPECT_EQ(chooser.selected, 0u);
    chooser.SetSelected(77);
    EXPECT_EQ(chooser.selected, 2u);
    chooser.options.clear();
    chooser.OnMouseDown(201, 120, MouseButton::left);
    chooser.SetSelected(1);
    EXPECT_EQ(chooser.selected, 0u);
}

std::uint32_t FinalScore() {
    return 64000;
}

TEST_F(WidgetTest, CountsScoresUpOneAfterTheOther) {
    GuiScreen screen;
    auto& water = screen.Add<GuiScoreLabel>();
    auto& total = screen.Add<GuiScoreLabel>();
    water.SetRampTime(4.0f);
    total.SetRampTime(0.0f);  // becomes the shortest there is
    water.valueSource = FinalScore;
    total.valueSource = FinalScore;
    total.predecessor = &water;
    screen.Reset();

    PaintAfter(screen, 0);
    EXPECT_EQ(painter.texts[0], "0");
    PaintAfter(screen, 2000);
    EXPECT_EQ(painter.texts[0], "32000");
    EXPECT_EQ(painter.texts[1], "0");
    PaintAfter(screen, 1999);
    EXPECT_EQ(painter.texts[1], "0");
    PaintAfter(screen, 500);
    EXPECT_EQ(painter.texts[0], "64000");
    EXPECT_EQ(painter.texts[1], "64000");  // a step of half a second is its whole way
    screen.Reset();
    PaintAfter(screen, 1000);
    EXPECT_EQ(painter.texts[0], "16000");
    EXPECT_EQ(painter.texts[1], "0");
}

}  // namespace
