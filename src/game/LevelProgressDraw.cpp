// The finish animation and the printed level time.

#include <GL/gl.h>

#include <cstdio>

#include "engine/Console.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"
#include "menus/GuiAnimatedButton.h"

namespace LevelProgress {

namespace {

void PrintTime() {
    const std::uint32_t ms = ElapsedMs();
    char text[64];
    std::snprintf(text, sizeof text, "\n%01i::%2i::%3i.%4i", static_cast<int>(ms / 3600000),
                  static_cast<int>(ms / 60000 % 60), static_cast<int>(ms / 1000 % 60),
                  static_cast<int>(ms % 1000 / 10));
    Console::Print(text);
}

/// Fades the animation in over the level, which stands still behind it.
void DrawFinishAnimation(float fade) {
    GuiAnimatedButton* animation = FinishAnimation();
    if (!animation) {
        return;
    }
    animation->SetSize(static_cast<int>(Game::ViewWidth()), static_cast<int>(Game::ViewHeight()));
    animation->SetPosition(0, 0);
    animation->visible = true;
    // Only the state: the frame goes on from paint to paint.
    animation->state = GuiAnimatedButton::OutOfFocus;
    animation->SetColour(1.0f, 1.0f, 1.0f, fade);
    animation->OnPaint();
}

}  // namespace

void Draw() {
    GLWindow::SetPixelProjection();
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / 800.0f,
             static_cast<float>(GLWindow::ClientHeight()) / 600.0f, 0.0f);
    const float fade = FinishFade();
    if (fade >= 0.0f) {
        DrawFinishAnimation(fade);
    }
    if (timePrint) {
        PrintTime();
    }
}

}  // namespace LevelProgress
