// Compiles the level's fixed polygons into one display list a layer: one bind for each
// texture of a layer, one call a layer and frame. What nearer polygons hide is left out.

#include "level/LevelGeometryRenderer.h"

#include <GL/gl.h>

#include <array>
#include <queue>
#include <span>
#include <vector>

#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "engine/Timer.h"
#include "graphics/MagnifiedSamplingDraw.h"
#include "graphics/TextureManager.h"
#include "graphics/TexturingDraw.h"
#include "level/LevelData.h"
#include "level/PolygonTexture.h"
#include "level/VisibleParts.h"

namespace {

constexpr std::size_t layerCount = 5;

/// Names of the lists; 0 without a list.
std::array<GLuint, layerCount> lists{};
/// Whether all textures of a layer's list suit magnified sampling.
std::array<bool, layerCount> suitMagnified{};
bool drawLevelGeometry = true;
/// The reload of the textures after which the lists were compiled: what lets nothing through
/// may have become another.
std::uint32_t compiledReload = 0;

const Console::CommandTable commands{
    {"DrawLevelGeometry", Console::Variable<drawLevelGeometry>,
     "Shows or hides the polygons that never move."},
};

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

/// The fixed polygons in the order in which they are drawn: by layer, then by texture.
std::vector<VisibleParts::Entry> InDrawingOrder() {
    std::array<LayerHeap, layerCount> heaps;
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (IsFixed(polygon) && polygon.layer < layerCount) {
            heaps[polygon.layer].push(&polygon);
        }
    }
    std::vector<VisibleParts::Entry> entries;
    for (LayerHeap& heap : heaps) {
        for (; !heap.empty(); heap.pop()) {
            const LevelPolygon* const polygon = heap.top();
            entries.push_back({polygon, !TextureManager::HasAlpha(polygon->texture.name)});
        }
    }
    return entries;
}

void EmitTriangles(const LevelPolygon& polygon, const std::vector<Vector2>& corners) {
    const auto width = TextureRepeat(polygon.texture.width);
    const auto height = TextureRepeat(polygon.texture.height);
    // The view flattens z, and nothing tests depth: it only keeps the layers apart in theory.
    const float z = 65535.0f - static_cast<float>(polygon.layer);
    for (const Vector2 at : corners) {
        glTexCoord2f(at.x / width, at.y / height);
        glVertex3f(at.x, at.y, z);
    }
}

/// Emits the layer's entries from `index` on, and moves it behind them.
void EmitLayer(std::size_t layer, std::span<const VisibleParts::Entry> entries, VisibleParts& parts,
               std::size_t& index) {
    const auto isInLayer = [&] {
        return index < entries.size() && entries[index].polygon->layer == layer;
    };
    std::vector<Vector2> corners;
    suitMagnified[layer] = true;
    while (isInLayer()) {
        const Texture& first = entries[index].polygon->texture;
        const GLuint texture = first.glName;
        suitMagnified[layer] =
            suitMagnified[layer] && MagnifiedSampling::Suits(first.width, first.height);
        glBindTexture(GL_TEXTURE_2D, texture);
        // Colours are white, and so the texture's own can stand for the product. What lets
        // nothing through needs no blending. Both save a fifth of the time of filling.
        const bool opaque = entries[index].opaque;
        (opaque ? glDisable : glEnable)(GL_BLEND);
        Texturing::Begin(opaque ? Texturing::Source::OpaqueTexture : Texturing::Source::Texture);
        glBegin(GL_TRIANGLES);
        for (; isInLayer() && entries[index].polygon->texture.glName == texture; ++index) {
            corners.clear();
            parts.AppendTriangles(index, corners);
            EmitTriangles(*entries[index].polygon, corners);
        }
        glEnd();
    }
    glEnable(GL_BLEND);
    Texturing::End();
}

void CompileLists() {
    compiledReload = TextureManager::ReloadCount();
    const std::vector<VisibleParts::Entry> entries = InDrawingOrder();
    VisibleParts parts(entries);
    std::size_t index = 0;
    for (std::size_t layer = 0; layer < layerCount; ++layer) {
        glNewList(lists[layer], GL_COMPILE);
        EmitLayer(layer, entries, parts, index);
        glEndList();
    }
}

void DrawLayer(std::size_t layer) {
    if (lists[layer] != 0 && drawLevelGeometry) {
        if (compiledReload != TextureManager::ReloadCount()) {
            CompileLists();
        }
        MagnifiedSampling sampling;
        sampling.Use(suitMagnified[layer]);
        glCallList(lists[layer]);
    }
}

}  // namespace

void LevelGeometryRenderer::Initialise() {
    Shutdown();
    Console::Print("\nInitialising level geometry renderer...");
    drawLevelGeometry = true;
    commands.Add();
    Timer timer;
    for (GLuint& list : lists) {
        list = glGenLists(1);
    }
    CompileLists();
    timer.Tick();
    Console::Print("\nLevel geometry prepared for rendering in ");
    Console::PrintFloat(timer.deltaSeconds);
    Console::Print("\nseconds.");
}

void LevelGeometryRenderer::Shutdown() {
    Console::Print("\nShutting down level geometry renderer...");
    commands.Remove();
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
