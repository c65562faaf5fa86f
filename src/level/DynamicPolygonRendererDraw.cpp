// Sends the queued polygons in arrays, one for each texture.

#include <GL/gl.h>

#include <cstdint>
#include <vector>

#include "graphics/MagnifiedSamplingDraw.h"
#include "graphics/TexturingDraw.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelData.h"
#include "level/PolygonTexture.h"

namespace {

struct Vertex {
    float u, v;
    float x, y;
};

/// Vertices of the texture at hand. It keeps its room from frame to frame.
std::vector<Vertex> vertices;

/// A moved polygon keeps the texture coordinates that it has at rest.
void Append(const LevelPolygon& polygon) {
    const float width = TextureRepeat(polygon.texture.width);
    const float height = TextureRepeat(polygon.texture.height);
    const Vector2 offset = LevelData::StateOf(polygon).offset;
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        const float x = polygon.triangleX[i];
        const float y = polygon.triangleY[i];
        vertices.push_back({x / width, y / height, x + offset.x, y + offset.y});
    }
}

void DrawVertices(std::uint32_t texture) {
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices[0].u);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices[0].x);
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(vertices.size()));
    vertices.clear();
}

}  // namespace

void DynamicPolygonRenderer::DrawLayer(int layer) {
    const LevelPolygon* polygon = TakeQueued(layer);
    if (polygon == nullptr) {
        return;
    }
    glPushClientAttrib(GL_CLIENT_VERTEX_ARRAY_BIT);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_VERTEX_ARRAY);
    MagnifiedSampling sampling;
    Texturing::Begin(Texturing::Source::Texture);
    while (polygon != nullptr) {
        const std::uint32_t texture = polygon->texture.glName;
        sampling.Use(MagnifiedSampling::Suits(polygon->texture.width, polygon->texture.height));
        Append(*polygon);
        polygon = TakeQueued(layer);
        if (polygon == nullptr || polygon->texture.glName != texture) {
            DrawVertices(texture);
        }
    }
    Texturing::End();
    glPopClientAttrib();
}
