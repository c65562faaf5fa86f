// Compiles the level's fixed polygons into one display list a layer: one bind for each
// texture of a layer, one call a layer and frame.

#include "level/LevelGeometryRenderer.h"

#include <GL/gl.h>

#include <array>
#include <queue>
#include <vector>

#include "engine/Console.h"
#include "engine/Timer.h"
#include "level/LevelData.h"
#include "level/PolygonTexture.h"

namespace {

constexpr std::size_t layerCount = 5;

/// Names of the lists; 0 without a list.
std::array<GLuint, layerCount> lists{};
bool drawLevelGeometry = true;

bool DrawLevelGeometry(bool value, bool isSet) {
    if (isSet) {
        drawLevelGeometry = value;
    }
    return drawLevelGeometry;
}

struct HasLargerTexture {
    bool operator()(const LevelPolygon* a, const LevelPolygon* b) const {
        return a->texture > b->texture;
    }
};
/// The smallest texture name on top.
using LayerHeap =
    std::priority_queue<const LevelPolygon*, std::vector<const LevelPolygon*>, HasLargerTexture>;

/// An outline that crosses itself has no triangles.
bool IsFixed(const LevelPolygon& polygon) {
    return polygon.triangleCount != 0 && polygon.visible != 0 && polygon.movedByMover == 0 &&
           polygon.toggledByTrigger == 0;
}

void EmitTriangles(const LevelPolygon& polygon) {
    const auto width = TextureRepeat(polygon.texture.width);
    const auto height = TextureRepeat(polygon.texture.height);
    // The view flattens z, and nothing tests depth: it only keeps the layers apart in theory.
    const float z = 65535.0f - static_cast<float>(polygon.layer);
    for (std::size_t i = 0; i < polygon.triangleX.size(); ++i) {
        const float x = polygon.triangleX[i];
        const float y = polygon.triangleY[i];
        glTexCoord2f(x / width, y / height);
        glVertex3f(x, y, z);
    }
}

void EmitLayer(LayerHeap& heap) {
    while (!heap.empty()) {
        const GLuint texture = heap.top()->texture.glName;
        glBindTexture(GL_TEXTURE_2D, texture);
        glBegin(GL_TRIANGLES);
        while (!heap.empty() && heap.top()->texture.glName == texture) {
            EmitTriangles(*heap.top());
            heap.pop();
        }
        glEnd();
    }
}

void DrawLayer(std::size_t layer) {
    if (lists[layer] != 0 && drawLevelGeometry) {
        glCallList(lists[layer]);
    }
}

}  // namespace

void LevelGeometryRenderer::Initialise() {
    Shutdown();
    Console::Print("\nInitialising level geometry renderer...");
    drawLevelGeometry = true;
    Console::AddCommand("DrawLevelGeometry", DrawLevelGeometry);
    Timer timer;
    std::array<LayerHeap, layerCount> heaps;
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (IsFixed(polygon) && polygon.layer < layerCount) {
            heaps[polygon.layer].push(&polygon);
        }
    }
    for (std::size_t layer = 0; layer < layerCount; ++layer) {
        lists[layer] = glGenLists(1);
        glNewList(lists[layer], GL_COMPILE);
        EmitLayer(heaps[layer]);
        glEndList();
    }
    timer.Tick();
    Console::Print("\nLevel geometry prepared for rendering in ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print("\nseconds.");
}

void LevelGeometryRenderer::Shutdown() {
    Console::Print("\nShutting down level geometry renderer...");
    Console::RemoveCommand("DrawLevelGeometry");
    for (GLuint& list : lists) {
        if (list != 0) {
            glDeleteLists(list, 1);
            list = 0;
        }
    }
}

void LevelGeometryRenderer::DrawLayer0() {
    DrawLayer(0);
}

void LevelGeometryRenderer::DrawLayer1() {
    DrawLayer(1);
}

void LevelGeometryRenderer::DrawLayer2() {
    DrawLayer(2);
}

void LevelGeometryRenderer::DrawLayer3() {
    DrawLayer(3);
}

void LevelGeometryRenderer::DrawLayer4() {
    DrawLayer(4);
}
