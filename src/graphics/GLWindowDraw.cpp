// The drawing helpers of every screen and debug view.

#include "graphics/GLWindowDraw.h"

#include <GL/gl.h>

#include <cmath>

#include "graphics/ConsoleDraw.h"
#include "graphics/GLWindow.h"

void GLWindow::SetPixelProjection() {
    Platform::TheWindow().SetPixelProjection(ClientWidth(), ClientHeight());
}

void ClearScreen(const Colour& colour) {
    glClearColor(colour.r, colour.g, colour.b, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
}

void PushAllState() {
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
}

void PopAllState() {
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopClientAttrib();
    glPopAttrib();
    // The attributes bring back the matrix mode of the push.
    glMatrixMode(GL_MODELVIEW);
}

void DrawCircleOutline(float x, float y, float radius, int segments) {
    const float step = fullTurn / static_cast<float>(segments);
    glBegin(GL_LINES);
    for (int i = 0; i < segments; ++i) {
        const float from = step * static_cast<float>(i);
        const float to = step * static_cast<float>(i + 1);
        glVertex2f(x + radius * std::cos(from), y + radius * std::sin(from));
        glVertex2f(x + radius * std::cos(to), y + radius * std::sin(to));
    }
    glEnd();
}

namespace DebugDraw {

namespace {

constexpr float headLength = 6.0f;  // of an arrow, world units

void Vertex(Vector2 at) {
    glVertex2f(at.x, at.y);
}

}  // namespace

State::State() {
    glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT | GL_LINE_BIT | GL_POINT_BIT | GL_COLOR_BUFFER_BIT);
    for (const int feature : {GL_TEXTURE_2D, GL_LIGHTING, GL_CULL_FACE, GL_BLEND, GL_DEPTH_TEST}) {
        glDisable(static_cast<GLenum>(feature));
    }
}

State::~State() {
    glPopAttrib();
}

void Line(Vector2 from, Vector2 to, Colour colour, float width) {
    glColor4fv(&colour.r);
    glLineWidth(width);
    glBegin(GL_LINES);
    Vertex(from);
    Vertex(to);
    glEnd();
}

void Point(Vector2 at, Colour colour, float size) {
    glColor4fv(&colour.r);
    glPointSize(size);
    glBegin(GL_POINTS);
    Vertex(at);
    glEnd();
}

void Circle(Vector2 centre, float radius, Colour colour, int segments) {
    glColor4fv(&colour.r);
    glLineWidth(1.0f);
    DrawCircleOutline(centre.x, centre.y, radius, segments);
}

void Arrow(Vector2 from, Vector2 to, Colour colour, float width) {
    Line(from, to, colour, width);
    if (from == to) {
        return;
    }
    Vector2 back = from - to;
    Normalise(back);
    const Vector2 side{-back.y, back.x};
    glBegin(GL_LINES);
    Vertex(to);
    Vertex(to + (back + side * 0.5f) * headLength);
    Vertex(to);
    Vertex(to + (back - side * 0.5f) * headLength);
    glEnd();
}

void Label(Vector2 at, const char* text, float size, Colour colour) {
    // The text sets what it needs, but leaves blend function, binding and colour behind.
    glPushAttrib(GL_CURRENT_BIT | GL_COLOR_BUFFER_BIT | GL_TEXTURE_BIT);
    Console::Font().DrawText(text, at.x, at.y, size, colour);
    glPopAttrib();
}

}  // namespace DebugDraw
