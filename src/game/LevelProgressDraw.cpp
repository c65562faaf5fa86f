// The finish animation and the printed level time.

#include <GL/gl.h>

#include <algorithm>
#include <cstdio>

#include "engine/Console.h"
#include "engine/Page.h"
#include "engine/Vector2.h"
#include "game/Game.h"
#include "game/LevelProgress.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"
#include "graphics/Texture.h"
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

/// How much larger than it is the picture must be drawn around `centre` to cover the whole of
/// the page; 1 if it does so anyway, or isn't made to cover a window at all.
float Enlargement(const Texture& picture, Vector2 centre) {
    const float across = std::max(centre.x, Page::width - centre.x);
    const float down = std::max(centre.y, Page::height - centre.y);
    const float halfWidth = static_cast<float>(picture.width) / 2.0f;
    const float halfHeight = static_cast<float>(picture.height) / 2.0f;
    const bool isSmall = halfWidth < Page::width / 2.0f || halfHeight < Page::height / 2.0f;
    if (isSmall || (across <= halfWidth && down <= halfHeight)) {
        return 1.0f;
    }
    // Half a texel at the rim is mixed with the other side.
    constexpr float rim = 0.5f;
    return std::max(across / (halfWidth - rim), down / (halfHeight - rim));
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
    animation->SetColour({1.0f, 1.0f, 1.0f, fade});
    const Vector2 centre{static_cast<float>(animation->width) / 2.0f,
                         static_cast<float>(animation->height) / 2.0f};
    const Texture* picture = animation->CurrentFrame();
    const float scale = picture ? Enlargement(*picture, centre) : 1.0f;
    glPushMatrix();
    glTranslatef(centre.x, centre.y, 0.0f);
    glScalef(scale, scale, 1.0f);
    glTranslatef(-centre.x, -centre.y, 0.0f);
    animation->OnPaint();
    glPopMatrix();
}

}  // namespace

void Draw() {
    GLWindow::SetPixelProjection();
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / Page::width,
             static_cast<float>(GLWindow::ClientHeight()) / Page::height, 0.0f);
    const float fade = FinishFade();
    if (fade >= 0.0f) {
        DrawFinishAnimation(fade);
    }
    if (timePrint) {
        PrintTime();
    }
}

}  // namespace LevelProgress
