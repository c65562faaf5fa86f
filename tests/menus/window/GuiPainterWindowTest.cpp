// What the GL painter puts on a real window, read back.

#include "graphics/window/WindowFixture.h"
#include "menus/GuiImage.h"
#include "menus/GuiPainterDraw.h"
#include "menus/GuiScreen.h"

namespace {

/// A page of 800 by 600 units on a window of 320 by 240 pixels: 2.5 units to the pixel.
class GuiPainterWindowTest : public WindowFixture {
protected:
    void SetUp() override {
        WindowFixture::SetUp();
        GuiPainter::Use(&painter);
    }
    void TearDown() override {
        GuiPainter::Use(nullptr);
        WindowFixture::TearDown();
    }
    static int Red(int x, int y) { return ReadChannel(GL_RED, x, y, 1, 1).front(); }
    static int Blue(int x, int y) { return ReadChannel(GL_BLUE, x, y, 1, 1).front(); }

    GLGuiPainter painter;
};

TEST_F(GuiPainterWindowTest, FillsFromTopToBottomColourAndBlends) {
    painter.Clear(0.0f, 0.0f, 1.0f);
    painter.BeginPage(0.0f, 0.0f, 0.4f, 0.4f);
    painter.FillRect({100.0f, 100.0f, 200.0f, 350.0f}, {0.0f, 0.0f, 0.0f, 1.0f},
                     {1.0f, 0.0f, 0.0f, 1.0f});
    painter.FillRect({400.0f, 100.0f, 500.0f, 200.0f}, {1.0f, 0.0f, 0.0f, 0.5f},
                     {1.0f, 0.0f, 0.0f, 0.5f});
    painter.EndPage();
    EXPECT_EQ(Red(39, 60), 0);  // just outside
    EXPECT_EQ(Blue(40, 60), 0);
    EXPECT_NEAR(Red(60, 40), 0, 4);
    EXPECT_NEAR(Red(60, 90), 128, 4);
    EXPECT_NEAR(Red(60, 139), 255, 4);
    EXPECT_EQ(Red(60, 140), 0);
    EXPECT_NEAR(Red(180, 60), 128, 2);
    EXPECT_NEAR(Blue(180, 60), 128, 2);
}

TEST_F(GuiPainterWindowTest, ShowsPicturesRightSideUpAndTintsThem) {
    // Red and green above, blue and white below; painted as a widget of a screen.
    GuiScreen screen;
    screen.swapAfterPaint = false;
    auto& image = screen.Add<GuiImage>();
    image.SetImage("samples\\tga32.tga");
    image.SetSize(400, 400);
    auto& part = screen.Add<GuiImage>();
    part.SetImage("samples\\tga32.tga");
    part.SetPosition(400, 0);
    part.SetSize(400, 400);
    part.SetSourceRect(1.0f, 1.0f, 1.0f, 1.0f);
    part.SetColour(0.5f, 1.0f, 1.0f, 1.0f);
    screen.OnPaint();
    EXPECT_EQ(Red(20, 20), 255);
    EXPECT_EQ(Blue(20, 20), 0);
    EXPECT_EQ(Red(20, 140), 0);
    EXPECT_EQ(Blue(20, 140), 255);
    EXPECT_NEAR(Red(200, 60), 128, 2);
    EXPECT_NEAR(Red(300, 140), 128, 2);
}

TEST_F(GuiPainterWindowTest, DrawsTextInPageUnitsAndRestoresTheState) {
    const Texture font("no_such_font", "DEFAULT_FONT");
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_CULL_FACE);
    painter.BeginPage(0.0f, 0.0f, 0.4f, 0.4f);
    EXPECT_FALSE(glIsEnabled(GL_CULL_FACE));
    painter.DrawText(font, "#", 100.0f, 100.0f, 40.0f, {1.0f, 0.0f, 0.0f, 1.0f});
    painter.DrawTextCentred(font, "#", {400.0f, 100.0f, 500.0f, 200.0f}, 40.0f,
                            {0.0f, 0.0f, 1.0f, 1.0f});
    painter.FillRect({600.0f, 100.0f, 640.0f, 140.0f}, {}, {});
    painter.EndPage();
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));

    const auto count = [](GLenum channel, int x, int y, int w, int h) {
        int lit = 0;
        for (const std::uint8_t value : ReadChannel(channel, x, y, w, h)) {
            lit += value > 100 ? 1 : 0;
        }
        return lit;
    };
    EXPECT_GT(count(GL_RED, 40, 40, 16, 16), 20);
    EXPECT_GT(count(GL_BLUE, 172, 52, 16, 16), 20);
    EXPECT_EQ(count(GL_RED, 240, 40, 16, 16), 256);
    // Nothing but these three.
    EXPECT_EQ(count(GL_RED, 0, 0, 320, 240), count(GL_RED, 40, 40, 16, 16) + 256);
}

}  // namespace
