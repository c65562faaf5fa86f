#pragma once
// Draws everything of the level that never moves and never changes: five display lists, one
// a layer, compiled once per level.

namespace LevelGeometryRenderer {

void Initialise();
void Shutdown();
void DrawLayer0();
void DrawLayer1();
void DrawLayer2();
void DrawLayer3();
void DrawLayer4();

}  // namespace LevelGeometryRenderer
