#pragma once
// The space of the loaded level that water can reach, as a fine grid: all that is connected to
// the water's start when gates stand open, up to the edges of the solids that stay. The inside
// of solids, closed hollows and all that lies around the level are outside.

#include <cstdint>
#include <vector>

#include "engine/Vector2.h"

class LeakSpace {
public:
    /// Reads the loaded level. Needs a byte for each square unit of its box; levels of more
    /// than `mostCells` get coarser cells.
    LeakSpace();

    /// Whether the place lies outside by more than a drop's radius: from where no collision
    /// brings it back.
    bool IsOutside(Vector2 place) const;
    /// The same for any place on the way from a to b.
    bool LeadsOutside(Vector2 a, Vector2 b) const;

private:
    static constexpr double mostCells = 4e7;
    enum Cell : std::uint8_t { Outside, Edge, Deadly, Reached, Dying, Near };

    void Measure();
    void DrawEdges();
    void DrawKills();
    void SpreadFromStart();
    void Widen(bool aslant);
    template <class Each>
    void ForCellsIn(Vector2 low, Vector2 high, Each each);
    Vector2 Centre(std::size_t column, std::size_t row) const;
    /// Clamped to the grid.
    std::size_t ColumnOf(float x) const;
    std::size_t RowOf(float y) const;

    Vector2 origin;
    float cellSize = 1.0f;
    bool isOpen = false;  ///< water can leave the level's box
    std::size_t columns = 0;
    std::size_t rows = 0;
    std::vector<std::uint8_t> cells;
};
