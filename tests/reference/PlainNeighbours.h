#pragma once
// What a particle and those that touch it do to each other, plainly: all particles are looked
// through for each cell that it sees.

#include <cmath>
#include <cstddef>

#include "water/Neighbours.h"

namespace Plain {

/// Of the particle with this place in the list; `gridX`, `gridY` and `inGrid` of all are set.
inline Push MeetNeighbours(ParticleList& particles, std::size_t number) {
    Particle& self = particles[number];
    Push push;
    float count = 0.0f;
    for (const auto& [column, row] :
         {std::pair{0, 0}, {-1, 0}, {-1, 1}, {-1, -1}, {1, 0}, {1, 1}, {1, -1}}) {
        // The last of the list stands first in its cell.
        for (std::size_t i = particles.size(); i-- > 0;) {
            Particle& other = particles[i];
            const bool isThere = other.inGrid != 0 &&
                                 other.gridX == self.gridX + unsigned(column) &&
                                 other.gridY == self.gridY + unsigned(row);
            const Vector2 apart = self.position - other.position;
            const float distance = Length(apart);
            if (i == number || !isThere || !(distance < 4.0f)) {
                continue;
            }
            if (distance > 0.00001f) {
                push.direction += apart / distance;
                push.depth += 4.0f - distance;
                count += 1.0f;
            }
            other.velocity = self.velocity = (self.velocity + other.velocity) * 0.5f;
            other.pushVelocity = self.pushVelocity =
                (self.pushVelocity + other.pushVelocity) * 0.5f;
            other.temperature = self.temperature = (self.temperature + other.temperature) * 0.5f;
        }
    }
    if (count > 0.0f) {
        push.direction /= count;
        Normalise(push.direction);
        push.depth /= count;
    }
    return push;
}

}  // namespace Plain
