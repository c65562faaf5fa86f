#pragma once
// Drawing helpers that every screen and debug view uses.

#include "engine/Colour.h"
#include "engine/Vector2.h"

namespace GLWindow {

/// 1 unit is 1 client pixel, origin top left, y down. Selects and clears the modelview
/// matrix, and sets the viewport to the client area.
void SetPixelProjection();

}  // namespace GLWindow

/// Clears the colour buffer, with alpha 1 whatever the colour's.
void ClearScreen(const Colour& colour);
/// Pushes all server and client attributes, then projection and modelview matrix; modelview
/// stays selected. `PopAllState` undoes it.
void PushAllState();
void PopAllState();
/// A closed polygon of `segments` lines.
void DrawCircleOutline(float x, float y, float radius, int segments);

/// What debug views draw with, in world units. Each call sets its own colour; textures and
/// blending must be off, except for the label, which sets its own state.
namespace DebugDraw {

/// Saves the GL state and turns off textures, lighting, culling, blending and depth test;
/// restores the state when it goes.
class State {
public:
    State();
    ~State();
    State(const State&) = delete;
    State& operator=(const State&) = delete;
};

void Line(Vector2 from, Vector2 to, Colour colour, float width = 1.0f);
void Point(Vector2 at, Colour colour, float size = 2.0f);
void Circle(Vector2 centre, float radius, Colour colour, int segments = 64);
/// A line with a small head at `to`.
void Arrow(Vector2 from, Vector2 to, Colour colour, float width = 1.0f);
/// Text in the console's font, its top left at `at`, cells of `size` world units.
void Label(Vector2 at, const char* text, float size, Colour colour);

}  // namespace DebugDraw
