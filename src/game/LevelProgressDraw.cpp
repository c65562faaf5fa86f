// The finish animation and the printed level time.

#include <GL/gl.h>

#include <cstdio>

#include "engine/Console.h"
#include "game/LevelProgress.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"

namespace LevelProgress {

namespace {

void PrintTime() {
    const std::uint32_t ms = ElapsedMs();
    char text[64];
    std::snprintf(text, sizeof text, "\n%01i::%2i::%3i.%4i", static_cast<int>(ms / 3600000),
                  static_cast<int>(ms / 60000 % 60), static_cast<int>(ms / 1000 % 60),
                  static_cast<int>(ms % 1000 / 10));
    Console::Print(text);
}

}  // namespace

void Draw() {
    GLWindow::SetPixelProjection();
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / 800.0f,
             static_cast<float>(GLWindow::ClientHeight()) / 600.0f, 0.0f);
    if (timePrint) {
        PrintTime();
    }
}

}  // namespace LevelProgress
