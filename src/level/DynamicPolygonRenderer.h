#pragma once
// Draws the polygons that movers carry or triggers switch, each frame. `Initialise`,
// `Shutdown` and `PrepareDraw` need no GL; `DrawLayer` is in DynamicPolygonRendererDraw.cpp.

#include <vector>

#include "level/LevelPolygon.h"

namespace DynamicPolygonRenderer {

void Initialise();
void Shutdown();
/// Once a frame before the layers: queues what is enabled and in view.
void PrepareDraw();
/// Draws and empties the layer's queue.
void DrawLayer(int layer);

}  // namespace DynamicPolygonRenderer
