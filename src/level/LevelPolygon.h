#pragma once
// One shape of the level: a simple polygon, convex or concave, as an outline with its flags
// and surface, and split into triangles by ear clipping. A polygon without triangles is
// neither drawn nor collided with.

#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "graphics/Texture.h"
#include "platform/Assert.h"

class LevelPolygon {
public:
    /// Adds a point and triangulates again. A point equal to an earlier one is dropped.
    void AddPoint(float x, float y);
    /// Adds many points and triangulates once, with the outcome of AddPoint for each. That goes
    /// for the winding of an outline that crosses itself too, which is that of the longest valid
    /// beginning; but outlines of more than `windingLimit` points keep the winding they had.
    void AddPoints(std::span<const Vector2> points);
    /// Stores the fraction of speed that survives one second of contact, held in 0..1.
    void SetFriction(float value);
    /// Splits the outline into triangles, trying the given winding (1 or 0) first; from 1 it
    /// goes on to 0 if that fails.
    void Triangulate(std::uint8_t tryWinding);
    /// Fewer than 3 points, or an outline that crosses itself.
    bool IsInvalid() const;
    /// The outline that the triangles fill: the points without those inside of straight runs, the
    /// seam's included. It can leave the outline by some units where many small bends make up one
    /// run. The chain runs from the first point to the last; the closing side isn't part of it.
    std::vector<Vector2> DrawnOutline() const;
    /// Whether ab crosses a side of the outline, the closing side included.
    bool EdgeCrossesOutline(Vector2 a, Vector2 b) const;
    /// Debug view: the sides of all triangles, moved by `offset` (LevelPolygonDraw.cpp).
    void DrawWireframe(Vector2 offset) const;

    std::size_t PointCount() const { return pointsX.size(); }
    Vector2 Point(std::size_t i) const {
        VANTREL_ASSERT(i < pointsX.size());
        return {pointsX[i], pointsY[i]};
    }

    std::uint8_t solid = 1;             ///< the edges collide, until a trigger says otherwise
    std::uint8_t visible = 1;           ///< the renderers draw it
    std::uint8_t movedByMover = 0;      ///< a mover carries it; its edges stay out of the tree
    std::uint8_t toggledByTrigger = 0;  ///< its edges are exempt from edge cleaning
    std::uint8_t winding = 0;           ///< 1 or 0: which way the outline was found to turn
    std::uint32_t triangleCount = 0;
    std::uint32_t id = 0;      ///< what movers and triggers address; not unique
    std::uint32_t number = 0;  ///< place among the level's polygons
    float friction = 1.0f;     ///< 0..1
    Texture texture;
    std::vector<float> pointsX;  ///< outline in level file order
    std::vector<float> pointsY;
    std::vector<float> triangleX;  ///< corner c of triangle t is entry 3 t + c
    std::vector<float> triangleY;
    std::vector<float> triangleNormalX;  ///< of the side from corner c to corner c + 1
    std::vector<float> triangleNormalY;
    std::uint32_t layer = 0;  ///< 0 to 4

private:
    /// Of points; the search for a valid beginning compares all pairs of sides.
    static constexpr std::size_t windingLimit = 3000;

    void KeepWindingOfBeginning(std::size_t before);
};
