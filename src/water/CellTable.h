#pragma once
// Numbers the cells of an unbounded plane that are in use, 0, 1, 2, ... in the order in which
// they were first met. Work and memory grow with the cells in use, not with the area. Order of
// calls: Reset, then FindOrAdd and Find. Storage is kept from one Reset to the next.

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Assert.h"

/// Cell of a coordinate, `inverseSize` being 1 / width of a cell. Two coordinates in one cell
/// are never further apart than the width. From 2^40 on, where neighbouring floats are further
/// apart than any distance that links water, each float is a cell of its own.
inline std::int64_t CellOf(float coordinate, double inverseSize) {
    if (std::fabs(coordinate) < 0x1p40f) {
        return static_cast<std::int64_t>(std::floor(coordinate * inverseSize));
    }
    return (std::int64_t{1} << 50) + std::bit_cast<std::uint32_t>(coordinate);
}

class CellTable {
public:
    static constexpr std::uint32_t none = 0xFFFFFFFFu;

    struct Key {
        std::int64_t x;
        std::int64_t y;
        friend bool operator==(const Key& a, const Key& b) = default;
    };

    /// Forgets all cells and makes room for so many; more than that costs a rearrangement.
    void Reset(std::size_t expectedCells);
    /// The cell's number, or `none`.
    std::uint32_t Find(Key key) const;
    std::uint32_t FindOrAdd(Key key);
    std::uint32_t Count() const { return static_cast<std::uint32_t>(keys.size()); }
    const Key& KeyOf(std::uint32_t cell) const {
        VANTREL_ASSERT(cell < Count());
        return keys[cell];
    }

private:
    // Cells lie in tiles of 4 by 4, and only tiles are hashed: a cell's neighbours are mostly
    // found in the same place in memory.

    struct Tile {
        Key key;
        std::array<std::uint32_t, 16> cells;
    };
    static Key TileKey(const Key& key) { return {key.x >> 2, key.y >> 2}; }
    static std::size_t PlaceInTile(const Key& key) {
        return static_cast<std::size_t>((key.y & 3) << 2 | (key.x & 3));
    }
    void Grow();
    /// Where the tile is, or the empty slot where it would go.
    std::size_t Slot(const Key& tileKey) const;

    std::vector<std::uint32_t> slots;  ///< tile numbers; only the first mask + 1 are in use
    std::vector<Tile> tiles;
    std::vector<Key> keys;
    std::size_t mask = 0;
};

inline std::size_t CellTable::Slot(const Key& tileKey) const {
    // Multipliers are odd 64-bit numbers without pattern; the high bits mix best.
    const std::uint64_t mixed = static_cast<std::uint64_t>(tileKey.x) * 0x9E3779B97F4A7C15u +
                                static_cast<std::uint64_t>(tileKey.y) * 0xC2B2AE3D27D4EB4Fu;
    std::size_t slot = static_cast<std::size_t>(mixed ^ (mixed >> 32)) & mask;
    while (slots[slot] != none && tiles[slots[slot]].key != tileKey) {
        slot = (slot + 1) & mask;
    }
    return slot;
}

inline std::uint32_t CellTable::Find(Key key) const {
    VANTREL_ASSERT(!slots.empty());
    const std::uint32_t tile = slots[Slot(TileKey(key))];
    return tile == none ? none : tiles[tile].cells[PlaceInTile(key)];
}

inline std::uint32_t CellTable::FindOrAdd(Key key) {
    VANTREL_ASSERT(!slots.empty());
    const Key tileKey = TileKey(key);
    std::size_t slot = Slot(tileKey);
    if (slots[slot] == none) {
        if (2 * tiles.size() + 2 > mask) {
            Grow();
            slot = Slot(tileKey);
        }
        slots[slot] = static_cast<std::uint32_t>(tiles.size());
        tiles.push_back({tileKey, {}});
        tiles.back().cells.fill(none);
    }
    std::uint32_t& cell = tiles[slots[slot]].cells[PlaceInTile(key)];
    if (cell == none) {
        cell = Count();
        keys.push_back(key);
    }
    return cell;
}
