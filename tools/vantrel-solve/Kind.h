#pragma once
// Kinds of situations as numbers: what makes two situations the same is mixed into one hash.

#include <cmath>
#include <cstdint>

#include "engine/Vector2.h"

namespace Kind {

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

}  // namespace Kind
