#pragma once
// The console on the screen. See engine/Console.h.

#include "graphics/Texture.h"

namespace Console {

/// Draws the console over the frame, in the game's matrices.
void Draw();
/// A copy of the font sheet, made at its first use from the settings.
Texture Font();
/// Releases the font; run it before the texture manager shuts down.
void ReleaseFont();

}  // namespace Console
