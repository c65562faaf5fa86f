#include "water/CellTable.h"

#include <algorithm>

void CellTable::Reset(std::size_t expectedCells) {
    // At most half full, so that probes stay short.
    const std::size_t size = std::bit_ceil(2 * expectedCells + 2);
    if (slots.size() < size) {
        slots.resize(size);
    }
    mask = size - 1;
    std::fill_n(slots.begin(), size, none);
    keys.clear();
}

void CellTable::Grow() {
    const std::size_t size = 2 * (mask + 1);
    if (slots.size() < size) {
        slots.resize(size);
    }
    mask = size - 1;
    std::fill_n(slots.begin(), size, none);
    for (std::uint32_t cell = 0; cell < Count(); ++cell) {
        slots[Slot(keys[cell])] = cell;
    }
}
