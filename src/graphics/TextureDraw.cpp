// Text as cells of a 16 by 16 font sheet. One array of quads goes out per call.

#include <GL/gl.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "graphics/Texture.h"

namespace {

struct Corner {
    float s, t;
    float x, y;
};

/// Four corners per drawn byte, kept between calls so that drawing text allocates only while
/// texts grow. Per thread: the loading splash may draw in a thread of its own.
std::vector<Corner>& Corners() {
    thread_local std::vector<Corner> corners;
    return corners;
}

void AppendCell(std::vector<Corner>& corners, unsigned char code, float x, float y, float size) {
    constexpr float cell = 1.0f / 16.0f;
    const int row = code / 16;
    const float s = static_cast<float>(code % 16) * cell;
    const float t = static_cast<float>(row) * cell;
    corners.push_back({s, t, x, y});
    corners.push_back({s + cell, t, x + size, y});
    corners.push_back({s + cell, t + cell, x + size, y + size});
    corners.push_back({s, t + cell, x, y + size});
}

void LayOut(std::vector<Corner>& corners, const char* text, float x, float y, float size) {
    corners.clear();
    float penX = x;
    for (; *text != '\0'; ++text) {
        if (*text == '\n') {
            penX = x;
            y += size;
        } else {
            AppendCell(corners, static_cast<unsigned char>(*text), penX, y, size);
            penX += size;
        }
    }
}

}  // namespace

void Texture::DrawText(const char* text, float x, float y, float size, const Colour& colour) const {
    if (!text || !(size > 0.0f)) {
        return;
    }
    std::vector<Corner>& corners = Corners();
    LayOut(corners, text, x, y, size);
    if (corners.empty()) {
        return;
    }
    glPushAttrib(GL_ENABLE_BIT);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnable(GL_BLEND);
    glEnable(GL_TEXTURE_2D);
    glDisable(GL_LIGHTING);
    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_ALPHA_TEST);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glBindTexture(GL_TEXTURE_2D, glName);

    glColor4fv(&colour.r);
    glDisableClientState(GL_COLOR_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, sizeof(Corner), &corners.front().x);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Corner), &corners.front().s);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(corners.size()));

    glPopClientAttrib();
    glPopAttrib();
}

void Texture::DrawTextCentred(const char* text, float x, float y, float w, float h, float size,
                              const Colour& colour) const {
    if (!text || !(size > 0.0f)) {
        return;
    }
    const auto length = static_cast<float>(std::strlen(text));
    const float left = std::round(w / 2.0f + x - length * size / 2.0f);
    const float top = std::round(h / 2.0f + y - size / 2.0f);
    DrawText(text, left, top, size, colour);
}
