#pragma once
// What the files of GLWindow share, and nobody else reads.

#include <string>

#include "graphics/GLWindow.h"

namespace GLWindow {

struct State {
    /// Shown for as long as a window is being built.
    static constexpr const char* initialTitle = "Untitled window";

    GLWindowEventListener* listener = nullptr;  ///< not owned
    std::string title;
    Platform::Cursor cursorKind = Platform::Cursor::Arrow;  ///< as last asked for
    unsigned samples = 1;  ///< as asked for; the context may hold more
    int mouseX = 0;        ///< client pixels, from the last mouse event
    int mouseY = 0;
    int lastKey = 0;
    bool fullscreen = false;
    bool closing = false;
    bool holding = false;  ///< and what has come since and waits for its end:
    bool heldResize = false;
    bool heldClose = false;
    /// The window had the foreground since it was made or minimised: only then is not having
    /// it a loss.
    bool mayLoseFocus = false;
    /// How far the last warp to the centre missed it, as it does when the centre is off screen.
    int warpMissX = 0;
    int warpMissY = 0;
};
extern State state;

/// Makes the platform's window, or ends the process.
void MakeWindow(const Platform::WindowSettings& settings);

}  // namespace GLWindow
