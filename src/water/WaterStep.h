#pragma once
// What free particles and groups share in one simulation step: worked out once, not per
// particle.

#include "engine/Vector2.h"
#include "level/View.h"

struct WaterStep {
    WaterStep(const View& view, float dt);

    /// The step's room temperature blended into a temperature.
    float Warmed(float temperature) const;

    Vector2 gravity;          ///< what the step adds to a velocity, units per second
    ViewRectangle rectangle;  ///< what is seen
    float heatBlend;          ///< share of the gap to the room temperature that the step closes
};

/// Water further than this outside of the view, plus its own radius, is gone. World units.
constexpr float viewMargin = 128.0f;

/// No number, or so huge that squares of it overflow: only hostile data makes such values.
/// They would spread to all the water, so what has one is dropped.
bool IsBeyondReason(Vector2 a, Vector2 b, Vector2 c, float d);
