#pragma once
// One simulation step of one world's water: what it works on and with, and what is worked out
// once for all particles and groups.

#include <vector>

#include "engine/Random.h"
#include "level/Collision.h"
#include "level/View.h"
#include "water/Clusters.h"
#include "water/GroupFreeze.h"
#include "water/GroupMerge.h"
#include "water/ParticleGrid.h"
#include "water/WaterState.h"

/// What steps need besides the world, kept from one to the next so that they allocate nothing.
/// Holds nothing of a world between steps. Each thread that steps worlds has its own.
struct WaterWorkspace {
    ParticleGrid grid;
    Clusters clusters;
    GroupFreeze freezer;
    GroupMerge merger;
    std::vector<std::uint32_t> touching;  ///< one particle, slots of the grid
    std::vector<std::uint32_t> order;     ///< of cohesion, places in the list of particles
    std::vector<Vector2> positions;       ///< in that order
    std::vector<std::uint32_t> chance;    ///< random words that are drawn ahead
    std::vector<std::uint32_t> gone;      ///< places of particles that the step drops, ascending
};

/// A world's water, what it collides with, and its chance.
struct WaterParts {
    WaterState& water;
    LevelState& level;
    CollisionSpace& space;
    RandomNumbers& random;
    WaterWorkspace& work;
};

struct WaterStep : WaterParts {
    WaterStep(const WaterParts& parts, const View& view, float seconds);

    /// The step's room temperature blended into a temperature.
    float Warmed(float temperature) const;
    Contact Collide(Vector2& position, float radius) const {
        return space.CollideCircle(level, position, radius);
    }

    float dt;                 ///< seconds
    Vector2 gravity;          ///< what the step adds to a velocity, units per second
    ViewRectangle rectangle;  ///< what is seen
    float heatBlend;          ///< share of the gap to the room temperature that the step closes
};

/// Water further than this outside of the view, plus its own radius, is gone. World units.
constexpr float viewMargin = 128.0f;

/// No number, or so huge that squares of it overflow: only hostile data makes such values.
/// They would spread to all the water, so what has one is dropped.
bool IsBeyondReason(Vector2 a, Vector2 b, Vector2 c, float d);
