#pragma once
// Finds the boxes of a list that hold a place, in the list's order. Where there are many, a grid of
// cells over all of them says which come into question.
//
// Order: Clear, Add for each box, Build, then any number of questions. Storage is kept. Build may
// be left out where few questions follow: all boxes are looked at then.

#include <cstdint>
#include <vector>

#include "engine/Vector2.h"

class BoxCells {
public:
    struct Box {
        float minX, maxX, minY, maxY;

        /// Whether the place is at most `reach` outside of it along each axis; false if it is no
        /// number.
        bool Holds(Vector2 p, float reach = 0.0f) const {
            return p.x >= minX - reach && p.x <= maxX + reach && p.y >= minY - reach &&
                   p.y <= maxY + reach;
        }
        void Include(const Box& other);
    };

    void Clear();
    /// Numbers go up from 0. Sides may be infinite, but no NaN.
    void Add(const Box& box) { boxes.push_back(box); }
    void Build();

    const std::vector<Box>& All() const { return boxes; }
    /// Round all boxes, as of Build.
    const Box& World() const { return world; }
    /// Calls `visit` with the number of each box that holds the place.
    template <class Visit>
    void ForEachAt(Vector2 place, Visit visit) const {
        if (!hasCells) {
            ForEachNear(place, 0.0f, visit);
            return;
        }
        if (!world.Holds(place)) {
            return;
        }
        const std::uint32_t cell = Row(place.y) * cellsAlong + Column(place.x);
        const std::uint32_t begin = cell == 0 ? 0 : cellEnds[cell - 1];
        for (std::uint32_t i = begin; i < cellEnds[cell]; ++i) {
            if (boxes[numbers[i]].Holds(place)) {
                visit(numbers[i]);
            }
        }
    }
    /// The same for boxes of which the place is at most `reach` outside.
    template <class Visit>
    void ForEachNear(Vector2 place, float reach, Visit visit) const {
        for (std::uint32_t i = 0; i < boxes.size(); ++i) {
            if (boxes[i].Holds(place, reach)) {
                visit(i);
            }
        }
    }

private:
    static constexpr std::uint32_t cellsAlong = 32;

    /// The cells that a box lies in.
    struct Range {
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
    Range CellsOf(const Box& box) const;
    bool IsWorthCells() const;
    void FillCells();

    std::vector<Box> boxes;
    Box world{};
    float columnsPerUnit = 0.0f;
    float rowsPerUnit = 0.0f;
    bool hasCells = false;
    std::vector<std::uint32_t> cellEnds;  ///< by cell, one past its last in the next list
    std::vector<std::uint32_t> numbers;   ///< by cell, in order within one
};

// Of places in the world. Monotonic: who lies between two others lies in no further cell.

inline std::uint32_t BoxCells::Column(float x) const {
    const float column = (x - world.minX) * columnsPerUnit;
    return column < cellsAlong - 1.0f ? static_cast<std::uint32_t>(column) : cellsAlong - 1;
}

inline std::uint32_t BoxCells::Row(float y) const {
    const float row = (y - world.minY) * rowsPerUnit;
    return row < cellsAlong - 1.0f ? static_cast<std::uint32_t>(row) : cellsAlong - 1;
}
