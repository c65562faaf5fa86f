#pragma once
// What the X server has to be asked directly: the toolkit would wait for the outcome, for ever if
// other events come in and the desktop keeps the window to itself, or doesn't care.

struct GLFWwindow;

namespace Platform {

/// Asks for a window to be shown, a minimised one, too, and comes back at once. False where the
/// toolkit doesn't use X11.
bool RequestShow(GLFWwindow* window);

/// The process ends with a line and status 1 when its display server goes.
void WatchDisplay();

}  // namespace Platform
