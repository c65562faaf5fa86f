// The window without a display.

#include "platform/HeadlessWindow.h"

#include <algorithm>

namespace Platform {

void HeadlessWindow::SetKey(int virtualKey, bool down, char character) {
    using Action = WindowInput::KeyAction;
    const bool wasDown = input.IsKeyDown(virtualKey);
    input.AddKey(virtualKey, !down ? Action::Release : wasDown ? Action::Repeat : Action::Press);
    if (down) {
        input.AddCharacter(static_cast<unsigned char>(character));
    }
}

void HeadlessWindow::SetButton(int button, bool down) {
    input.SetPointer(cursorX - clientLeft, cursorY - clientTop);
    input.AddButton(button, down);
}

void HeadlessWindow::SetCursorPosition(int screenX, int screenY) {
    cursorX = screenX;
    cursorY = screenY;
    const int x = screenX - clientLeft;
    const int y = screenY - clientTop;
    if (x >= 0 && y >= 0 && x < clientWidth && y < clientHeight) {
        input.AddMouseMove(x, y);
    }
}

void HeadlessWindow::SetScreen(int width, int height) {
    screenWidth = width;
    screenHeight = height;
    desktopMode = {width, height, 60};
    modeInForce = desktopMode;
}

void HeadlessWindow::SetSampleLimits(unsigned offered, unsigned given) {
    offeredSamples = offered;
    givenSamples = given;
}

WindowError HeadlessWindow::Create(const WindowSettings& settings) {
    ++createCount;
    if (createError != WindowError::None) {
        return createError;
    }
    open = true;
    foreground = true;
    minimised = false;
    maximised = false;
    title = settings.title;
    resizable = settings.resizable;
    clientLeft = border;
    clientTop = border + caption;
    clientWidth = settings.width;
    clientHeight = settings.height;
    samples = std::min(settings.samples, givenSamples);
    return WindowError::None;
}

void HeadlessWindow::Destroy() {
    LeaveFullscreen();
    open = false;
    samples = 1;
    input.Clear();
}

bool HeadlessWindow::SetSwapInterval(int interval) {
    if (swapInterval < 0) {
        return false;
    }
    swapInterval = interval;
    return true;
}

void HeadlessWindow::SetViewport(int w, int h) {
    viewportWidth = w;
    viewportHeight = h;
}

void HeadlessWindow::Focus() {
    foreground = true;
}

void HeadlessWindow::Maximise() {
    maximised = true;
    minimised = false;
}

void HeadlessWindow::Minimise() {
    ++minimiseCount;
    if (canMinimise) {
        minimised = true;
        foreground = false;
    }
}

void HeadlessWindow::Restore() {
    minimised = false;
    maximised = false;
    foreground = true;
}

int HeadlessWindow::OuterLeft() const {
    return clientLeft - Border();
}

int HeadlessWindow::OuterTop() const {
    return clientTop - Border() - Caption();
}

int HeadlessWindow::OuterWidth() const {
    return clientWidth + 2 * Border();
}

int HeadlessWindow::OuterHeight() const {
    return clientHeight + 2 * Border() + Caption();
}

void HeadlessWindow::MoveOuter(int left, int top) {
    clientLeft = left + Border();
    clientTop = top + Border() + Caption();
}

void HeadlessWindow::SetOuterSize(int w, int h) {
    SetClientSize(w - 2 * Border(), h - 2 * Border() - Caption());
}

void HeadlessWindow::SetClientSize(int w, int h) {
    if (w == clientWidth && h == clientHeight) {
        return;
    }
    clientWidth = std::max(w, 1);
    clientHeight = std::max(h, 1);
    input.AddEvent({.kind = EventKind::Resize});
}

bool HeadlessWindow::EnterFullscreen(const DisplayMode& mode) {
    inFullscreen = true;
    modeInForce = mode;
    screenWidth = mode.width;
    screenHeight = mode.height;
    MoveOuter(0, 0);
    SetClientSize(mode.width, mode.height);
    return true;
}

bool HeadlessWindow::LeaveFullscreen() {
    inFullscreen = false;
    modeInForce = desktopMode;
    screenWidth = desktopMode.width;
    screenHeight = desktopMode.height;
    return true;
}

void HeadlessWindow::WarpCursor(int screenX, int screenY) {
    const int x = std::clamp(screenX, 0, screenWidth - 1);
    const int y = std::clamp(screenY, 0, screenHeight - 1);
    if (IsForeground() && (x != cursorX || y != cursorY)) {
        SetCursorPosition(x, y);
    }
}

}  // namespace Platform
