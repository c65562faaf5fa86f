#include "water/ParticleGrid.h"

#include <algorithm>
#include <cmath>

namespace {

/// Cell along one axis, from the distance to the corner; 1024 or more outside of the grid.
/// Left of and above the corner the number wraps round to a huge one.
std::uint32_t CellAlong(float distance) {
    if (!(std::fabs(distance) < 0x1p62f)) {
        return ParticleGrid::side;
    }
    static_assert(ParticleGrid::cellSize == 2.0f, "the shift divides by the size of a cell");
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(distance)) >> 1;
}

void Unlink(Particle& particle) {
    particle.gridNext = Particle::none;
    particle.gridPrevious = Particle::none;
    particle.inGrid = 0;
}

}  // namespace

void ParticleGrid::Link(std::span<Particle> particles, std::uint32_t number) {
    Particle& particle = particles[number];
    const std::uint32_t x = CellAlong(particle.position.x - corner.x);
    const std::uint32_t y = CellAlong(particle.position.y - corner.y);
    if (x >= side || y >= side) {
        return;
    }
    const std::uint32_t cell = CellIndex(x, y);
    std::uint32_t& head = heads[cell];
    if (head == Particle::none) {
        usedCells.push_back(cell);
    } else {
        particles[head].gridPrevious = number;
    }
    particle.gridX = x;
    particle.gridY = y;
    particle.inGrid = 1;
    particle.gridPrevious = Particle::none;
    particle.gridNext = head;
    head = number;
}

void ParticleGrid::Clear() {
    for (const std::uint32_t cell : usedCells) {
        heads[cell] = Particle::none;
    }
    usedCells.clear();
}

void ParticleGrid::Insert(std::span<Particle> particles, std::uint32_t number) {
    if (particles[number].inGrid == 0) {
        Link(particles, number);
    }
}

void ParticleGrid::Remove(std::span<Particle> particles, std::uint32_t number) {
    Particle& particle = particles[number];
    if (particle.inGrid == 0) {
        return;
    }
    if (particle.gridPrevious == Particle::none) {
        VANTREL_ASSERT(Head(particle.gridX, particle.gridY) == number);
        heads[CellIndex(particle.gridX, particle.gridY)] = particle.gridNext;
    } else {
        VANTREL_ASSERT(particles[particle.gridPrevious].gridNext == number);
        particles[particle.gridPrevious].gridNext = particle.gridNext;
    }
    if (particle.gridNext != Particle::none) {
        particles[particle.gridNext].gridPrevious = particle.gridPrevious;
    }
    Unlink(particle);
}

void ParticleGrid::FillFrom(std::span<Particle> particles, Vector2 centre) {
    Clear();
    corner = centre - Vector2{cornerOffset, cornerOffset};
    for (std::uint32_t number = 0; number < particles.size(); ++number) {
        Unlink(particles[number]);
        Link(particles, number);
    }
}

bool ParticleGrid::IsConsistent(std::span<const Particle> particles) const {
    for (std::uint32_t number = 0; number < particles.size(); ++number) {
        const Particle& particle = particles[number];
        const std::uint32_t next = particle.gridNext;
        const std::uint32_t previous = particle.gridPrevious;
        if (particle.inGrid == 0) {
            if (next != Particle::none || previous != Particle::none) {
                return false;
            }
            continue;
        }
        const std::uint32_t cell = CellIndex(particle.gridX, particle.gridY);
        const std::uint32_t self =
            previous == Particle::none ? heads[cell] : particles[previous].gridNext;
        const bool fitsNext =
            next == Particle::none ||
            (particles[next].inGrid == 1 && particles[next].gridPrevious == number &&
             CellIndex(particles[next].gridX, particles[next].gridY) == cell);
        if (self != number || !fitsNext) {
            return false;
        }
    }
    return std::ranges::all_of(usedCells, [&](std::uint32_t cell) {
        if (heads[cell] == Particle::none) {
            return true;
        }
        const Particle& head = particles[heads[cell]];
        return head.inGrid == 1 && head.gridPrevious == Particle::none &&
               CellIndex(head.gridX, head.gridY) == cell;
    });
}
