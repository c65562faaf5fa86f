// The letterbox; see LogicalSpace.h.

#include "menus/LogicalSpace.h"

#include <algorithm>

#include "engine/Page.h"
#include "graphics/GLWindow.h"

LogicalSpace LogicalSpace::OfWindow() {
    return Of(GLWindow::ClientWidth(), GLWindow::ClientHeight());
}

LogicalSpace LogicalSpace::Of(int clientWidth, int clientHeight) {
    const auto w = static_cast<float>(std::max(clientWidth, 1));
    const auto h = static_cast<float>(std::max(clientHeight, 1));
    if (h > w) {
        const float s = w / Page::width;
        return {s, 0.0f, (h - Page::height * s) / 2.0f};
    }
    const float s = h / Page::height;
    return {s, (w - Page::width * s) / 2.0f, 0.0f};
}

LogicalPosition LogicalPosition::Of(int pixelX, int pixelY, int clientWidth, int clientHeight) {
    const auto w = static_cast<float>(std::max(clientWidth, 1));
    const auto h = static_cast<float>(std::max(clientHeight, 1));
    const auto x = static_cast<float>(pixelX);
    const auto y = static_cast<float>(pixelY);
    // The offset is taken in logical units here, so that whole pixels of a page at scale 1
    // stay whole.
    if (h > w) {
        const float f = Page::width / w;
        const float offset = (h * f - Page::height) / 2.0f;
        return {static_cast<int>(x * f), static_cast<int>(y * f - offset)};
    }
    const float f = Page::height / h;
    const float offset = (w * f - Page::width) / 2.0f;
    return {static_cast<int>(x * f - offset), static_cast<int>(y * f)};
}

LogicalPosition LogicalPosition::InWindow(int pixelX, int pixelY) {
    return Of(pixelX, pixelY, GLWindow::ClientWidth(), GLWindow::ClientHeight());
}
