// Draws the time of a check point, and lets its fade go on with the frames.

#include <GL/gl.h>

#include "actors/CheckPointTimesManager.h"
#include "engine/Page.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"

namespace CheckPointTimesManager {

void Draw(std::uint32_t time) {
    frameTimer.Tick();
    const std::optional<Display> display = Current(time);
    if (!display) {
        return;
    }
    GLWindow::SetPixelProjection();
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / Page::width,
             static_cast<float>(GLWindow::ClientHeight()) / Page::height, 0.0f);
    font->DrawTextCentred(display->text.data(), 0.0f, display->top, Page::width, display->size,
                          display->size, display->colour);
    AdvanceFade(frameTimer.deltaSeconds);
}

}  // namespace CheckPointTimesManager
