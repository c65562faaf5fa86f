#pragma once
// Names for the virtual key codes and mouse buttons of the window's events. Letters and digits
// are their upper-case characters, and further keys of a row run on from the first.

namespace VirtualKey {

inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int keypadCentre = 12;  ///< 5 of a keypad that doesn't type
inline constexpr int enter = 13;
inline constexpr int shift = 16;  ///< either
inline constexpr int control = 17;
inline constexpr int alt = 18;
inline constexpr int pause = 19;
inline constexpr int capsLock = 20;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int printScreen = 44;
inline constexpr int insert = 45;
inline constexpr int deleteKey = 46;
inline constexpr int leftSuper = 91;
inline constexpr int rightSuper = 92;
inline constexpr int menu = 93;
inline constexpr int keypad0 = 96;  ///< and its other digits, up to 9
inline constexpr int keypadMultiply = 106;
inline constexpr int keypadAdd = 107;
inline constexpr int keypadSubtract = 109;
inline constexpr int keypadDecimal = 110;
inline constexpr int keypadDivide = 111;
inline constexpr int f1 = 112;  ///< up to F24
inline constexpr int numLock = 144;
inline constexpr int scrollLock = 145;
inline constexpr int semicolon = 186;
inline constexpr int equals = 187;
inline constexpr int comma = 188;
inline constexpr int minus = 189;
inline constexpr int period = 190;
inline constexpr int slash = 191;
inline constexpr int leftBracket = 219;
inline constexpr int backslash = 220;
inline constexpr int rightBracket = 221;
inline constexpr int apostrophe = 222;
/// The key left of 1, which opens and closes the console.
inline constexpr int console = 223;
/// The key between left shift and Z, of keyboards that have one.
inline constexpr int besideShift = 226;
/// A key that has no code, but may type a character.
inline constexpr int unnamed = 255;

}  // namespace VirtualKey

/// Bits, so that several can be held at once.
namespace MouseButton {

inline constexpr int left = 1;
inline constexpr int right = 2;
inline constexpr int middle = 4;

}  // namespace MouseButton
