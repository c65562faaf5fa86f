// Display modes, gamma, extensions and the swap interval.

#include "graphics/GLWindowDisplay.h"

#include <algorithm>

#include "engine/Text.h"

namespace GLWindow {

namespace {

/// Whether a later mode of the list is to replace the best so far: rates walk towards 60 Hz
/// from either side.
bool IsBetterRate(int rate, int best) {
    return (rate > best && best < 60) || (rate < best && best > 60);
}

}  // namespace

bool FindDisplayMode(int width, int height, Platform::DisplayMode& best) {
    bool found = false;
    for (const Platform::DisplayMode& mode : Platform::TheWindow().DisplayModes()) {
        if (mode.width != width || mode.height != height) {
            continue;
        }
        if (!found || IsBetterRate(mode.refreshRate, best.refreshRate)) {
            best = mode;
        }
        found = true;
    }
    return found;
}

bool HasDisplayMode(int width, int height) {
    Platform::DisplayMode mode;
    return FindDisplayMode(width, height, mode);
}

void SetGamma(float value) {
    // Written so that a NaN is ignored too.
    if (!(value >= 0.0f && value <= 2.0f) || !Platform::TheWindow().IsOpen()) {
        return;
    }
    const int step = static_cast<int>(value * 255.0f);
    std::vector<unsigned short> ramp(256);
    for (int i = 0; i < 256; ++i) {
        ramp[static_cast<std::size_t>(i)] = static_cast<unsigned short>(std::min(65535, i * step));
    }
    Platform::TheWindow().SetGammaRamp(ramp);
}

bool HasExtension(std::string_view name) {
    const std::vector<std::string> words =
        SplitWords(UpperCased(Platform::TheWindow().ExtensionText()));
    return std::find(words.begin(), words.end(), UpperCased(name)) != words.end();
}

void ListExtensions(std::vector<std::string>& list) {
    const std::vector<std::string> words = SplitWords(Platform::TheWindow().ExtensionText());
    list.insert(list.end(), words.begin(), words.end());
}

void SetVsync(bool on) {
    Platform::TheWindow().SetSwapInterval(on ? 1 : 0);
}

bool VsyncEnabled() {
    const int interval = Platform::TheWindow().SwapInterval();
    return interval < 0 || interval > 0;
}

}  // namespace GLWindow
