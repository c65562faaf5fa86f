#pragma once
// Shows the level time when a check point is reached, or the difference to the earlier pass
// of the same check point. Times are kept until the next level load; a restart keeps them.

#include <array>
#include <cstdint>
#include <optional>

#include "engine/Colour.h"
#include "engine/Timer.h"
#include "graphics/Texture.h"

struct Trigger;

namespace CheckPointTimesManager {

/// Once per level load: forgets all times and reads cfg\checkPoints.cfg.
void Initialise();
void Shutdown();
/// The check point was passed at `time` milliseconds of level time.
void Reached(const Trigger& trigger, std::uint32_t time);
/// Once a frame, at `time` milliseconds of level time; advances the fades too
/// (CheckPointTimesManagerDraw.cpp).
void Draw(std::uint32_t time);

// What drawing is made of.

/// A text as it shows now, in its box across the page.
struct Display {
    std::array<char, 16> text{};  ///< ends with a zero
    Colour colour;
    float top = 0.0f;
    float size = 0.0f;
};

enum class State {
    Hidden = 0,
    FadingInTime = 1,
    FadingOutTime = 2,
    FadingInDifference = 3,
    FadingOutDifference = 4,
};
extern State state;
extern std::optional<Texture> font;
extern Timer frameTimer;  ///< since the last frame

/// None while hidden, and without a font.
std::optional<Display> Current(std::uint32_t time);
/// Takes the seconds since the last call off the fade, and goes on to the next one.
void AdvanceFade(float seconds);

}  // namespace CheckPointTimesManager
