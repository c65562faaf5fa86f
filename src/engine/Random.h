#pragma once
// The game's one random source. Simulation, sound variation, camera shake and effects all
// draw from it, so the order of calls is part of a run's result. It is never seeded.

#include <cstdint>

namespace Random {

/// The whole state of the generator; 0 at the start of the program.
extern std::uint32_t state;

/// The next 32-bit word, which is also the new state.
std::uint32_t Next();

/// A float in 0..1, both ends possible.
float Unit();

}  // namespace Random
