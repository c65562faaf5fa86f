#pragma once
// The edges of moving polygons near the camera, in world position, as the collision queries of one
// step take them: those of one polygon after the other. A circle looks only at polygons whose box
// it may touch.
//
// Order in a step: Clear, Add for each polygon, Index if many queries follow, then queries.

#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "level/BoxCells.h"
#include "level/BspSegment.h"
#include "level/CellBits.h"

class MovingEdges {
public:
    void Clear();
    /// A polygon's edges, moved by `offset`.
    void Add(std::span<const BspSegment> polygon, Vector2 offset = {});
    void Index();

    /// In the order of adding.
    const std::vector<BspSegment>& All() const { return edges; }
    /// Whether a circle of up to a particle's size there may touch any; quick where none is near.
    bool MayTouch(Vector2 position) const {
        return isIndexed ? boxes.World().Holds(position) && occupied.MayHold(position)
                         : !edges.empty();
    }
    /// Calls `visit` with the edges, in order, of each polygon that a circle there may touch.
    template <class Visit>
    void ForEachNear(Vector2 position, float radius, Visit visit) const {
        const auto visitPolygon = [&](std::uint32_t number) {
            const Polygon polygon = polygons[number];
            visit(std::span(edges).subspan(polygon.begin, polygon.end - polygon.begin));
        };
        if (radius <= smallRadius) {
            boxes.ForEachAt(position, visitPolygon);
        } else {
            boxes.ForEachNear(position, Reach(radius), visitPolygon);
        }
    }

private:
    struct Polygon {
        std::uint32_t begin;
        std::uint32_t end;
    };
    /// The boxes hold the centres of circles up to this radius.
    static constexpr float smallRadius = 2.5f;
    /// The corner of the square round an edge's end lies 1.42 radii away.
    static float Reach(float radius) { return 1.5f * radius; }

    std::vector<BspSegment> edges;
    std::vector<Polygon> polygons;
    BoxCells boxes;     ///< of the polygons
    CellBits occupied;  ///< by these boxes
    bool isIndexed = false;
};
