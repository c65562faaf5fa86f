#pragma once
// The move of a lump of ice, plainly: a query after each hop, to the end.

#include <algorithm>

#include "level/Collision.h"

namespace Plain {

inline Vector2 HopThrough(Vector2 position, float radius, Vector2 move) {
    float length = Length(move);
    const Vector2 direction = move / length;
    while (length > 0.0f) {
        position += direction * std::min(length, radius * 0.75f);
        Collision::CollideCircle(position, radius);
        length = length > radius * 0.75f ? length - radius * 0.75f : 0.0f;
    }
    return position;
}

}  // namespace Plain
