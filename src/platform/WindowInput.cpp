// Keys, buttons and waiting events of a window.

#include "platform/WindowInput.h"

#include <algorithm>

#include "platform/VirtualKeys.h"

namespace Platform {

namespace {

/// Characters that a key makes whatever the layout.
char FixedCharacter(int virtualKey) {
    switch (virtualKey) {
        case VirtualKey::backspace:
        case VirtualKey::tab:
        case VirtualKey::enter:
        case VirtualKey::escape:
            return static_cast<char>(virtualKey);
        default:
            return 0;
    }
}

}  // namespace

void WindowInput::AddKey(int virtualKey, KeyAction action) {
    if (!IsKey(virtualKey)) {
        return;
    }
    Key& key = keys[static_cast<std::size_t>(virtualKey)];
    if (action == KeyAction::Press) {
        ++key.held;
        key.toggled = !key.toggled;
    } else if (action == KeyAction::Release) {
        key.held = std::max(key.held - 1, 0);
    }
    const bool down = action != KeyAction::Release;
    events.push_back({.kind = down ? EventKind::KeyDown : EventKind::KeyUp,
                      .key = virtualKey,
                      .character = down ? FixedCharacter(virtualKey) : '\0'});
}

void WindowInput::AddCharacter(std::uint32_t codePoint) {
    // Fonts have 256 cells.
    if (codePoint == 0 || codePoint > 255) {
        return;
    }
    const char character = static_cast<char>(static_cast<unsigned char>(codePoint));
    const bool fits =
        !events.empty() && events.back().kind == EventKind::KeyDown && events.back().character == 0;
    if (fits) {
        events.back().character = character;
        return;
    }
    events.push_back(
        {.kind = EventKind::KeyDown, .key = VirtualKey::unnamed, .character = character});
    events.push_back({.kind = EventKind::KeyUp, .key = VirtualKey::unnamed});
}

void WindowInput::AddButton(int button, bool down) {
    buttons = down ? buttons | button : buttons & ~button;
    events.push_back({.kind = down ? EventKind::MouseDown : EventKind::MouseUp,
                      .x = pointerX,
                      .y = pointerY,
                      .button = button});
}

void WindowInput::SetPointer(int x, int y) {
    pointerX = x;
    pointerY = y;
}

void WindowInput::AddMouseMove(int x, int y) {
    SetPointer(x, y);
    events.push_back({.kind = EventKind::MouseMove, .x = x, .y = y});
}

void WindowInput::SetToggled(int virtualKey, bool on) {
    if (IsKey(virtualKey)) {
        keys[static_cast<std::size_t>(virtualKey)].toggled = on;
    }
}

bool WindowInput::Take(Event& event) {
    if (!events.empty()) {
        event = events.front();
        events.pop_front();
        if (event.kind == EventKind::KeyDown && IsKey(event.key)) {
            keys[static_cast<std::size_t>(event.key)].character = event.character;
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

void WindowInput::Clear() {
    events.clear();
    repaint = false;
    buttons = 0;
    SetPointer(0, 0);  // the toolkit's position for a window that no pointer was in
    for (Key& key : keys) {
        key.held = 0;
    }
}

bool WindowInput::IsKeyDown(int virtualKey) const {
    return IsKey(virtualKey) && keys[static_cast<std::size_t>(virtualKey)].held > 0;
}

bool WindowInput::IsKeyToggled(int virtualKey) const {
    return IsKey(virtualKey) && keys[static_cast<std::size_t>(virtualKey)].toggled;
}

bool WindowInput::IsButtonDown(int button) const {
    const bool isButton = button == MouseButton::left || button == MouseButton::right ||
                          button == MouseButton::middle;
    return isButton && (buttons & button) != 0;
}

char WindowInput::CharacterOf(int virtualKey) const {
    return IsKey(virtualKey) ? keys[static_cast<std::size_t>(virtualKey)].character : '\0';
}

}  // namespace Platform
