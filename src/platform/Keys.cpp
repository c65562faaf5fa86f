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
    Pair{GLFW_KEY_SPACE, VirtualKey::space},
    Pair{GLFW_KEY_APOSTROPHE, VirtualKey::apostrophe},
    Pair{GLFW_KEY_COMMA, VirtualKey::comma},
    Pair{GLFW_KEY_MINUS, VirtualKey::minus},
    Pair{GLFW_KEY_PERIOD, VirtualKey::period},
    Pair{GLFW_KEY_SLASH, VirtualKey::slash},
    Pair{GLFW_KEY_SEMICOLON, VirtualKey::semicolon},
    Pair{GLFW_KEY_EQUAL, VirtualKey::equals},
    Pair{GLFW_KEY_LEFT_BRACKET, VirtualKey::leftBracket},
    Pair{GLFW_KEY_BACKSLASH, VirtualKey::backslash},
    Pair{GLFW_KEY_RIGHT_BRACKET, VirtualKey::rightBracket},
    Pair{GLFW_KEY_GRAVE_ACCENT, VirtualKey::console},
    Pair{GLFW_KEY_WORLD_1, VirtualKey::besideShift},
    Pair{GLFW_KEY_WORLD_2, VirtualKey::besideShift},
    Pair{GLFW_KEY_ESCAPE, VirtualKey::escape},
    Pair{GLFW_KEY_ENTER, VirtualKey::enter},
    Pair{GLFW_KEY_TAB, VirtualKey::tab},
    Pair{GLFW_KEY_BACKSPACE, VirtualKey::backspace},
    Pair{GLFW_KEY_INSERT, VirtualKey::insert},
    Pair{GLFW_KEY_DELETE, VirtualKey::deleteKey},
    Pair{GLFW_KEY_RIGHT, VirtualKey::right},
    Pair{GLFW_KEY_LEFT, VirtualKey::left},
    Pair{GLFW_KEY_DOWN, VirtualKey::down},
    Pair{GLFW_KEY_UP, VirtualKey::up},
    Pair{GLFW_KEY_PAGE_UP, VirtualKey::pageUp},
    Pair{GLFW_KEY_PAGE_DOWN, VirtualKey::pageDown},
    Pair{GLFW_KEY_HOME, VirtualKey::home},
    Pair{GLFW_KEY_END, VirtualKey::end},
    Pair{GLFW_KEY_CAPS_LOCK, VirtualKey::capsLock},
    Pair{GLFW_KEY_SCROLL_LOCK, VirtualKey::scrollLock},
    Pair{GLFW_KEY_NUM_LOCK, VirtualKey::numLock},
    Pair{GLFW_KEY_PRINT_SCREEN, VirtualKey::printScreen},
    Pair{GLFW_KEY_PAUSE, VirtualKey::pause},
    Pair{GLFW_KEY_KP_DECIMAL, VirtualKey::keypadDecimal},
    Pair{GLFW_KEY_KP_DIVIDE, VirtualKey::keypadDivide},
    Pair{GLFW_KEY_KP_MULTIPLY, VirtualKey::keypadMultiply},
    Pair{GLFW_KEY_KP_SUBTRACT, VirtualKey::keypadSubtract},
    Pair{GLFW_KEY_KP_ADD, VirtualKey::keypadAdd},
    Pair{GLFW_KEY_KP_ENTER, VirtualKey::enter},
    Pair{GLFW_KEY_KP_EQUAL, VirtualKey::equals},
    Pair{GLFW_KEY_LEFT_SHIFT, VirtualKey::shift},
    Pair{GLFW_KEY_RIGHT_SHIFT, VirtualKey::shift},
    Pair{GLFW_KEY_LEFT_CONTROL, VirtualKey::control},
    Pair{GLFW_KEY_RIGHT_CONTROL, VirtualKey::control},
    Pair{GLFW_KEY_LEFT_ALT, VirtualKey::alt},
    Pair{GLFW_KEY_RIGHT_ALT, VirtualKey::alt},
    Pair{GLFW_KEY_LEFT_SUPER, VirtualKey::leftSuper},
    Pair{GLFW_KEY_RIGHT_SUPER, VirtualKey::rightSuper},
    Pair{GLFW_KEY_MENU, VirtualKey::menu},
};

// Of the keypad's keys 0 to 9 where it doesn't type.
constexpr std::array keypadMoves{VirtualKey::insert,   VirtualKey::end,  VirtualKey::down,
                                 VirtualKey::pageDown, VirtualKey::left, VirtualKey::keypadCentre,
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
        return toolkitKey - GLFW_KEY_F1 + VirtualKey::f1;
    }
    if (IsWithin(toolkitKey, GLFW_KEY_KP_0, GLFW_KEY_KP_9)) {
        return toolkitKey - GLFW_KEY_KP_0 + VirtualKey::keypad0;
    }
    for (const Pair& pair : pairs) {
        if (pair.toolkitKey == toolkitKey) {
            return pair.code;
        }
    }
    return VirtualKey::unnamed;
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
