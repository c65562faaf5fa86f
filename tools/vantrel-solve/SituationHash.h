#pragma once
// The hash that tells situations apart: all that makes two of them the same is mixed into it.

#include <cmath>
#include <cstdint>

#include "engine/Vector2.h"

namespace SituationHash {

inline void Mix(std::uint64_t& hash, std::uint64_t value) {
    hash = (hash ^ value) * 0x9e3779b97f4a7c15u;
    hash ^= hash >> 29;
}

/// The square of a grid that a place lies in; `size` in world units.
inline std::uint64_t Square(Vector2 place, float size) {
    const auto x = static_cast<std::int64_t>(std::floor(place.x / size));
    const auto y = static_cast<std::int64_t>(std::floor(place.y / size));
    return static_cast<std::uint64_t>(x) << 32 ^ static_cast<std::uint64_t>(y & 0xffffffff);
}

}  // namespace SituationHash
