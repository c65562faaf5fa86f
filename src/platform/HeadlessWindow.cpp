// The window without a display.

#include "platform/HeadlessWindow.h"

#include <algorithm>

namespace Platform {

void HeadlessWindow::SetKey(int virtualKey, bool down, char character) {
    if (!IsKey(virtualKey)) {
        return;
    }
    const auto index = static_cast<std::size_t>(virtualKey);
    if (down && !keys[index]) {
        toggled[index] = !toggled[index];
    }
    keys[index] = down;
    QueueEvent({.kind = down ? EventKind::KeyDown : EventKind::KeyUp,
                .key = virtualKey,
                .character = character});
}

void HeadlessWindow::SetToggled(int virtualKey, bool on) {
    if (IsKey(virtualKey)) {
        toggled[static_cast<std::size_t>(virtualKey)] = on;
    }
}

void HeadlessWindow::SetButton(int button, bool down) {
    buttons = down ? buttons | button : buttons & ~button;
    QueueEvent({.kind = down ? EventKind::MouseDown : EventKind::MouseUp,
                .x = cursorX - clientLeft,
                .y = cursorY - clientTop,
                .button = button});
}

void HeadlessWindow::SetCursorPosition(int screenX, int screenY) {
    cursorX = screenX;
    cursorY = screenY;
    const int x = screenX - clientLeft;
    const int y = screenY - clientTop;
    if (x >= 0 && y >= 0 && x < clientWidth && y < clientHeight) {
        QueueEvent({.kind = EventKind::MouseMove, .x = x, .y = y});
    }
}

void HeadlessWindow::QueueEvent(const Event& event) {
    if (open) {
        events.push_back(event);
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
    repaint = false;
    samples = 1;
    events.clear();
    keys.fill(false);
    buttons = 0;
}

bool HeadlessWindow::TakeEvent(Event& event) {
    if (!events.empty()) {
        event = events.front();
        events.pop_front();
        if (event.kind == EventKind::KeyDown && IsKey(event.key)) {
            characters[static_cast<std::size_t>(event.key)] = event.character;
        }
        return true;
    }
    if (repaint) {
        repaint = false;
        event = {.kind = EventKind::Paint};
        return true;
    }
    return false;
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
    QueueEvent({.kind = EventKind::Resize});
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
    if (IsForeground()) {
        cursorX = std::clamp(screenX, 0, screenWidth - 1);
        cursorY = std::clamp(screenY, 0, screenHeight - 1);
    }
}

bool HeadlessWindow::IsKeyDown(int virtualKey) const {
    return IsKey(virtualKey) && keys[static_cast<std::size_t>(virtualKey)];
}

bool HeadlessWindow::IsKeyToggled(int virtualKey) const {
    return IsKey(virtualKey) && toggled[static_cast<std::size_t>(virtualKey)];
}

char HeadlessWindow::KeyToChar(int virtualKey) const {
    return IsKey(virtualKey) ? characters[static_cast<std::size_t>(virtualKey)] : '\0';
}

}  // namespace Platform
