#pragma once
// Random numbers. Simulation, sound variation, camera shake and effects of one world all draw
// from one source, so the order of calls is part of a run's result. It is never seeded.

#include <cstdint>

/// A source of random numbers; a copy goes on alike.
class RandomNumbers {
public:
    /// The next 32-bit word, which is also the new state.
    std::uint32_t Next();
    /// A float in 0..1, both ends possible.
    float Unit();

    std::uint32_t state = 0;  ///< all that there is to it
};

/// The source of the world in play.
namespace Random {

extern RandomNumbers current;
/// 0 at the start of the program.
inline std::uint32_t& state = current.state;

inline std::uint32_t Next() {
    return current.Next();
}
inline float Unit() {
    return current.Unit();
}

}  // namespace Random
