#pragma once
// What changes about a level while it is played; the rest is loaded once and shared by all worlds
// of the level.

#include <cstdint>
#include <vector>

#include "engine/Vector2.h"

/// Of one polygon.
struct PolygonState {
    std::uint8_t solid = 1;    ///< the edges collide
    std::uint8_t enabled = 1;  ///< drawn; a trigger can take it out of the level
    Vector2 offset;            ///< displacement by a mover
    Vector2 previousOffset;    ///< `offset` at the end of the previous step
};

struct LevelState {
    std::vector<PolygonState> polygons;         ///< by LevelPolygon::number
    std::vector<std::uint8_t> segmentsCollide;  ///< 1 or 0, by place in the tree's nodes
};
