#pragma once
// Typing a name for the table of high scores: a listener that shows itself over a screen until
// the player has confirmed, and a moment longer, so that the button's click is seen. It can't
// be refused; an empty name is one.

#include <memory>
#include <string>

#include "engine/Timer.h"
#include "graphics/GLWindowEventListener.h"
#include "graphics/Texture.h"
#include "menus/GuiAnimatedButton.h"
#include "menus/GuiPainter.h"

class GuiScreen;
class Sound;

class HighScores : public GLWindowEventListener {
public:
    /// `screen` is painted behind; not owned, may be null. A sound plays.
    explicit HighScores(GuiScreen* screen);
    ~HighScores() override;

    /// Installs itself as listener until the name is there or the window closes.
    void Run();
    const std::string& Name() const { return name; }

    void OnMouseMove(int x, int y) override;
    void OnMouseDown(int x, int y, int button) override;
    void OnKeyDown(int virtualKey) override;
    void OnClose() override;
    void OnPaint() override;

    bool running = true;
    bool finished = false;             ///< confirmed; `closeDelay` runs
    float closeDelay = 0.8f;           ///< seconds from confirming to the end
    GuiAnimatedButton continueButton;  ///< on no screen; stands where the level's end has it

private:
    struct Position {
        int x, y;
    };
    /// The whole client area is one page here, whatever its shape.
    static Position Logical(int x, int y);
    bool IsOnButton(Position position) const;
    void StepTimes(float dt);
    void DrawTexts() const;
    void DrawLines(const char* nameLine, float offsetX, float offsetY, const Colour& colour) const;
    void DrawCursor() const;

    std::string name;
    GuiScreen* background;
    Texture cursor;
    Texture font;
    std::unique_ptr<Sound> sound;
    Colour textColour;
    Colour shadowColour;
    float shadowOffsetX = 0.0f;
    float shadowOffsetY = 0.0f;
    Timer timer;
    float cursorBlinkTime = 0.5f;  ///< seconds to the next change of `cursorBlinkOn`
    bool cursorBlinkOn = true;
};
