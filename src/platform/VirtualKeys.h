#pragma once
// Names for the virtual key codes that the game itself acts on. Letters and digits are their
// upper-case characters.

namespace VirtualKey {

inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int pause = 19;
inline constexpr int escape = 27;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int insert = 45;
inline constexpr int deleteKey = 46;
/// The key left of 1, which opens and closes the console.
inline constexpr int console = 223;

}  // namespace VirtualKey
