#pragma once
// The part of the world that a step or a frame is about. The game fills one value from the
// camera and the window and hands it to all that asks where the player looks.

#include <algorithm>

#include "engine/Page.h"
#include "engine/Vector2.h"

/// The corners and inward normals of the picture in world coordinates.
struct ViewRectangle {
    Vector2 corner[4];
    Vector2 normal[4];
    /// Whether the point is more than `margin` outside of any side.
    bool IsOutside(Vector2 point, float margin) const {
        for (int i = 0; i < 4; ++i) {
            if (Dot(point - corner[i], normal[i]) < -margin) {
                return true;
            }
        }
        return false;
    }
};

/// A square round the view's centre, not turned with it.
struct ViewSquare {
    Vector2 centre;
    float half = 0.0f;  ///< half the side, world units

    /// Touching counts; a box with a NaN overlaps nothing.
    bool Overlaps(float minX, float maxX, float minY, float maxY) const {
        return maxX >= centre.x - half && minX <= centre.x + half && maxY >= centre.y - half &&
               minY <= centre.y + half;
    }
};

struct View {
    Vector2 centre;             ///< world point in the picture's middle, shaking and all
    float angle = 0.0f;         ///< degrees; above 0 turns gravity towards -x
    float zoom = 1.0f;          ///< world units per view unit, 1 to 2.5
    float width = Page::width;  ///< of the picture at zoom 1, world units
    float height = Page::height;

    /// (0, 1) turned by `angle`.
    Vector2 Down() const;
    ViewRectangle Rectangle() const;

    // What of the level takes part, as squares: half a side as a share of the picture's longer one.

    /// Emitters throw particles inside of this one.
    ViewSquare Emitting() const { return {centre, Widest() * 0.5f * zoom}; }
    /// Triggers react inside of this one; zoom doesn't widen it.
    ViewSquare Triggering() const { return {centre, Widest() * 0.55f}; }
    /// Objects and polygons that change are drawn inside of this one.
    ViewSquare Drawing() const { return {centre, Widest() * 0.65f * zoom}; }
    /// Movers push water inside of this one, whatever the window's shape.
    ViewSquare Pushing() const { return {centre, Page::width * 0.65f * zoom}; }
    /// What movers carry is solid inside of this one.
    ViewSquare Colliding() const { return {centre, Widest() * 0.7f * zoom}; }

private:
    float Widest() const { return std::max(width, height); }
};
