#pragma once
// A four-cornered area that reacts to the water inside it, as two triangles with what the
// point test needs worked out beforehand. Nothing of it changes once it is added; what does is its
// TriggerState.

#include <array>
#include <cstdint>

#include "actors/IdIndex.h"
#include "engine/Vector2.h"
#include "level/TriggerTypes.h"
#include "platform/Assert.h"

struct TriggerFiring;

/// What a trigger type does; see TriggerEffects.h.
using TriggerEffect = void (*)(const TriggerFiring& firing);

struct TriggerTriangle {
    /// Takes the corners, in an order that makes the normals point inwards.
    void Set(Vector2 p0, Vector2 p1, Vector2 p2);
    /// A point on an edge is inside. An edge of no length bars nothing.
    bool Contains(Vector2 point) const {
        return Dot(point - corners[0], normals[0]) >= 0.0f &&
               Dot(point - corners[1], normals[1]) >= 0.0f &&
               Dot(point - corners[2], normals[2]) >= 0.0f;
    }

    std::array<Vector2, 3> corners;
    std::array<Vector2, 3> normals;  ///< unit; of the edge from corner i to corner i + 1
    std::array<Vector2, 3> edges;    ///< unit direction
    std::array<float, 3> lengths{};
};

struct Trigger {
    /// Builds triangles and box. Corners that aren't finite give a trigger that nothing enters.
    void SetCorners(Vector2 corner0, Vector2 corner1, Vector2 corner2, Vector2 corner3);
    bool Contains(Vector2 point) const {
        return triangleA.Contains(point) || triangleB.Contains(point);
    }
    /// Mean of the six corners of the triangles.
    Vector2 Centre() const;
    /// The type's kind; of no enumerator if the number is unknown.
    TriggerKind Kind() const { return static_cast<TriggerKind>(type); }
    /// Whether it has fired as often as it may until the next reset.
    bool IsSpent(std::uint32_t fireCount) const {
        VANTREL_ASSERT(typeInfo != nullptr);
        return typeInfo->fireLimit != 0 && fireCount >= typeInfo->fireLimit;
    }

    TriggerTriangle triangleA;  ///< corners 0, 1, 2
    TriggerTriangle triangleB;  ///< corners 2, 3, 0
    float minX = 0.0f;          ///< box of the four corners
    float maxX = 0.0f;
    float minY = 0.0f;
    float maxY = 0.0f;
    /// How far outside of the box a point may be and still be contained: a little, by rounding,
    /// or anywhere if a triangle is so thin that it goes on along its line.
    float boxReach = 0.0f;
    int type = 0;                           ///< as the level file says, known or not
    std::uint32_t targetId = 0;             ///< 0 binds nothing
    const TriggerType* typeInfo = nullptr;  ///< never null once added; that of Null if unknown
    TriggerEffect effect = nullptr;         ///< never null once added
    float delay = 0.0f;                     ///< seconds from firing to effect
    std::uint32_t number = 0;               ///< place among the level's triggers

    // Places of what the effects act on, bound when the trigger was added.
    BoundTargets objects;
    BoundTargets animatedObjects;
    BoundTargets forces;
    BoundTargets polygons;
    BoundTargets movers;
    BoundTargets emitters;
};
