#pragma once
// What both windows know of keys, buttons and waiting events: the queue, the state tables, and
// the pairing of typed characters with the keys that made them.

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>

#include "platform/Window.h"

namespace Platform {

class WindowInput {
public:
    enum class KeyAction { Release, Press, Repeat };

    /// A key went down or up. Enter, backspace, tab and escape get their characters here, as
    /// toolkits don't report them as typed text.
    void AddKey(int virtualKey, KeyAction action);
    /// A character, which belongs to the key-down queued right before it. One without a key
    /// comes with `VirtualKey::unnamed`.
    void AddCharacter(std::uint32_t codePoint);
    /// At the position of the last move: by the time that a press is read the pointer has moved on.
    void AddButton(int button, bool down);
    void AddMouseMove(int x, int y);
    /// Where the pointer is, without an event.
    void SetPointer(int x, int y);
    bool IsPointerAt(int x, int y) const { return x == pointerX && y == pointerY; }
    void AddEvent(const Event& event) { events.push_back(event); }
    /// Sets the state of a lock key, where the system tells it.
    void SetToggled(int virtualKey, bool on);
    void RequestRepaint() { repaint = true; }

    bool IsEmpty() const { return events.empty(); }
    /// The oldest event; a requested repaint when nothing else waits.
    bool Take(Event& event);
    /// Forgets the events, and that anything is held down.
    void Clear();

    bool IsKeyDown(int virtualKey) const;
    bool IsKeyToggled(int virtualKey) const;
    /// False for what is no single button.
    bool IsButtonDown(int button) const;
    char CharacterOf(int virtualKey) const;

private:
    struct Key {
        int held = 0;  ///< how many real keys hold it down: two shift keys are one code
        bool toggled = false;
        char character = 0;
    };
    static bool IsKey(int code) { return code >= 0 && code < 256; }

    std::array<Key, 256> keys{};
    int buttons = 0;
    int pointerX = 0;  ///< in client pixels, after all events of the queue
    int pointerY = 0;
    bool repaint = false;
    std::deque<Event> events;
};

}  // namespace Platform
