#pragma once
// The one table from the window toolkit's keys to virtual key codes (platform/VirtualKeys.h).

#include <map>

namespace Platform {

/// The virtual key code of a toolkit key; `VirtualKey::unnamed` where there is none. Left and
/// right shift, control and alt are one code each, as they are in key events. The keypad's digits
/// have codes of their own where it types, and are arrows and their neighbours where it doesn't.
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
