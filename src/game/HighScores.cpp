// Typing a name; see HighScores.h.

#include "game/HighScores.h"

#include <algorithm>
#include <cmath>

#include "audio/Sound.h"
#include "engine/ConfigFile.h"
#include "engine/Page.h"
#include "game/HighScoreTable.h"
#include "graphics/GLWindow.h"
#include "menus/GuiScreen.h"
#include "menus/MenuBuilder.h"
#include "platform/VirtualKeys.h"

namespace {

constexpr float fontSize = 32.0f;
constexpr float blinkTime = 0.5f;

/// Letters, digits and blank: what a name may hold.
bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ';
}

}  // namespace

HighScores::HighScores(GuiScreen* screen) : background(screen) {
    const ConfigFile game("cfg\\game.cfg");
    const ConfigFile general("cfg\\menu_general.cfg");
    const ConfigFile levelFinished("cfg\\menu_levelFinished.cfg");
    cursor = Texture(game.GetString("cursor"), "DEFAULT_SPRITE");
    font = Texture(general.GetString("menuFont"), "DEFAULT_FONT");
    textColour = general.GetColour("menuFontColor");
    shadowColour = general.GetColour("textDropShadowColor");
    shadowOffsetX = general.GetFloat("textDropShadowOffset_x");
    shadowOffsetY = general.GetFloat("textDropShadowOffset_y");
    SetUpButton(continueButton, "continueButton", general, levelFinished);
    sound = std::make_unique<Sound>(game.GetString("highScoreSound"));
    sound->SetVolume(1.0f);
    sound->Play();
}

HighScores::~HighScores() = default;

void HighScores::Run() {
    GLWindowEventListener* const previous = GLWindow::GetListener();
    GLWindow::SetListener(this);
    while (running && GLWindow::IsOpen()) {
        GLWindow::RequestRepaint();
        GLWindow::PumpMessages();
    }
    GLWindow::SetListener(previous);
}

HighScores::Position HighScores::Logical(int x, int y) {
    const int width = std::max(GLWindow::ClientWidth(), 1);
    const int height = std::max(GLWindow::ClientHeight(), 1);
    return {static_cast<int>(std::lround(x * static_cast<double>(Page::width) / width)),
            static_cast<int>(std::lround(y * static_cast<double>(Page::height) / height))};
}

/// Both far edges count.
bool HighScores::IsOnButton(Position position) const {
    return position.x >= continueButton.x &&
           position.x <= continueButton.x + continueButton.width &&
           position.y >= continueButton.y && position.y <= continueButton.y + continueButton.height;
}

void HighScores::OnMouseMove(int x, int y) {
    if (finished) {
        return;
    }
    const bool isOn = IsOnButton(Logical(x, y));
    if (isOn && !continueButton.hasFocus) {
        continueButton.hasFocus = true;
        continueButton.OnGainFocus();
    } else if (!isOn && continueButton.hasFocus) {
        continueButton.hasFocus = false;
        continueButton.OnLoseFocus();
    }
}

void HighScores::OnMouseDown(int x, int y, int button) {
    const Position position = Logical(x, y);
    // Only after the pointer has moved onto it: a click that was meant for the screen before
    // confirms nothing.
    if (!finished && IsOnButton(position) && continueButton.state == GuiAnimatedButton::InFocus) {
        continueButton.OnMouseDown(position.x, position.y, button);
        finished = true;
    }
}

void HighScores::OnKeyDown(int virtualKey) {
    if (finished) {
        return;
    }
    if (virtualKey == VirtualKey::enter || virtualKey == VirtualKey::escape) {
        continueButton.OnMouseDown(0, 0, MouseButton::left);
        finished = true;
    } else if (virtualKey == VirtualKey::backspace) {
        if (!name.empty()) {
            name.pop_back();
        }
    } else if (name.size() < HighScoreRow::longestName) {
        if (const char c = GLWindow::KeyToChar(virtualKey); IsNameCharacter(c)) {
            name.push_back(c);
        }
    }
}

void HighScores::OnClose() {
    GLWindow::Close();
}

void HighScores::StepTimes(float dt) {
    if (finished) {
        if (closeDelay <= 0.0f) {
            running = false;
        }
        closeDelay -= dt;
    }
    if (cursorBlinkTime <= 0.0f) {
        cursorBlinkTime = blinkTime;
        cursorBlinkOn = !cursorBlinkOn;
    }
    cursorBlinkTime -= dt;
}

void HighScores::OnPaint() {
    timer.Tick();
    StepTimes(timer.deltaSeconds);
    GuiPainter& painter = GuiPainter::Current();
    painter.Clear(Colours::black);
    if (background) {
        background->OnPaint();
    }
    painter.BeginPage(0.0f, 0.0f, static_cast<float>(GLWindow::ClientWidth()) / Page::width,
                      static_cast<float>(GLWindow::ClientHeight()) / Page::height);
    constexpr Colour dark{0.0f, 0.0f, 0.0f, 0.9f};
    painter.FillRect({0.0f, 0.0f, Page::width, Page::height}, dark, dark);
    DrawTexts();
    continueButton.OnPaint();
    painter.EndPage();
    DrawCursor();
    GLWindow::SwapBuffers();
}

void HighScores::DrawTexts() const {
    const std::string nameLine = name + (cursorBlinkOn ? '_' : ' ');
    DrawLines(nameLine.c_str(), shadowOffsetX, shadowOffsetY, shadowColour);
    DrawLines(nameLine.c_str(), 0.0f, 0.0f, textColour);
}

void HighScores::DrawLines(const char* nameLine, float offsetX, float offsetY,
                           const Colour& colour) const {
    const auto drawLine = [&](const char* text, float top, float height) {
        const GuiRect box{offsetX, top + offsetY, offsetX + Page::width, top + height + offsetY};
        GuiPainter::Current().DrawTextCentred(font, text, box, fontSize, colour);
    };
    drawLine("New high score!", 32.0f, 32.0f);
    drawLine("Please enter name:", 80.0f, 32.0f);
    drawLine(nameLine, 224.0f, 16.0f);
}

/// At its own size in pixels.
void HighScores::DrawCursor() const {
    const auto x = static_cast<float>(GLWindow::MouseX());
    const auto y = static_cast<float>(GLWindow::MouseY());
    GuiPainter& painter = GuiPainter::Current();
    painter.BeginPage(0.0f, 0.0f, 1.0f, 1.0f);
    painter.DrawImage(
        cursor, {x, y, x + static_cast<float>(cursor.width), y + static_cast<float>(cursor.height)},
        wholeImage, Colours::white);
    painter.EndPage();
}

namespace HighScoreTable {

void Submit(std::uint32_t score, GuiScreen* background) {
    if (!Ranks(score)) {
        return;
    }
    HighScores entry(background);
    entry.Run();
    Insert(HighScoreRow(entry.Name(), score));
    Save();
}

}  // namespace HighScoreTable
