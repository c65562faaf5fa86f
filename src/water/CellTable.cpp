#include "water/CellTable.h"

#include <algorithm>

void CellTable::Reset(std::size_t expectedCells) {
    // At most half full even if each tile holds one cell, so that probes stay short.
    const std::size_t size = std::bit_ceil(2 * expectedCells + 4);
    if (slots.size() < size) {
        slots.resize(size);
    }
    mask = size - 1;
    std::fill_n(slots.begin(), size, none);
    tiles.clear();
    keys.clear();
}

void CellTable::Grow() {
    const std::size_t size = 2 * (mask + 1);
    if (slots.size() < size) {
        slots.resize(size);
    }
    mask = size - 1;
    std::fill_n(slots.begin(), size, none);
    for (std::uint32_t tile = 0; tile < tiles.size(); ++tile) {
        slots[Slot(tiles[tile].key)] = tile;
    }
}
