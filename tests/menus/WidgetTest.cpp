#include <gtest/gtest.h>

#include "MenuTest.h"
#include "game/LevelProgress.h"
#include "level/LevelData.h"
#include "menus/GuiAnimatedButton.h"
#include "menus/GuiHighScores.h"
#include "menus/GuiImage.h"
#include "menus/GuiLabel.h"
#include "menus/GuiLevelTimeDisplay.h"
#include "menus/GuiOptionChooser.h"
#include "menus/GuiScoreLabel.h"
#include "menus/GuiTextBox.h"
#include "menus/GuiWaterLevel.h"
#include "platform/VirtualKeys.h"
#include "water/ParticleManager.h"

namespace {

using Lines = std::vector<std::string>;

class WidgetTest : public MenuTest {};

TEST_F(WidgetTest, HoldsColoursAndSizesWithinTheirRanges) {
    GuiWidget widget;
    widget.SetColour(-1.0f, 2.0f, 0.5f, 9.0f);
    EXPECT_EQ(widget.red, 0.0f);
    EXPECT_EQ(widget.green, 1.0f);
    EXPECT_EQ(widget.alpha, 1.0f);
    widget.SetSize(-5, 7);
    EXPECT_EQ(widget.width, 0);
    EXPECT_EQ(widget.height, 7);

    GuiLabel label;
    label.SetFontSize(2.0f);
    EXPECT_EQ(label.fontSize, 16.0f);
    GuiTextBox box;
    box.SetFontSize(2.0f);
    EXPECT_EQ(box.fontSize, 4.0f);
}

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

TEST_F(WidgetTest, CentresLinesOverTheirShadows) {
    GuiTextBox box;
    box.SetPosition(50, 60);
    box.SetSize(200, 1);
    box.SetFontSize(10.0f);
    box.SetText("ab\ncdef");
    box.centred = true;
    box.dropShadow = true;
    box.SetShadowOffset(1.0f, 2.0f);
    PaintAfter(box, 0);
    ASSERT_EQ(painter.texts.size(), 4u);
    EXPECT_FLOAT_EQ(painter.texts[0].x, 136.0f);
    EXPECT_FLOAT_EQ(painter.texts[0].y, 62.0f);
    EXPECT_FLOAT_EQ(painter.texts[2].x, 135.0f);  // the closing line feed counts
    EXPECT_FLOAT_EQ(painter.texts[3].x, 130.0f);
    EXPECT_FLOAT_EQ(painter.texts[3].y, 70.0f);
}

class ChooserTest : public WidgetTest {
protected:
    ChooserTest() {
        WritePicture("left.tga", 16, 24);
        WritePicture("right.tga", 16, 24);
        chooser.SetPosition(100, 100);
        chooser.SetSize(200, 40);
        for (const char* text : {"one", "two", "four"}) {
            chooser.AddOption(text);
        }
        chooser.SetLeftFramesOutOfFocus("left.tga");
        chooser.SetRightFramesOutOfFocus("right.tga");
    }
    GuiOptionChooser chooser;
};

TEST_F(ChooserTest, GoesToTheSideOfTheCentreThatIsClicked) {
    chooser.OnMouseDown(200, 120, 1);  // the centre counts as left
    EXPECT_EQ(chooser.selected, 0u);
    chooser.OnMouseDown(201, 120, 1);
    EXPECT_EQ(chooser.selected, 1u);
    chooser.OnKeyDown(VirtualKey::right);
    chooser.OnKeyDown(VirtualKey::right);
    EXPECT_EQ(chooser.selected, 2u);
    chooser.OnKeyDown(VirtualKey::left);
    chooser.OnMouseDown(110, 120, 1);
    chooser.OnMouseDown(110, 120, 1);
    EXPECT_EQ(chooser.selected, 0u);
    chooser.SetSelected(77);
    EXPECT_EQ(chooser.selected, 2u);
    chooser.options.clear();
    chooser.OnMouseDown(201, 120, 1);
    chooser.SetSelected(1);
    EXPECT_EQ(chooser.selected, 0u);
}

TEST_F(ChooserTest, PutsItsArrowsBesideTheTextAndDimsThoseThatLeadNowhere) {
    chooser.SetSelected(2);
    PaintAfter(chooser, 0);
    ASSERT_EQ(painter.images.size(), 2u);
    EXPECT_EQ(painter.LastText(), "four");
    EXPECT_FLOAT_EQ(painter.texts[0].x, 168.0f);
    EXPECT_FLOAT_EQ(painter.texts[0].y, 112.0f);
    EXPECT_FLOAT_EQ(painter.images[0].area.left, 152.0f);
    EXPECT_FLOAT_EQ(painter.images[0].area.top, 108.0f);
    EXPECT_FLOAT_EQ(painter.images[0].colour.alpha, 1.0f);
    EXPECT_FLOAT_EQ(painter.images[1].area.left, 232.0f);
    EXPECT_FLOAT_EQ(painter.images[1].colour.alpha, 0.25f);
    chooser.options.clear();
    chooser.SetSelected(0);
    PaintAfter(chooser, 0);
    EXPECT_EQ(painter.LastText(), "");
    EXPECT_FLOAT_EQ(painter.images[0].colour.alpha, 0.25f);
    EXPECT_FLOAT_EQ(painter.images[1].colour.alpha, 0.25f);
}

TEST_F(ChooserTest, LendsItsFocusAndShadowToTheArrows) {
    chooser.OnGainFocus();
    EXPECT_TRUE(chooser.leftButton.hasFocus);
    EXPECT_EQ(chooser.rightButton.state, GuiAnimatedButton::InFocus);
    chooser.OnLoseFocus();
    EXPECT_FALSE(chooser.rightButton.hasFocus);
    chooser.Reset();
    EXPECT_EQ(chooser.rightButton.state, GuiAnimatedButton::OutOfFocus);
    chooser.SetShadowOffset(5.0f, 6.0f);
    EXPECT_EQ(chooser.leftButton.shadowOffsetX, 5.0f);
}

TEST_F(WidgetTest, ShowsAPartOfAPicture) {
    WritePicture("picture.tga", 200, 100);
    GuiImage image;
    image.SetPosition(10, 20);
    image.SetSize(30, 40);
    image.SetImage("picture.tga");
    EXPECT_EQ(image.sourceWidth, 200.0f);
    image.SetSourceRect(50.0f, 25.0f, 100.0f, 50.0f);
    PaintAfter(image, 0);
    ASSERT_EQ(painter.images.size(), 1u);
    EXPECT_FLOAT_EQ(painter.images[0].source.left, 0.25f);
    EXPECT_FLOAT_EQ(painter.images[0].source.bottom, 0.75f);
    EXPECT_FLOAT_EQ(painter.images[0].area.bottom, 60.0f);
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
    EXPECT_EQ(painter.texts[0].text, "0");
    PaintAfter(screen, 2000);
    EXPECT_EQ(painter.texts[0].text, "32000");
    EXPECT_EQ(painter.texts[1].text, "0");
    PaintAfter(screen, 1999);
    EXPECT_EQ(painter.texts[1].text, "0");
    PaintAfter(screen, 500);
    EXPECT_EQ(painter.texts[0].text, "64000");
    EXPECT_EQ(painter.texts[1].text, "64000");  // a step of half a second is its whole way
    screen.Reset();
    PaintAfter(screen, 1000);
    EXPECT_EQ(painter.texts[0].text, "16000");
    EXPECT_EQ(painter.texts[1].text, "0");
}

/// A level with some water in it whose time is told by the clock.
class FinishedLevelTest : public WidgetTest {
protected:
    FinishedLevelTest() { ParticleManager::particles.clear(); }
    ~FinishedLevelTest() override {
        ParticleManager::particles.clear();
        LevelProgress::Shutdown();
    }
    void Play(std::uint32_t milliseconds) {
        LevelProgress::Initialise();
        clock.Advance(milliseconds);
        LevelProgress::Step(0.01f);
    }
};

TEST_F(FinishedLevelTest, TellsTheTimeOnceItsPredecessorIsDone) {
    ParticleManager::particles.emplace_front();
    Play(3723456);
    GuiScoreLabel before;
    GuiLevelTimeDisplay display;
    display.SetRampTime(1.0f);
    PaintAfter(display, 5000);
    EXPECT_EQ(painter.LastText(), "00:00:00");  // nobody to wait for: it never starts
    display.predecessor = &before;
    before.SetRampTime(1.0f);
    display.Reset();
    PaintAfter(display, 5000);
    EXPECT_EQ(painter.LastText(), "00:00:00");
    PaintAfter(before, 3000);
    PaintAfter(display, 500);
    EXPECT_NE(painter.LastText(), "00:00:00");
    PaintAfter(display, 3000);
    EXPECT_EQ(painter.LastText(), "02:03:45");  // the hour is dropped
}

TEST_F(FinishedLevelTest, RaisesTheWaterByTheShareThatWasSaved) {
    for (int i = 0; i < 64; ++i) {
        ParticleManager::particles.emplace_front();
    }
    GuiWaterLevel level;
    level.SetPosition(100, 200);
    level.SetSize(50, 300);
    level.SetRampTime(2.0f);
    PaintAfter(level, 0);
    EXPECT_FLOAT_EQ(painter.fills.back().area.top, 350.0f);  // at its height until shown anew
    level.Reset();
    PaintAfter(level, 1000);
    EXPECT_FLOAT_EQ(painter.fills.back().area.top, 425.0f);
    EXPECT_FLOAT_EQ(painter.fills.back().area.bottom, 500.0f);
    PaintAfter(level, 9000);
    EXPECT_FLOAT_EQ(painter.fills.back().area.top, 350.0f);
}

TEST_F(FinishedLevelTest, OwnsAnAnimationForItsEnd) {
    WritePicture("img/end_FRAME1.tga", 8, 8);
    WritePicture("img/end_FRAME2.tga", 8, 8);
    directory.Write("cfg/game.cfg",
                    "finishAnimationFrames img\\end_FRAME1.tga finishAnimationFrameRate 6 "
                    "finishAnimationTime 2 finishWaterVolume 0.5");
    Platform::ForgetListings();
    for (int i = 0; i < 10; ++i) {
        ParticleManager::particles.emplace_front();
    }
    Play(0);
    ASSERT_NE(LevelProgress::FinishAnimation(), nullptr);
    EXPECT_EQ(LevelProgress::FinishAnimation()->framesClicked.size(), 2u);
    EXPECT_EQ(LevelProgress::FinishAnimation()->animationSpeed, 6.0f);
    EXPECT_LT(LevelProgress::FinishFade(), 0.0f);
    LevelProgress::AddWaterAtFinish(5);
    LevelProgress::Step(0.01f);
    EXPECT_FLOAT_EQ(LevelProgress::FinishFade(), 0.0f);
    LevelProgress::Step(0.5f);
    EXPECT_FLOAT_EQ(LevelProgress::FinishFade(), 0.25f);
}

TEST_F(WidgetTest, ListsTenScoresInColumns) {
    GuiHighScores table;
    table.SetPosition(10, 20);
    table.SetTitleFontSize(20.0f);
    table.SetEntryFontSize(10.0f);
    table.SetTitleFontSize(1.0f);  // too small to be taken
    table.dropShadow = true;
    table.SetShadowOffset(2.0f, 2.0f);
    PaintAfter(table, 0);
    ASSERT_EQ(painter.texts.size(), 66u);
    EXPECT_FLOAT_EQ(painter.texts[0].x, 12.0f);
    EXPECT_EQ(painter.texts[34].text, "Name");
    EXPECT_FLOAT_EQ(painter.texts[34].x, 130.0f);
    EXPECT_EQ(painter.texts[63].text, "10");
    EXPECT_FLOAT_EQ(painter.texts[63].y, 20.0f + 2.0f * 20.0f + 9.0f * 20.0f);
    EXPECT_FLOAT_EQ(painter.texts[65].x, 370.0f);
    EXPECT_FLOAT_EQ(painter.texts[65].size, 10.0f);
}

}  // namespace
