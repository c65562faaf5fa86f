#pragma once
// Where in a rectangle there is anything, roughly: one bit for each of 64 by 64 cells. It tells
// most of those who ask that there is nothing.
//
// Order: Clear, Mark, then questions. No side of a box may be NaN.

#include <algorithm>
#include <array>
#include <cstdint>

#include "engine/Vector2.h"

class CellBits {
public:
    /// Empty, over this rectangle. What lies outside counts to the cells of its rim.
    void Clear(float minX, float maxX, float minY, float maxY) {
        corner = {minX, minY};
        cellsPerUnit = {side / (maxX - minX), side / (maxY - minY)};
        rows.fill(0);
    }
    void Mark(Vector2 place) { rows[Row(place.y)] |= std::uint64_t{1} << Column(place.x); }
    void Mark(float minX, float maxX, float minY, float maxY) {
        for (std::uint32_t row = Row(minY); row <= Row(maxY); ++row) {
            rows[row] |= Columns(minX, maxX);
        }
    }
    // False only if nothing that was marked is there.
    bool MayHold(Vector2 place) const { return (rows[Row(place.y)] >> Column(place.x) & 1u) != 0; }
    bool MayHold(float minX, float maxX, float minY, float maxY) const {
        std::uint64_t any = 0;
        for (std::uint32_t row = Row(minY); row <= Row(maxY); ++row) {
            any |= rows[row];
        }
        return (any & Columns(minX, maxX)) != 0;
    }

private:
    static constexpr std::uint32_t side = 64;

    /// Of a distance from the corner. Monotonic, so what lies between two places lies in no
    /// further cell.
    static std::uint32_t Cell(float distance, float perUnit) {
        const float cell = distance * perUnit;
        return cell > 0.0f ? static_cast<std::uint32_t>(std::min(cell, side - 1.0f)) : 0;
    }
    std::uint32_t Column(float x) const { return Cell(x - corner.x, cellsPerUnit.x); }
    std::uint32_t Row(float y) const { return Cell(y - corner.y, cellsPerUnit.y); }
    std::uint64_t Columns(float minX, float maxX) const {
        const std::uint32_t first = Column(minX);
        return ~std::uint64_t{0} >> (side - 1 - (Column(maxX) - first)) << first;
    }

    Vector2 corner;
    Vector2 cellsPerUnit;
    std::array<std::uint64_t, side> rows{};
};
