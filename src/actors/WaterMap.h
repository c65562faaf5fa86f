#pragma once
// Where in a square there is any water, roughly: one bit for each of 64 by 64 cells. It tells
// most of the moving polygons of a step that they meet none.
//
// Order: Clear, Mark for each particle, then questions.

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/Vector2.h"
#include "level/View.h"

class WaterMap {
public:
    /// Empty, over this square. What lies outside counts to the cells of its rim.
    void Clear(const ViewSquare& square) {
        corner = square.centre - Vector2{square.half, square.half};
        cellsPerUnit = 0.5f * static_cast<float>(side) / square.half;
        rows.fill(0);
    }
    void Mark(Vector2 place) { rows[Row(place.y)] |= std::uint64_t{1} << Column(place.x); }
    /// False only if no marked place is in the box.
    bool MayHold(float minX, float maxX, float minY, float maxY) const {
        const std::uint32_t first = Column(minX);
        const std::uint32_t last = Column(maxX);
        const std::uint64_t columns = ~std::uint64_t{0} >> (side - 1 - (last - first)) << first;
        std::uint64_t any = 0;
        for (std::uint32_t row = Row(minY); row <= Row(maxY); ++row) {
            any |= rows[row];
        }
        return (any & columns) != 0;
    }

private:
    static constexpr std::uint32_t side = 64;

    /// Of a distance from the corner. Monotonic, so what lies between two places lies in no
    /// further cell.
    std::uint32_t Cell(float distance) const {
        const float cell = distance * cellsPerUnit;
        if (!(cell > 0.0f)) {
            return 0;
        }
        return static_cast<std::uint32_t>(std::min(cell, static_cast<float>(side - 1)));
    }
    std::uint32_t Column(float x) const { return Cell(x - corner.x); }
    std::uint32_t Row(float y) const { return Cell(y - corner.y); }

    Vector2 corner;
    float cellsPerUnit = 0.0f;
    std::array<std::uint64_t, side> rows{};
};
