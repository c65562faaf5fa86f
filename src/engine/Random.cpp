// A multiplicative generator carried out in double precision; the 32 bits of a rounded float
// become the next state. Every step is exact in IEEE arithmetic, so all builds give the same
// sequence.

#include "engine/Random.h"

#include <bit>

namespace {

constexpr double factor = 32452843.11;
constexpr double offset = 275604541.11;
constexpr double inversePi = 0.31830987;
constexpr std::uint32_t unitMask = 0xFFFFFF;  // as many bits as a float holds exactly

}  // namespace

RandomNumbers Random::current;

std::uint32_t RandomNumbers::Next() {
    // At most 2^32 times the factor: about 1.4e17, well within 64 bits.
    const double a = state * factor + offset;
    state = static_cast<std::uint32_t>(static_cast<std::int64_t>(a));
    const double b = state * factor + offset + state * inversePi;
    state = std::bit_cast<std::uint32_t>(static_cast<float>(b));
    return state;
}

float RandomNumbers::Unit() {
    return static_cast<float>((Next() & unitMask) / 16777215.0);
}
