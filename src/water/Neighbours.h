#pragma once
// How a particle and those that touch it push apart and mix.

#include "water/WaterStep.h"

/// What the neighbours do to a particle's position.
struct Push {
    Vector2 direction;   ///< unit
    float depth = 0.0f;  ///< world units, at least 0
};

/// Two particles closer than this touch, world units.
constexpr float contactDistance = 4.0f;

/// Lets what was taken out of the grid for a particle meet its neighbours.
Push MeetNeighbours(Motion& motion, const Particle& particle, WaterWorkspace& work);
