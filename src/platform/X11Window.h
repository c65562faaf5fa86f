#pragma once
// Requests that go to the X server directly: the toolkit would wait for their outcome, possibly
// for ever.

struct GLFWwindow;

namespace Platform {

/// Asks for a window to be shown, also a minimised one, and returns at once. False where the
/// toolkit doesn't use X11.
bool RequestShow(GLFWwindow* window);

/// From now on the process ends with a message and status 1 when its display server goes away.
void WatchDisplay();

}  // namespace Platform
