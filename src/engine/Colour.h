#pragma once
// The one type for colours, and the ones that debug views use. Settings files give a colour as
// NAME_r, NAME_g, NAME_b and NAME_a; ConfigFile reads them.

/// Components 0..1; opaque black unless said otherwise. As four floats in a row, GL takes it as
/// it lies.
struct Colour {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;
};

namespace Colours {

inline constexpr Colour black{0.0f, 0.0f, 0.0f};
inline constexpr Colour white{1.0f, 1.0f, 1.0f};
inline constexpr Colour red{1.0f, 0.0f, 0.0f};
inline constexpr Colour green{0.0f, 1.0f, 0.0f};
inline constexpr Colour blue{0.0f, 0.0f, 1.0f};
inline constexpr Colour yellow{1.0f, 1.0f, 0.0f};

}  // namespace Colours
