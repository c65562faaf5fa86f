#pragma once
// The edges of moving polygons near the camera, in world position, as the collision queries of one
// step take them: those of one polygon after the other. A circle looks only at polygons whose box
// it may touch; where there are many, small circles find these by cells.
//
// Order in a step: Clear, Add for each polygon, Index, then queries.

#include <cstdint>
#include <span>
#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"

class MovingEdges {
public:
    void Clear();
    /// A polygon's edges, moved by `offset`.
    void Add(std::span<const BspSegment> polygon, Vector2 offset = {});
    void Index();

    /// In the order of adding.
    const std::vector<BspSegment>& All() const { return edges; }
    /// Calls `visit` with the edges, in order, of each polygon that a circle there may touch.
    template <class Visit>
    void ForEachNear(Vector2 position, float radius, Visit visit) const;

private:
    struct Box {
        float minX, maxX, minY, maxY;

        /// False for a place that is no number.
        bool Holds(Vector2 p, float reach) const {
            return p.x >= minX - reach && p.x <= maxX + reach && p.y >= minY - reach &&
                   p.y <= maxY + reach;
        }
    };
    struct Polygon {
        Box box;  ///< of the edges, with room for rounding
        std::uint32_t begin;
        std::uint32_t end;
    };
    /// Up to this radius circles are found by cells.
    static constexpr float smallRadius = 2.5f;
    static constexpr std::uint32_t cellsAlong = 32;

    /// The corner of the square round an edge's end lies 1.42 radii away.
    static float Reach(float radius) { return 1.5f * radius; }
    /// The cells that a box lies in.
    struct CellRange {
        std::uint32_t left, right, top, bottom;

        std::uint32_t Count() const { return (right - left + 1) * (bottom - top + 1); }
        template <class Visit>
        void ForEach(Visit visit) const {
            for (std::uint32_t row = top; row <= bottom; ++row) {
                for (std::uint32_t column = left; column <= right; ++column) {
                    visit(row * cellsAlong + column);
                }
            }
        }
    };
    std::uint32_t Column(float x) const;
    std::uint32_t Row(float y) const;
    CellRange CellsOf(const Polygon& polygon) const;
    void FillCells();

    std::vector<BspSegment> edges;
    std::vector<Polygon> polygons;
    Box world{};  ///< of all polygons
    float columnsPerUnit = 0.0f;
    float rowsPerUnit = 0.0f;
    bool hasCells = false;
    std::vector<std::uint32_t> cellEnds;      ///< by cell, one past its last in the next list
    std::vector<std::uint32_t> cellPolygons;  ///< by cell, in order within one
};

template <class Visit>
void MovingEdges::ForEachNear(Vector2 position, float radius, Visit visit) const {
    const float reach = Reach(radius);
    if (polygons.empty() || !world.Holds(position, reach)) {
        return;
    }
    const auto visitNear = [&](const Polygon& polygon) {
        if (polygon.box.Holds(position, reach)) {
            for (std::uint32_t i = polygon.begin; i < polygon.end; ++i) {
                visit(edges[i]);
            }
        }
    };
    if (!hasCells || !(radius <= smallRadius)) {
        for (const Polygon& polygon : polygons) {
            visitNear(polygon);
        }
        return;
    }
    const std::uint32_t cell = Row(position.y) * cellsAlong + Column(position.x);
    const std::uint32_t begin = cell == 0 ? 0 : cellEnds[cell - 1];
    for (std::uint32_t i = begin; i < cellEnds[cell]; ++i) {
        visitNear(polygons[cellPolygons[i]]);
    }
}
