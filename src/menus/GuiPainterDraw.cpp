// Pages, images, rectangles and text of screens and widgets, in GL.

#include "menus/GuiPainterDraw.h"

#include <GL/gl.h>

#include <array>

#include "graphics/GLWindowDraw.h"
#include "graphics/Texture.h"

namespace {

struct Corner {
    float s, t;
    Colour colour;
    float x, y;
};

using Quad = std::array<Corner, 4>;

Quad MakeQuad(const GuiRect& area, const GuiRect& source, const Colour& top, const Colour& bottom) {
    return {{{source.left, source.top, top, area.left, area.top},
             {source.right, source.top, top, area.right, area.top},
             {source.right, source.bottom, bottom, area.right, area.bottom},
             {source.left, source.bottom, bottom, area.left, area.bottom}}};
}

void DrawQuad(const Quad& quad) {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glDisableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Corner), &quad.front().s);
    glColorPointer(4, GL_FLOAT, sizeof(Corner), &quad.front().colour.r);
    glVertexPointer(2, GL_FLOAT, sizeof(Corner), &quad.front().x);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(quad.size()));
    glPopClientAttrib();
}

}  // namespace

void GLGuiPainter::Clear(const Colour& colour) {
    ClearScreen(colour);
}

void GLGuiPainter::BeginPage(float offsetX, float offsetY, float scaleX, float scaleY) {
    glPushAttrib(GL_ENABLE_BIT);
    glDisable(GL_LIGHTING);
    glDisable(GL_BLEND);
    glDisable(GL_CULL_FACE);
    glDisable(GL_TEXTURE_2D);
    glDisable(GL_DEPTH_TEST);
    glShadeModel(GL_SMOOTH);
    GLWindow::SetPixelProjection();
    glTranslatef(offsetX, offsetY, 0.0f);
    glScalef(scaleX, scaleY, 0.0f);
}

void GLGuiPainter::EndPage() {
    glPopAttrib();
}

void GLGuiPainter::DrawImage(const Texture& image, const GuiRect& area, const GuiRect& source,
                             const Colour& colour) {
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, image.glName);
    DrawQuad(MakeQuad(area, source, colour, colour));
}

void GLGuiPainter::FillRect(const GuiRect& area, const Colour& top, const Colour& bottom) {
    glDisable(GL_TEXTURE_2D);
    DrawQuad(MakeQuad(area, wholeImage, top, bottom));
}

void GLGuiPainter::DrawText(const Texture& font, const char* text, float x, float y, float size,
                            const Colour& colour) {
    font.DrawText(text, x, y, size, colour);
}

void GLGuiPainter::DrawTextCentred(const Texture& font, const char* text, const GuiRect& box,
                                   float size, const Colour& colour) {
    font.DrawTextCentred(text, box.left, box.top, box.right - box.left, box.bottom - box.top, size,
                         colour);
}
