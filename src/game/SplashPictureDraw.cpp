// The splash in GL.

#include <GL/gl.h>

#include <algorithm>

#include "game/SplashPicture.h"
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

/// 800 by 600 as large as the window takes it, in its middle.
void ApplyCentredSpace(float width, float height) {
    glLoadIdentity();
    float scale = 1.0f;
    if (height <= width) {
        scale = height / 600.0f;
        glTranslatef((width - 800.0f * scale) / 2.0f, 0.0f, 0.0f);
    } else {
        scale = width / 800.0f;
        glTranslatef(0.0f, (height - 600.0f * scale) / 2.0f, 0.0f);
    }
    glScalef(scale, scale, 1.0f);
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

    const auto width = static_cast<float>(clientWidth);
    const auto height = static_cast<float>(clientHeight);
    glScalef(width / 800.0f, height / 600.0f, 1.0f);
    glBindTexture(GL_TEXTURE_2D, background.glName);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    Quad(0.0f, 0.0f, 800.0f, 600.0f, 0.5f - halfU, 0.5f - halfV, 0.5f + halfU, 0.5f + halfV);

    ApplyCentredSpace(width, height);
    DrawAnimation(animation);
}
