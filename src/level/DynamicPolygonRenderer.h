#pragma once
// Draws the polygons that movers carry or triggers switch, each frame. `Initialise`,
// `Shutdown` and `PrepareDraw` need no GL; `DrawLayer` is in DynamicPolygonRendererDraw.cpp.

#include <vector>

#include "level/LevelPolygon.h"

namespace DynamicPolygonRenderer {

inline constexpr std::size_t layerCount = 5;

/// Whether this renderer, and not the one of static geometry, draws the polygon; false also
/// for what neither draws.
bool Draws(const LevelPolygon& polygon);

void Initialise();
void Shutdown();
/// Once a frame before the layers: queues what is enabled and in view.
void PrepareDraw();
/// Draws and empties the layer's queue.
void DrawLayer(int layer);

/// The layer's polygons as PrepareDraw left them, by texture.
std::vector<const LevelPolygon*>& LayerQueue(int layer);

}  // namespace DynamicPolygonRenderer
