#pragma once
// The grid that finds a particle's neighbours: 1024 by 1024 cells of 2 units at a fixed place
// relative to the view, each the head of a chain of particles. Chains hold pointers into the
// lists' nodes: before a particle is erased or moved into a group it must be removed here.
//
// Invariant: a particle has `inGrid` set exactly while it hangs in the chain of the cell
// (gridX, gridY). It keeps that cell while it moves, until the next FillFrom.

#include <cstdint>

#include "platform/Assert.h"
#include "water/Particle.h"

namespace ParticleGrid {

/// Cells along each side.
constexpr std::uint32_t side = 1024;
/// Width and height of a cell, world units.
constexpr float cellSize = 2.0f;
/// The grid's corner lies this far left of and above the view's centre.
constexpr float cornerOffset = 512.0f;

/// Empties all cells; touches only those in use. Particles aren't read.
void Clear();
/// Links the particle at the head of its cell's chain, unless it is in the grid already or
/// lies outside.
void Insert(Particle& particle);
void Remove(Particle& particle);
/// Lays the grid round a new centre and fills it as Remove and Insert for each of these in turn
/// would. All particles in the grid must be among them.
void FillFrom(ParticleList& particles, Vector2 centre);
/// Whether flags, cells and links of these and of all heads fit together.
bool IsConsistent(const ParticleList& particles);

// The heads, in tiles of 8 by 8 cells so that neighbouring rows lie close together.

extern Particle* heads[side * side];

constexpr std::uint32_t CellIndex(std::uint32_t x, std::uint32_t y) {
    return ((y >> 3) * (side / 8) + (x >> 3)) * 64 + (y & 7) * 8 + (x & 7);
}
/// First of the cell's chain, or null.
inline Particle* Head(std::uint32_t x, std::uint32_t y) {
    VANTREL_ASSERT(x < side && y < side);
    return heads[CellIndex(x, y)];
}

}  // namespace ParticleGrid
