#include <GL/gl.h>

#include <algorithm>

#include "level/TriangleBatch.h"

void TriangleBatch::Add(const LevelPolygon& polygon, Vector2 offset) {
    const float width = static_cast<float>(std::max(polygon.texture.width, 1u));
    const float height = static_cast<float>(std::max(polygon.texture.height, 1u));
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        const float x = polygon.triangleX[i];
        const float y = polygon.triangleY[i];
        vertices.push_back({x / width, y / height, x + offset.x, y + offset.y});
    }
}

void TriangleBatch::Draw() {
    if (vertices.empty()) {
        return;
    }
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.data()->x);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.data()->s);
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(vertices.size()));
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    vertices.clear();
}
