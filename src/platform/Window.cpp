// The choice of the window in force.

#include "platform/Window.h"

#include "platform/HeadlessWindow.h"

namespace Platform {

namespace {

Window* windowInForce = nullptr;

}  // namespace

Window& TheWindow() {
    static HeadlessWindow headless;
    return windowInForce != nullptr ? *windowInForce : headless;
}

void UseWindow(Window* window) {
    windowInForce = window;
}

}  // namespace Platform
