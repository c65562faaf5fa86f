#pragma once
// A node of the level's tree: one edge that splits space by its line and collides, unless the
// level's state says otherwise. The same record serves as an edge of a moving polygon.

#include <cstdint>

#include "engine/Vector2.h"

class LevelPolygon;

struct BspSegment {
    Vector2 start;
    Vector2 end;
    Vector2 normal;     ///< unit, (-direction.y, direction.x); points into the solid
    Vector2 direction;  ///< unit, from start to end
    float length = 0.0f;
    float friction = 1.0f;
    std::uint8_t cutOnly = 0;  ///< from a polygon neither solid nor visible
    LevelPolygon* polygon = nullptr;
    BspSegment* parent = nullptr;
    BspSegment* backChild = nullptr;   ///< free side of the normal; null where empty
    BspSegment* frontChild = nullptr;  ///< solid side

    /// Takes new ends, and works out direction, normal and length from them.
    void SetEnds(Vector2 newStart, Vector2 newEnd) {
        start = newStart;
        end = newEnd;
        direction = end - start;
        length = Length(direction);
        Normalise(direction);
        normal = {-direction.y, direction.x};
    }
};

/// Edges up to this length are too short to give a direction; none are made.
constexpr float shortestEdge = 0.01f;
