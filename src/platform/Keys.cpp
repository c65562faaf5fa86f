// Keys of the window toolkit and their virtual key codes.

#include "platform/Keys.h"

#define GLFW_INCLUDE_NONE
#include <GLFW/glfw3.h>

#include <array>

#include "platform/VirtualKeys.h"

namespace Platform {

namespace {

struct Pair {
    int toolkitKey;
    int code;
};

// Letters and digits have the same numbers on both sides; function and keypad digits run on.
constexpr std::array pairs{
    Pair{GLFW_KEY_SPACE, 32},
    Pair{GLFW_KEY_APOSTROPHE, 222},
    Pair{GLFW_KEY_COMMA, 188},
    Pair{GLFW_KEY_MINUS, 189},
    Pair{GLFW_KEY_PERIOD, 190},
    Pair{GLFW_KEY_SLASH, 191},
    Pair{GLFW_KEY_SEMICOLON, 186},
    Pair{GLFW_KEY_EQUAL, 187},
    Pair{GLFW_KEY_LEFT_BRACKET, 219},
    Pair{GLFW_KEY_BACKSLASH, 220},
    Pair{GLFW_KEY_RIGHT_BRACKET, 221},
    Pair{GLFW_KEY_GRAVE_ACCENT, 223},
    // The key between left shift and Z of keyboards that have one.
    Pair{GLFW_KEY_WORLD_1, 226},
    Pair{GLFW_KEY_WORLD_2, 226},
    Pair{GLFW_KEY_ESCAPE, 27},
    Pair{GLFW_KEY_ENTER, 13},
    Pair{GLFW_KEY_TAB, 9},
    Pair{GLFW_KEY_BACKSPACE, 8},
    Pair{GLFW_KEY_INSERT, 45},
    Pair{GLFW_KEY_DELETE, 46},
    Pair{GLFW_KEY_RIGHT, 39},
    Pair{GLFW_KEY_LEFT, 37},
    Pair{GLFW_KEY_DOWN, 40},
    Pair{GLFW_KEY_UP, 38},
    Pair{GLFW_KEY_PAGE_UP, 33},
    Pair{GLFW_KEY_PAGE_DOWN, 34},
    Pair{GLFW_KEY_HOME, 36},
    Pair{GLFW_KEY_END, 35},
    Pair{GLFW_KEY_CAPS_LOCK, 20},
    Pair{GLFW_KEY_SCROLL_LOCK, 145},
    Pair{GLFW_KEY_NUM_LOCK, 144},
    Pair{GLFW_KEY_PRINT_SCREEN, 44},
    Pair{GLFW_KEY_PAUSE, 19},
    Pair{GLFW_KEY_KP_DECIMAL, 110},
    Pair{GLFW_KEY_KP_DIVIDE, 111},
    Pair{GLFW_KEY_KP_MULTIPLY, 106},
    Pair{GLFW_KEY_KP_SUBTRACT, 109},
    Pair{GLFW_KEY_KP_ADD, 107},
    Pair{GLFW_KEY_KP_ENTER, 13},
    Pair{GLFW_KEY_KP_EQUAL, 187},
    Pair{GLFW_KEY_LEFT_SHIFT, 16},
    Pair{GLFW_KEY_RIGHT_SHIFT, 16},
    Pair{GLFW_KEY_LEFT_CONTROL, 17},
    Pair{GLFW_KEY_RIGHT_CONTROL, 17},
    Pair{GLFW_KEY_LEFT_ALT, 18},
    Pair{GLFW_KEY_RIGHT_ALT, 18},
    Pair{GLFW_KEY_LEFT_SUPER, 91},
    Pair{GLFW_KEY_RIGHT_SUPER, 92},
    Pair{GLFW_KEY_MENU, 93},
};

// Of the keypad's keys 0 to 9 where it doesn't type; 12 is the one in the middle's own.
constexpr std::array keypadMoves{VirtualKey::insert,   VirtualKey::end,  VirtualKey::down,
                                 VirtualKey::pageDown, VirtualKey::left, 12,
                                 VirtualKey::right,    VirtualKey::home, VirtualKey::up,
                                 VirtualKey::pageUp};

bool IsWithin(int key, int first, int last) {
    return key >= first && key <= last;
}

}  // namespace

int KeyCode(int toolkitKey, bool keypadTypes) {
    if (!keypadTypes) {
        if (IsWithin(toolkitKey, GLFW_KEY_KP_0, GLFW_KEY_KP_9)) {
            return keypadMoves[static_cast<std::size_t>(toolkitKey - GLFW_KEY_KP_0)];
        }
        if (toolkitKey == GLFW_KEY_KP_DECIMAL) {
            return VirtualKey::deleteKey;
        }
    }
    if (IsWithin(toolkitKey, GLFW_KEY_A, GLFW_KEY_Z) ||
        IsWithin(toolkitKey, GLFW_KEY_0, GLFW_KEY_9)) {
        return toolkitKey;
    }
    if (IsWithin(toolkitKey, GLFW_KEY_F1, GLFW_KEY_F24)) {
        return toolkitKey - GLFW_KEY_F1 + 112;
    }
    if (IsWithin(toolkitKey, GLFW_KEY_KP_0, GLFW_KEY_KP_9)) {
        return toolkitKey - GLFW_KEY_KP_0 + 96;
    }
    for (const Pair& pair : pairs) {
        if (pair.toolkitKey == toolkitKey) {
            return pair.code;
        }
    }
    return unnamedKey;
}

int KeyCodes::Press(int toolkitKey, bool keypadTypes) {
    // Repeats of a held key, too, are the key that went down.
    return held.try_emplace(toolkitKey, KeyCode(toolkitKey, keypadTypes)).first->second;
}

int KeyCodes::Release(int toolkitKey) {
    const auto found = held.find(toolkitKey);
    if (found == held.end()) {
        return KeyCode(toolkitKey);
    }
    const int code = found->second;
    held.erase(found);
    return code;
}

}  // namespace Platform
