// Draws the time of a check point, and lets its fade go on with the frames.

#include <GL/gl.h>

#include "actors/CheckPointTimesManager.h"
#include "actors/CheckPointTimesState.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDraw.h"

namespace CheckPointTimesManager {

void Draw(std::uint32_t time) {
    frameTimer.Tick();
    const std::optional<Display> display = Current(time);
    if (!display) {
        return;
    }
    constexpr float menuWidth = 800.0f;
    constexpr float menuHeight = 600.0f;
    GLWindow::SetPixelProjection();
    glScalef(static_cast<float>(GLWindow::ClientWidth()) / menuWidth,
             static_cast<float>(GLWindow::ClientHeight()) / menuHeight, 0.0f);
    font->DrawTextCentred(display->text.data(), 0.0f, display->top, menuWidth, display->size,
                          display->size,
                          {display->red, display->green, display->blue, display->alpha});
    AdvanceFade(frameTimer.deltaSeconds);
}

}  // namespace CheckPointTimesManager
