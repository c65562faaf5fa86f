#pragma once
// The grid that finds a particle's neighbours: 1024 by 1024 cells of 2 units at a fixed place
// relative to the view. While particles move, what they read and mix of each other lies here,
// apart from the list and sorted by cell: a cell's particles stand in slots one behind the other,
// the last of the list first. A particle keeps its cell while it moves, until the next FillFrom.
//
// Order in a step: FillFrom, moves, StoreTo.

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "engine/Float4.h"
#include "platform/Assert.h"
#include "water/Particle.h"

/// One particle's motion.
struct Motion {
    Vector2 position;      ///< world units
    Vector2 velocity;      ///< units per second
    Vector2 pushVelocity;  ///< units per second
    float temperature;     ///< degrees
};

class ParticleGrid {
public:
    /// Cells along each side.
    static constexpr std::uint32_t side = 1024;
    /// Width and height of a cell, world units.
    static constexpr float cellSize = 2.0f;
    /// The grid's corner lies this far left of and above the view's centre.
    static constexpr float cornerOffset = 512.0f;

    /// Slots of a cell's particles, from the first to before the last; none in an empty one.
    struct Cell {
        std::uint32_t begin = 0;
        std::uint32_t end = 0;
    };

    ParticleGrid() : cells(std::size_t{stride} * stride) {}

    /// Empties all cells; touches only those in use.
    void Clear();
    /// Lays the grid round a new centre and takes in all particles, with their motion. Who lies
    /// outside is in no cell, and keeps the numbers of the cell that it had.
    void FillFrom(std::span<Particle> particles, Vector2 centre);
    /// Gives the particles what has become of their motion. They are those of FillFrom, in the
    /// same order.
    void StoreTo(std::span<Particle> particles) const;
    /// The motion in a slot. Nobody meets its particle until it is put back.
    Motion TakeOut(std::uint32_t slot);
    void PutBack(std::uint32_t slot, const Motion& motion);
    /// Whether these, and no others, stand in the cells that they name.
    bool IsConsistent(std::span<const Particle> particles) const;

    /// Where the particle with this place in the list stands.
    std::uint32_t SlotOf(std::uint32_t number) const { return slots[number]; }
    /// The cell itself; those above, below and beside it lie at the distances below, on the grid's
    /// rim too, where they are empty.
    const Cell* At(std::uint32_t column, std::uint32_t row) const {
        VANTREL_ASSERT(column < side && row < side);
        return &cells[CellIndex(column, row)];
    }
    static constexpr std::int32_t nextRow = 1;
    static constexpr std::int32_t nextColumn = side + 2;

    // The motion, by slot. The arrays go on for a few slots behind the last.

    std::vector<float> x;  ///< position, world units; infinite for those that nobody meets
    std::vector<float> y;
    std::vector<Float4> flow;  ///< velocity and push velocity, units per second
    std::vector<float> temperature;

private:
    /// Columns lie one behind the other, with an empty cell at both ends.
    static constexpr std::uint32_t stride = side + 2;
    static constexpr float nowhere = std::numeric_limits<float>::infinity();
    static constexpr std::uint32_t outside = 0;  ///< of the numbers of cells: a corner of the rim
    static constexpr std::uint32_t CellIndex(std::uint32_t column, std::uint32_t row) {
        return (column + 1) * stride + row + 1;
    }
    void CountIn(Particle& particle, Vector2 corner);
    void Resize(std::size_t count);

    std::vector<Cell> cells;
    std::vector<std::uint32_t> usedCells;  ///< those that aren't empty
    std::vector<std::uint32_t> cellOf;     ///< by place in the list
    std::vector<std::uint32_t> slots;      ///< by place in the list
};

inline Motion ParticleGrid::TakeOut(std::uint32_t slot) {
    const Motion motion{{x[slot], y[slot]},
                        {flow[slot][0], flow[slot][1]},
                        {flow[slot][2], flow[slot][3]},
                        temperature[slot]};
    x[slot] = nowhere;
    return motion;
}

inline void ParticleGrid::PutBack(std::uint32_t slot, const Motion& motion) {
    x[slot] = motion.position.x;
    y[slot] = motion.position.y;
    flow[slot] =
        Float4{motion.velocity.x, motion.velocity.y, motion.pushVelocity.x, motion.pushVelocity.y};
    temperature[slot] = motion.temperature;
}
