// The film's texture, and the frame in the window.

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstddef>
#include <new>
#include <vector>

#include "graphics/AviPlayer.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"

namespace {

void BindSmooth(std::uint32_t glName) {
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, glName);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
}

}  // namespace

bool AviPlayer::MakeTexture() {
    GLint most = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &most);
    const auto side = static_cast<std::uint32_t>(most);
    if (textureWidth > side || textureHeight > side) {
        return false;
    }
    // Black around the film, so that its rim isn't drawn with anything else.
    std::vector<unsigned char> black;
    try {
        black.resize(std::size_t{textureWidth} * textureHeight * 3);
    } catch (const std::bad_alloc&) {
        return false;
    }
    glGenTextures(1, &glName);
    BindSmooth(glName);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, static_cast<GLsizei>(textureWidth),
                 static_cast<GLsizei>(textureHeight), 0, GL_RGB, GL_UNSIGNED_BYTE, black.data());
    // Back to the default, for other uploads.
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    return glName != 0;
}

void AviPlayer::ReleaseTexture() {
    // Closing the window has already deleted the texture.
    if (glName != 0 && GLWindow::IsOpen()) {
        glDeleteTextures(1, &glName);
    }
    glName = 0;
}

void AviPlayer::Upload(const unsigned char* pixels) const {
    BindSmooth(glName);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);  // as the rows are filled up
    glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, video->Width(), video->Height(), GL_BGR_EXT,
                    GL_UNSIGNED_BYTE, pixels);
}

void AviPlayer::Draw() const {
    if (!IsOpen()) {
        return;
    }
    GLWindow::SetPixelProjection();
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_BLEND);
    glBindTexture(GL_TEXTURE_2D, glName);
    ClearScreen(Colours::black);

    const auto w = static_cast<float>(video->Width());
    const auto h = static_cast<float>(video->Height());
    const float u = w / static_cast<float>(textureWidth);
    const float v = h / static_cast<float>(textureHeight);
    const auto bottom = static_cast<float>(GLWindow::ClientHeight());
    const float half = (w / h) * bottom / 2.0f;
    const float centre = static_cast<float>(GLWindow::ClientWidth()) / 2.0f;
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    // The frame's last row is the texture's first.
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, v);
    glVertex2f(centre - half, 0.0f);
    glTexCoord2f(u, v);
    glVertex2f(centre + half, 0.0f);
    glTexCoord2f(u, 0.0f);
    glVertex2f(centre + half, bottom);
    glTexCoord2f(0.0f, 0.0f);
    glVertex2f(centre - half, bottom);
    glEnd();
    GLWindow::SwapBuffers();
}
