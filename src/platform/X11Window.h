#pragma once
// What has to be asked of the X server directly, as the toolkit would wait for its outcome: for
// ever, if other events come in and the desktop keeps the window to itself.

struct GLFWwindow;

namespace Platform {

/// Asks for a window to be shown, a minimised one, too, and comes back at once. False where the
/// toolkit doesn't use X11.
bool RequestShow(GLFWwindow* window);

}  // namespace Platform
