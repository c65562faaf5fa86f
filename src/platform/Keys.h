#pragma once
// The one table from the window toolkit's keys to virtual key codes (platform/VirtualKeys.h).

#include <map>

namespace Platform {

/// A key that has no virtual key code, but may type a character.
inline constexpr int unnamedKey = 255;

/// The virtual key code of a toolkit key. Both shift keys give 16, both control keys 17, both
/// alt keys 18, as they do in key events; the key left of 1 gives 223. The keypad's digits have
/// codes of their own where it types, and are arrows and their neighbours where it doesn't.
int KeyCode(int toolkitKey, bool keypadTypes = true);

/// The same for keys that are held: one comes up with the code that it went down with, even if
/// the keypad's lock has changed meanwhile.
class KeyCodes {
public:
    int Press(int toolkitKey, bool keypadTypes);
    int Release(int toolkitKey);

private:
    std::map<int, int> held;
};

}  // namespace Platform
