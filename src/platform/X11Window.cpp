// The X server, for the toolkit's window.

#include "platform/X11Window.h"

#include <X11/Xlib.h>

#include <cstdio>

#include "platform/System.h"

// Of the toolkit, but not in all of its builds. Its own header for them needs more of X11.
extern "C" {
[[gnu::weak]] Display* glfwGetX11Display();
[[gnu::weak]] Window glfwGetX11Window(GLFWwindow* window);
}

namespace Platform {

namespace {

/// Called on the thread that drew last, possibly with the display library's locks held. Returning
/// isn't an option: it calls exit, and the GL driver's clean-up would use the display again.
int EndWithDisplay(Display* /*display*/) {
    std::fputs("The display is gone\n", stderr);
    EndProcess(1);
}

}  // namespace

void WatchDisplay() {
    XSetIOErrorHandler(EndWithDisplay);
}

bool RequestShow(GLFWwindow* window) {
    if (&glfwGetX11Display == nullptr || &glfwGetX11Window == nullptr) {
        return false;
    }
    Display* display = glfwGetX11Display();
    if (display == nullptr) {
        return false;
    }
    XMapWindow(display, glfwGetX11Window(window));
    XFlush(display);
    return true;
}

}  // namespace Platform
