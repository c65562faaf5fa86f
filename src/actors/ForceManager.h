#pragma once
// Forces: vectors placed in the level. By itself a force does nothing; force triggers apply
// those of their target id to the water inside them. Order of calls: Initialise, Add,
// Shutdown. There is no reset: a level restart keeps `enabled` as triggers left it.

#include <cstdint>
#include <deque>

#include "engine/Vector2.h"
#include "level/View.h"

struct Force {
    std::uint8_t enabled = 1;  ///< force triggers skip it otherwise
    std::uint32_t id = 0;      ///< what triggers address; not unique
    Vector2 position;          ///< the point of a pull or push
    Vector2 direction;         ///< unit, for the directional effects
    /// Units per second squared for a directional force, units per second for an instantaneous
    /// one, scale of the falloff for pull and push.
    float strength = 0.0f;
};

namespace ForceManager {

/// In the order of adding; pointers to entries stay valid until Shutdown.
extern std::deque<Force> forces;
extern bool forceDraw;

void Initialise();
void Shutdown();
/// Appends an enabled force; the direction is normalised, (0, 0) becoming (1, 0). Values that
/// aren't finite count as 0.
void Add(std::uint32_t id, float x, float y, float directionX, float directionY, float strength);
/// Debug view (ForceManagerDraw.cpp).
void Draw(const View& view);

}  // namespace ForceManager
