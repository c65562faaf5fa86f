#pragma once
// The body of water in numbers, as its sounds need them: one walk over the particles each.

#include <cstddef>
#include <cstdint>

/// Everything of the water that is in one state.
struct MovingBody {
    std::uint32_t count = 0;  ///< particles
    float ratio = 0.0f;       ///< against a full body of water; may pass 1
    float meanSpeed = 0.0f;   ///< units per second; 0 without particles
};

MovingBody LiquidWater();
MovingBody Ice();
std::uint32_t SteamCount();

/// That many particles against a full body of water.
float BodyRatio(std::size_t count);
