#include "level/LevelGeometryRenderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <vector>

#include "engine/Console.h"
#include "engine/Timer.h"
#include "level/DynamicPolygonRenderer.h"
#include "level/LevelData.h"
#include "level/TriangleBatch.h"

namespace LevelGeometryRenderer {

namespace {

constexpr std::size_t layerCount = 5;

std::array<GLuint, layerCount> lists{};  // 0 where there is none
bool drawLevelGeometry = true;

using Layer = std::vector<const LevelPolygon*>;

std::array<Layer, layerCount> SortIntoLayers() {
    std::array<Layer, layerCount> layers;
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (polygon.triangleCount > 0 && polygon.visible &&
            !DynamicPolygonRenderer::Draws(polygon)) {
            layers[polygon.layer].push_back(&polygon);
        }
    }
    for (Layer& layer : layers) {
        std::stable_sort(layer.begin(), layer.end(),
                         [](const LevelPolygon* a, const LevelPolygon* b) {
                             return a->texture.glName < b->texture.glName;
                         });
    }
    return layers;
}

/// One bind for each texture of the layer.
void Emit(const Layer& layer) {
    TriangleBatch batch;
    for (std::size_t i = 0; i < layer.size();) {
        const GLuint texture = layer[i]->texture.glName;
        for (; i < layer.size() && layer[i]->texture.glName == texture; ++i) {
            batch.Add(*layer[i], {});
        }
        glBindTexture(GL_TEXTURE_2D, texture);
        batch.Draw();
    }
}

void DrawLayer(std::size_t layer) {
    if (drawLevelGeometry && lists[layer] != 0) {
        glCallList(lists[layer]);
    }
}

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising level geometry renderer...");
    drawLevelGeometry = true;
    Console::AddCommand("DrawLevelGeometry", [](bool value, bool isSet) {
        if (isSet) {
            drawLevelGeometry = value;
        }
        return drawLevelGeometry;
    });
    Timer timer;
    const auto layers = SortIntoLayers();
    for (std::size_t i = 0; i < layerCount; ++i) {
        lists[i] = glGenLists(1);
        glNewList(lists[i], GL_COMPILE);
        Emit(layers[i]);
        glEndList();
    }
    timer.Tick();
    Console::Print("\nLevel geometry prepared for rendering in ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print("\nseconds.");
}

void Shutdown() {
    Console::Print("\nShutting down level geometry renderer...");
    Console::RemoveCommand("DrawLevelGeometry");
    for (GLuint& list : lists) {
        if (list != 0) {
            glDeleteLists(list, 1);
            list = 0;
        }
    }
}

void DrawLayer0() {
    DrawLayer(0);
}

void DrawLayer1() {
    DrawLayer(1);
}

void DrawLayer2() {
    DrawLayer(2);
}

void DrawLayer3() {
    DrawLayer(3);
}

void DrawLayer4() {
    DrawLayer(4);
}

}  // namespace LevelGeometryRenderer
