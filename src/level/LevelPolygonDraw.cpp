// Debug view of a polygon's triangles.

#include <GL/gl.h>

#include "graphics/GLWindowDraw.h"
#include "level/LevelPolygon.h"

void LevelPolygon::DrawWireframe(Vector2 offset) const {
    const DebugDraw::State state;
    glLineWidth(1.0f);
    glColor4f(1.0f, 0.0f, 0.0f, 1.0f);
    glBegin(GL_LINES);
    for (std::size_t i = 0; i < triangleX.size(); ++i) {
        const std::size_t next = i % 3 == 2 ? i - 2 : i + 1;
        glVertex2f(triangleX[i] + offset.x, triangleY[i] + offset.y);
        glVertex2f(triangleX[next] + offset.x, triangleY[next] + offset.y);
    }
    glEnd();
}
