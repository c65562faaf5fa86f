// How large a window the screens can hold, asked before one is made.

#include <algorithm>

#include "platform/GlfwWindowState.h"

namespace Platform {

bool GlfwWindow::State::ScreensHold(int width, int height) const {
    int count = 0;
    GLFWmonitor** const monitors = glfwGetMonitors(&count);
    Point first;
    Point last{defaultWidth, defaultHeight};
    double scale = 1.0;
    for (int i = 0; i < count; ++i) {
        float x = 1.0f;
        float y = 1.0f;
        glfwGetMonitorContentScale(monitors[i], &x, &y);
        scale = std::max({scale, static_cast<double>(x), static_cast<double>(y)});
        Point at;
        glfwGetMonitorPos(monitors[i], &at.x, &at.y);
        first = {std::min(first.x, at.x), std::min(first.y, at.y)};
        int modeCount = 0;
        const GLFWvidmode* const modes = glfwGetVideoModes(monitors[i], &modeCount);
        for (int mode = 0; mode < modeCount; ++mode) {
            last = {std::max(last.x, at.x + modes[mode].width),
                    std::max(last.y, at.y + modes[mode].height)};
        }
    }
    // Without any screen nothing is known, and the window tells for itself.
    return count == 0 ||
           (width <= (last.x - first.x) * scale && height <= (last.y - first.y) * scale);
}

}  // namespace Platform
