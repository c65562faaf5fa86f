#pragma once
// Draws the polygons that movers carry or triggers switch, each frame. `Initialise`,
// `Shutdown` and `PrepareDraw` need no GL; `DrawLayer` is in DynamicPolygonRendererDraw.cpp.

#include <cstddef>

#include "level/LevelPolygon.h"
#include "level/View.h"

namespace DynamicPolygonRenderer {

/// Takes its polygons from the loaded level.
void Initialise();
void Shutdown();
/// Once a frame before the layers: queues what is enabled and in view.
void PrepareDraw(const View& view);
/// Draws and empties the layer's queue.
void DrawLayer(int layer);

/// How many polygons of the level it draws.
std::size_t PolygonCount();
/// Takes the polygon with the smallest texture name off the layer's queue; null if it is
/// empty.
const LevelPolygon* TakeQueued(int layer);

}  // namespace DynamicPolygonRenderer
