#include "water/ParticleGrid.h"

#include <cmath>

namespace {

/// Neighbours are looked at four slots at a time.
constexpr std::size_t slotsBehindLast = 4;

/// Cell along one axis, from the distance to the corner; 1024 or more outside of the grid.
/// Left of and above the corner the number wraps round to a huge one.
std::uint32_t CellAlong(float distance) {
    if (!(std::fabs(distance) < 0x1p62f)) {
        return ParticleGrid::side;
    }
    static_assert(ParticleGrid::cellSize == 2.0f, "the shift divides by the size of a cell");
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(distance)) >> 1;
}

}  // namespace

void ParticleGrid::Clear() {
    for (const std::uint32_t cell : usedCells) {
        cells[cell] = {};
    }
    usedCells.clear();
}

void ParticleGrid::CountIn(Particle& particle, Vector2 corner) {
    const std::uint32_t column = CellAlong(particle.position.x - corner.x);
    const std::uint32_t row = CellAlong(particle.position.y - corner.y);
    if (column >= side || row >= side) {
        particle.inGrid = 0;
        cellOf.push_back(outside);
        return;
    }
    particle.gridX = column;
    particle.gridY = row;
    particle.inGrid = 1;
    const std::uint32_t cell = CellIndex(column, row);
    cellOf.push_back(cell);
    if (cells[cell].end++ == 0) {
        usedCells.push_back(cell);
    }
}

void ParticleGrid::Resize(std::size_t count) {
    slots.resize(count);
    x.resize(count + slotsBehindLast);
    y.resize(count + slotsBehindLast);
    flow.resize(count + slotsBehindLast);
    temperature.resize(count + slotsBehindLast);
}

void ParticleGrid::FillFrom(std::span<Particle> particles, Vector2 centre) {
    Clear();
    cellOf.clear();
    const Vector2 corner = centre - Vector2{cornerOffset, cornerOffset};
    for (Particle& particle : particles) {
        CountIn(particle, corner);
    }
    std::uint32_t next = 0;
    for (const std::uint32_t cell : usedCells) {
        const std::uint32_t count = cells[cell].end;
        cells[cell] = {next, next};
        next += count;
    }
    Resize(particles.size());
    for (auto i = static_cast<std::uint32_t>(particles.size()); i-- > 0;) {
        const std::uint32_t slot = cellOf[i] == outside ? next++ : cells[cellOf[i]].end++;
        slots[i] = slot;
        const Particle& particle = particles[i];
        PutBack(slot, {particle.position, particle.velocity, particle.pushVelocity,
                       particle.temperature});
    }
}

void ParticleGrid::StoreTo(std::span<Particle> particles) const {
    for (std::size_t i = 0; i < particles.size(); ++i) {
        Particle& particle = particles[i];
        const std::uint32_t slot = slots[i];
        particle.position = {x[slot], y[slot]};
        particle.velocity = {flow[slot][0], flow[slot][1]};
        particle.pushVelocity = {flow[slot][2], flow[slot][3]};
        particle.temperature = temperature[slot];
    }
}

bool ParticleGrid::IsConsistent(std::span<const Particle> particles) const {
    if (slots.size() != particles.size()) {
        return false;
    }
    std::size_t inCells = 0;
    std::size_t sumLeft =
        particles.size() * (particles.size() - 1) / 2;  // if each slot is taken once
    for (std::uint32_t i = 0; i < particles.size(); ++i) {
        const Particle& particle = particles[i];
        sumLeft -= slots[i];
        if (particle.inGrid != 0) {
            const Cell& cell = *At(particle.gridX, particle.gridY);
            if (slots[i] < cell.begin || slots[i] >= cell.end) {
                return false;
            }
            ++inCells;
        }
    }
    for (const std::uint32_t cell : usedCells) {
        inCells -= cells[cell].end - cells[cell].begin;
    }
    return inCells == 0 && sumLeft == 0;
}
