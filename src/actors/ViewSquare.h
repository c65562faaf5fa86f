#pragma once
// The square round the camera that level actors cull themselves against.

#include "actors/Camera.h"

struct ViewSquare {
    Vector2 centre;
    float half = 0.0f;  ///< half the side, world units

    static ViewSquare Around(float half) { return {Camera::position + Camera::shakeOffset, half}; }

    /// Touching counts; a box with a NaN overlaps nothing.
    bool Overlaps(float minX, float maxX, float minY, float maxY) const {
        return maxX >= centre.x - half && minX <= centre.x + half && maxY >= centre.y - half &&
               minY <= centre.y + half;
    }
};
