// The splash in GL.

#include <GL/gl.h>

#include <algorithm>

#include "engine/Page.h"
#include "game/SplashPicture.h"
#include "menus/LogicalSpace.h"
#include "platform/Window.h"

namespace {

void Quad(float left, float top, float right, float bottom, float u0, float v0, float u1,
          float v1) {
    glBegin(GL_QUADS);
    glTexCoord2f(u0, v0);
    glVertex2f(left, top);
    glTexCoord2f(u1, v0);
    glVertex2f(right, top);
    glTexCoord2f(u1, v1);
    glVertex2f(right, bottom);
    glTexCoord2f(u0, v1);
    glVertex2f(left, bottom);
    glEnd();
}

void ApplySpace(const LogicalSpace& space) {
    glLoadIdentity();
    glTranslatef(space.offsetX, space.offsetY, 0.0f);
    glScalef(space.scale, space.scale, 1.0f);
}

void DrawAnimation(const LevelObject& animation) {
    if (animation.frame >= animation.frames.size()) {
        return;
    }
    glBindTexture(GL_TEXTURE_2D, animation.frames[animation.frame].glName);
    const Vector2 half = animation.HalfSize();
    const Vector2 low = animation.position - half;
    const Vector2 high = animation.position + half;
    // A shadow first.
    glColor4f(0.0f, 0.0f, 0.0f, 1.0f);
    Quad(low.x + 1.0f, low.y + 1.0f, high.x + 1.0f, high.y + 1.0f, 0.0f, 0.0f, 1.0f, 1.0f);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    Quad(low.x, low.y, high.x, high.y, 0.0f, 0.0f, 1.0f, 1.0f);
}

}  // namespace

void SplashPicture::Draw(int clientWidth, int clientHeight) const {
    clientWidth = std::clamp(clientWidth, 1, 65535);
    clientHeight = std::clamp(clientHeight, 1, 65535);
    Platform::TheWindow().SetPixelProjection(clientWidth, clientHeight);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);

    glScalef(static_cast<float>(clientWidth) / Page::width,
             static_cast<float>(clientHeight) / Page::height, 1.0f);
    glBindTexture(GL_TEXTURE_2D, background.glName);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    Quad(0.0f, 0.0f, Page::width, Page::height, 0.5f - halfU, 0.5f - halfV, 0.5f + halfU,
         0.5f + halfV);

    ApplySpace(LogicalSpace::Of(clientWidth, clientHeight));
    DrawAnimation(animation);
}
