// Draws the queued polygons with one bind for each run of one texture.

#include <GL/gl.h>

#include "level/DynamicPolygonRenderer.h"
#include "level/TriangleBatch.h"

namespace DynamicPolygonRenderer {

namespace {

TriangleBatch batch;

}  // namespace

void DrawLayer(int layer) {
    auto& queue = LayerQueue(layer);
    for (std::size_t i = 0; i < queue.size();) {
        const GLuint texture = queue[i]->texture.glName;
        for (; i < queue.size() && queue[i]->texture.glName == texture; ++i) {
            batch.Add(*queue[i], queue[i]->offset);
        }
        glBindTexture(GL_TEXTURE_2D, texture);
        batch.Draw();
    }
    queue.clear();
}

}  // namespace DynamicPolygonRenderer
