#include "water/ParticleGrid.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/Assert.h"

namespace ParticleGrid {

Particle* heads[side * side];

namespace {

/// Every cell whose chain isn't empty is in here; some may be empty or in here twice.
std::vector<std::uint32_t> usedCells;

Vector2 corner;  // since FillFrom

/// Cell along one axis, from the distance to the corner; 1024 or more outside of the grid.
/// Left of and above the corner the number wraps round to a huge one.
std::uint32_t CellAlong(float distance) {
    if (!(std::fabs(distance) < 0x1p62f)) {
        return side;
    }
    static_assert(cellSize == 2.0f, "the shift divides by the size of a cell");
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(distance)) >> 1;
}

void Link(Particle& particle) {
    const std::uint32_t x = CellAlong(particle.position.x - corner.x);
    const std::uint32_t y = CellAlong(particle.position.y - corner.y);
    if (x >= side || y >= side) {
        return;
    }
    const std::uint32_t cell = CellIndex(x, y);
    Particle*& head = heads[cell];
    if (head == nullptr) {
        usedCells.push_back(cell);
    } else {
        head->gridPrevious = &particle;
    }
    particle.gridX = x;
    particle.gridY = y;
    particle.inGrid = 1;
    particle.gridPrevious = nullptr;
    particle.gridNext = head;
    head = &particle;
}

void Unlink(Particle& particle) {
    particle.gridNext = nullptr;
    particle.gridPrevious = nullptr;
    particle.inGrid = 0;
}

}  // namespace

void Clear() {
    for (const std::uint32_t cell : usedCells) {
        heads[cell] = nullptr;
    }
    usedCells.clear();
}

void Insert(Particle& particle) {
    if (particle.inGrid == 0) {
        Link(particle);
    }
}

void Remove(Particle& particle) {
    if (particle.inGrid == 0) {
        return;
    }
    if (particle.gridPrevious == nullptr) {
        VANTREL_ASSERT(Head(particle.gridX, particle.gridY) == &particle);
        heads[CellIndex(particle.gridX, particle.gridY)] = particle.gridNext;
    } else {
        VANTREL_ASSERT(particle.gridPrevious->gridNext == &particle);
        particle.gridPrevious->gridNext = particle.gridNext;
    }
    if (particle.gridNext != nullptr) {
        particle.gridNext->gridPrevious = particle.gridPrevious;
    }
    Unlink(particle);
}

void FillFrom(ParticleList& particles, Vector2 centre) {
    Clear();
    corner = centre - Vector2{cornerOffset, cornerOffset};
    for (Particle& particle : particles) {
        Unlink(particle);
        Link(particle);
    }
}

bool IsConsistent(const ParticleList& particles) {
    for (const Particle& particle : particles) {
        const Particle* const next = particle.gridNext;
        const Particle* const previous = particle.gridPrevious;
        if (particle.inGrid == 0) {
            if (next != nullptr || previous != nullptr) {
                return false;
            }
            continue;
        }
        const std::uint32_t cell = CellIndex(particle.gridX, particle.gridY);
        const Particle* const self = previous == nullptr ? heads[cell] : previous->gridNext;
        const bool fitsNext =
            next == nullptr || (next->inGrid == 1 && next->gridPrevious == &particle &&
                                CellIndex(next->gridX, next->gridY) == cell);
        if (self != &particle || !fitsNext) {
            return false;
        }
    }
    return std::all_of(usedCells.begin(), usedCells.end(), [](std::uint32_t cell) {
        const Particle* const head = heads[cell];
        return head == nullptr || (head->inGrid == 1 && head->gridPrevious == nullptr &&
                                   CellIndex(head->gridX, head->gridY) == cell);
    });
}

}  // namespace ParticleGrid
