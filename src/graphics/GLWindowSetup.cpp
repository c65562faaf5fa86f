// What the window's context is like: samples, extensions and the swap interval. Samples can't
// be added to a context, so changing them means building the window anew.

#include <algorithm>

#include "engine/Text.h"
#include "graphics/GLWindowState.h"

namespace GLWindow {

namespace {

/// What a rebuilt window takes over from its predecessor.
struct Kept {
    std::string title = GetTitle();
    Platform::Cursor cursorKind = GetCursorKind();
    bool fullscreen = IsFullscreen();
    int width = ClientWidth();
    int height = ClientHeight();
    int left = WindowLeft();
    int top = WindowTop();
    GLWindowEventListener* listener = GetListener();
};

void Restore(const Kept& kept) {
    Platform::Window& window = Platform::TheWindow();
    window.Show();
    BringToFront();
    Move(kept.left, kept.top);
    SetClientSize(kept.width, kept.height);
    SetTitle(kept.title);
    SetCursorKind(kept.cursorKind);
    SetListener(kept.listener);
    if (kept.fullscreen) {
        SetFullscreen(true, kept.width, kept.height);
    }
}

/// Closes the window so that nobody hears of it.
void CloseUnheard() {
    SetListener(nullptr);
    Close();
}

void RebuildPlainly() {
    const Kept kept;
    CloseUnheard();
    MakeWindow({.title = State::initialTitle, .width = 320, .height = 240, .resizable = true});
    state.samples = 1;
    Restore(kept);
}

bool RebuildWithSamples(unsigned count) {
    Platform::Window& window = Platform::TheWindow();
    if (!window.OffersSamples(count)) {
        return false;
    }
    const Kept kept;
    CloseUnheard();
    Platform::WindowSettings settings{
        .title = State::initialTitle, .width = 320, .height = 240, .samples = count};
    const bool made = window.Create(settings) == Platform::WindowError::None;
    // The context may hold more samples than asked for, which serves as well.
    const bool sampled = made && window.Samples() >= count;
    state.samples = sampled ? count : 1;
    if (!sampled) {
        window.Destroy();
        settings.samples = 1;
        MakeWindow(settings);
    }
    Restore(kept);
    return sampled;
}

}  // namespace

bool SetSamples(unsigned count) {
    if (!IsOpen()) {
        return false;
    }
    count = std::max(count, 1U);
    if (count == state.samples) {
        return true;
    }
    if (count < 2) {
        RebuildPlainly();
        return true;
    }
    const unsigned previous = state.samples;
    if (RebuildWithSamples(count)) {
        return true;
    }
    // A refusal before the window was touched has left the previous count in force.
    if (previous != 1 && state.samples != previous) {
        RebuildWithSamples(previous);
    }
    return false;
}

unsigned Samples() {
    return state.samples;
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
