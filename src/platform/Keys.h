#pragma once
// The one table from the window toolkit's keys to virtual key codes (platform/VirtualKeys.h).

namespace Platform {

/// A key that has no virtual key code, but may type a character.
inline constexpr int unnamedKey = 255;

/// The virtual key code of a toolkit key. Both shift keys give 16, both control keys 17, both
/// alt keys 18, as they do in key events; the key left of 1 gives 223.
int KeyCode(int toolkitKey);

}  // namespace Platform
