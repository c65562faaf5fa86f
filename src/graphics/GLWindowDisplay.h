#pragma once
// What the display and the window's GL context offer: display modes, gamma, extensions and
// vertical sync. Main thread only.

#include <string>
#include <string_view>
#include <vector>

#include "platform/Window.h"

namespace GLWindow {

/// The mode of that size whose rate comes nearest to 60 Hz, walking towards it in the order
/// of the list.
bool FindDisplayMode(int width, int height, Platform::DisplayMode& best);
bool HasDisplayMode(int width, int height);
/// Brightness of the whole screen, 0 to 2; ignored outside of that.
void SetGamma(float value);

/// Whether the context's extension list holds the name as a whole word, in any case.
bool HasExtension(std::string_view name);
/// Appends all of them.
void ListExtensions(std::vector<std::string>& list);
void SetVsync(bool on);
/// True if the swap interval is above 0, and also if it can't be asked.
bool VsyncEnabled();

}  // namespace GLWindow
