#pragma once
// A vector placed in the level. By itself it does nothing; force triggers apply those of their
// target id to the water inside them.

#include <cstdint>

#include "engine/Vector2.h"

struct Force {
    std::uint8_t enabled = 1;  ///< force triggers skip it otherwise
    std::uint32_t id = 0;      ///< what triggers address; not unique
    Vector2 position;          ///< the point of a pull or push
    Vector2 direction;         ///< unit, for the directional effects
    /// Units per second squared for a directional force, units per second for an instantaneous
    /// one, scale of the falloff for pull and push.
    float strength = 0.0f;
};
