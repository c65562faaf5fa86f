#pragma once
// The grid that finds a particle's neighbours: 1024 by 1024 cells of 2 units at a fixed place
// relative to the view, each the head of a chain of particles. Chains name particles by their
// place in the list, so the list mustn't change its order between FillFrom and Clear; before a
// particle is left out of the walk it must be removed here.
//
// Invariant in that time: a particle has `inGrid` set exactly while it hangs in the chain of the
// cell (gridX, gridY). It keeps that cell while it moves, until the next FillFrom.

#include <cstdint>
#include <span>
#include <vector>

#include "platform/Assert.h"
#include "water/Particle.h"

class ParticleGrid {
public:
    /// Cells along each side.
    static constexpr std::uint32_t side = 1024;
    /// Width and height of a cell, world units.
    static constexpr float cellSize = 2.0f;
    /// The grid's corner lies this far left of and above the view's centre.
    static constexpr float cornerOffset = 512.0f;

    ParticleGrid() : heads(std::size_t{side} * side, Particle::none) {}

    /// Empties all cells; touches only those in use. Particles aren't read.
    void Clear();
    /// Links the particle at the head of its cell's chain, unless it is in the grid already or
    /// lies outside.
    void Insert(std::span<Particle> particles, std::uint32_t number);
    void Remove(std::span<Particle> particles, std::uint32_t number);
    /// Lays the grid round a new centre and fills it as Remove and Insert for each of these in
    /// turn would.
    void FillFrom(std::span<Particle> particles, Vector2 centre);
    /// Whether flags, cells and links of these and of all heads fit together.
    bool IsConsistent(std::span<const Particle> particles) const;

    /// First of the cell's chain, or none.
    std::uint32_t Head(std::uint32_t x, std::uint32_t y) const {
        VANTREL_ASSERT(x < side && y < side);
        return heads[CellIndex(x, y)];
    }

private:
    /// The heads lie in tiles of 8 by 8 cells, so that neighbouring rows are close together.
    static constexpr std::uint32_t CellIndex(std::uint32_t x, std::uint32_t y) {
        return ((y >> 3) * (side / 8) + (x >> 3)) * 64 + (y & 7) * 8 + (x & 7);
    }
    void Link(std::span<Particle> particles, std::uint32_t number);

    std::vector<std::uint32_t> heads;
    /// Every cell whose chain isn't empty is in here; some may be empty or in here twice.
    std::vector<std::uint32_t> usedCells;
    Vector2 corner;  ///< since FillFrom
};
