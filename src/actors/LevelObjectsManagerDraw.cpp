// Draws the level objects: one array of quads for each run of sprites that share a texture.

#include <GL/gl.h>

#include <cstdio>

#include "actors/DebugLabels.h"
#include "actors/LevelObjectsManager.h"
#include "graphics/GLWindowDraw.h"
#include "graphics/MagnifiedSamplingDraw.h"
#include "graphics/TexturingDraw.h"

namespace LevelObjectsManager {

namespace {

struct Vertex {
    float u, v;
    Vector2 position;
};
std::vector<Vertex> vertices;  // storage kept from frame to frame

DebugLabels labels;

void AddQuad(const LevelObject& object) {
    const Vector2 centre = object.Centre();
    const Vector2 half = object.HalfSize();
    const float left = object.mirrored ? 1.0f : 0.0f;
    const float right = 1.0f - left;
    vertices.push_back({left, 0.0f, {centre.x - half.x, centre.y - half.y}});
    vertices.push_back({right, 0.0f, {centre.x + half.x, centre.y - half.y}});
    vertices.push_back({right, 1.0f, {centre.x + half.x, centre.y + half.y}});
    vertices.push_back({left, 1.0f, {centre.x - half.x, centre.y + half.y}});
}

void DrawBatch(std::uint32_t glName) {
    glBindTexture(GL_TEXTURE_2D, glName);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().u);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().position);
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(vertices.size()));
    vertices.clear();
}

void AddLabels(const std::vector<LevelObject>& list) {
    for (const LevelObject& object : list) {
        const Vector2 half = object.HalfSize();
        constexpr float gap = 2.0f;
        char text[32];
        std::snprintf(text, sizeof text, "OBJ ID: %1i ", static_cast<int>(object.id));
        labels.Add(object.Centre() - half - Vector2{0.0f, DebugLabels::size + gap}, text);
    }
}

}  // namespace

void DrawLayer(int layer) {
    if (layer < 0 || layer >= static_cast<int>(LevelObject::layerCount)) {
        return;
    }
    std::vector<QueuedObject>& queue = layerQueues[static_cast<std::size_t>(layer)];
    if (queue.empty()) {
        return;
    }
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    MagnifiedSampling sampling;
    Texturing::Begin(Texturing::Source::Texture);
    for (std::size_t i = 0; i < queue.size(); ++i) {
        AddQuad(*queue[i].object);
        if (i + 1 == queue.size() || queue[i + 1].glName != queue[i].glName) {
            const Vector2 half = queue[i].object->HalfSize();
            sampling.Use(MagnifiedSampling::Suits(static_cast<std::uint32_t>(half.x * 2.0f),
                                                  static_cast<std::uint32_t>(half.y * 2.0f)));
            DrawBatch(queue[i].glName);
        }
    }
    Texturing::End();
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    queue.clear();
}

void DrawIds(const View& view) {
    if (!objectsDrawIds) {
        return;
    }
    const DebugDraw::State state;
    labels.Begin(view);
    AddLabels(objects);
    AddLabels(animatedObjects);
    labels.Draw();
}

}  // namespace LevelObjectsManager
