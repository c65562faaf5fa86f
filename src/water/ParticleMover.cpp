#include "water/ParticleMover.h"

#include <cmath>
#include <span>
#include <vector>

#include "engine/Console.h"
#include "engine/Random.h"
#include "level/Collision.h"
#include "water/Clusters.h"
#include "water/ParticleGrid.h"
#include "water/ParticleManager.h"

namespace ParticleMover {
namespace {

/// Longest move between two collision queries, and the longest push from neighbours. Shorter
/// than the radius, so that no hop carries a centre across an edge that the query can't see.
constexpr float hopLength = Particle::radius * 0.85f;
/// Longest move per step; longer ones are cut, and the velocity stays as it is.
constexpr float longestMove = 15.0f;
/// Two particles closer than this touch.
constexpr float contactDistance = 4.0f;
/// Two particles closer than this have no direction to be pushed apart in.
constexpr float nearZeroDistance = 0.00001f;
/// Steps of this many seconds and more give the full push of neighbours.
constexpr float fullPushTime = 0.02f;
/// A particle closes the gap to its body's centre in this many seconds, at its first speed.
constexpr float cohesionTime = 0.75f;
/// Longest cohesion move per step.
constexpr float longestCohesion = Particle::radius * 0.75f;
/// Particles nearer to the centre than this have no way to go in.
constexpr float nearestCentre = 0.0001f;
constexpr float cohesionNoise = 0.1f;

/// What the neighbours do to a particle's position.
struct Push {
    Vector2 direction;
    float depth = 0.0f;
};

/// One particle's meetings with its neighbours. Contact mixes the two at once, so the order of
/// pairs is part of the result. The particle's own mixed values are kept here, in registers,
/// until it has met all.
class Meeting {
public:
    explicit Meeting(Particle& met)
        : particle(met),
          position(met.position),
          velocity(met.velocity),
          pushVelocity(met.pushVelocity),
          temperature(met.temperature) {}

    void MeetChain(Particle* other) {
        for (; other != nullptr; other = other->gridNext) {
            if (other != &particle) {
                Meet(*other);
            }
        }
    }

    Push Finish() {
        particle.velocity = velocity;
        particle.pushVelocity = pushVelocity;
        particle.temperature = temperature;
        if (count == 0) {
            return {};
        }
        direction /= static_cast<float>(count);
        Normalise(direction);
        return {direction, depth / static_cast<float>(count)};
    }

private:
    void Meet(Particle& other) {
        const Vector2 d = position - other.position;
        const float squared = d.x * d.x + d.y * d.y;
        // The root of a float below 16 is below 4, so the squares decide; and so written, a
        // distance that is no number is no contact.
        if (!(squared < contactDistance * contactDistance)) {
            return;
        }
        const float distance = std::sqrt(squared);
        if (distance > nearZeroDistance) {
            direction += d / distance;
            depth += contactDistance - distance;
            ++count;
        }
        other.velocity = velocity = (velocity + other.velocity) * 0.5f;
        other.pushVelocity = pushVelocity = (pushVelocity + other.pushVelocity) * 0.5f;
        other.temperature = temperature = (temperature + other.temperature) * 0.5f;
    }

    Particle& particle;
    const Vector2 position;
    Vector2 velocity;
    Vector2 pushVelocity;
    float temperature;
    Vector2 direction;
    float depth = 0.0f;
    int count = 0;
};

/// Visits the particle's cell and the two columns beside it, each column from its middle row
/// down and then up, but not the cells right above and below: stacked particles let each other
/// through until one drifts aside.
Push MeetNeighbours(Particle& particle) {
    const std::uint32_t x = particle.gridX;
    const std::uint32_t y = particle.gridY;
    Particle* chains[7] = {ParticleGrid::Head(x, y)};
    int chainCount = 1;
    const auto addColumn = [&](std::uint32_t column) {
        chains[chainCount++] = ParticleGrid::Head(column, y);
        if (y < ParticleGrid::side - 1) {
            chains[chainCount++] = ParticleGrid::Head(column, y + 1);
        }
        if (y > 0) {
            chains[chainCount++] = ParticleGrid::Head(column, y - 1);
        }
    };
    if (x > 0) {
        addColumn(x - 1);
    }
    if (x < ParticleGrid::side - 1) {
        addColumn(x + 1);
    }
    Meeting meeting(particle);
    for (int i = 0; i < chainCount; ++i) {
        meeting.MeetChain(chains[i]);
    }
    return meeting.Finish();
}

/// Moves a position by `move` in hops, each followed by a collision query.
void Hop(Vector2& position, Vector2 move) {
    float length = Length(move);
    if (length <= hopLength) {
        position += move;
        Collision::CollideCircle(position, Particle::radius);
        return;
    }
    const Vector2 direction = move / length;
    if (length > longestMove) {
        length = longestMove;
    }
    while (length > 0.0f) {
        const float hop = length > hopLength ? hopLength : length;
        position += direction * hop;
        Collision::CollideCircle(position, Particle::radius);
        length = length > hopLength ? length - hopLength : 0.0f;
    }
}

/// What the last query touched takes the velocity along its normal, both ways, and damps the
/// rest. There is no bounce.
void RespondToContact(Particle& particle, float dt) {
    const Vector2 normal = Collision::ContactNormal();
    particle.velocity -= normal * Dot(normal, particle.velocity);
    const float friction = Collision::ContactFriction();
    if (friction != 1.0f) {  // pow(1, dt) is 1
        particle.velocity *= std::pow(friction, dt);
    }
}

/// Moves one body's members towards their centre. `working` holds all particles in the order
/// of clustering.
void PullTogether(std::span<const std::uint32_t> members, std::span<Particle* const> working,
                  float dt) {
    Vector2 sum;
    for (const std::uint32_t member : members) {
        sum += working[member]->position;
    }
    const Vector2 centre = sum / static_cast<float>(members.size());
    for (const std::uint32_t member : members) {
        Vector2& position = working[member]->position;
        Vector2 direction = centre - position;
        const float distance = Length(direction);
        if (distance <= nearestCentre) {
            continue;
        }
        direction /= distance;
        float move = (dt / cohesionTime) * (distance - contactDistance);
        if (move > longestCohesion) {
            move = longestCohesion;
        }
        // Drawn before it is known whether the particle moves at all.
        const float noiseX = (Random::Unit() - 0.5f) * cohesionNoise;
        const float noiseY = (Random::Unit() - 0.5f) * cohesionNoise;
        if (move > 0.0f) {
            position += direction * move + Vector2{noiseX, noiseY};
            Collision::CollideCircle(position, Particle::radius);
        }
    }
}

// Storage of Cohere, kept from step to step.
Clusters clusters;
std::vector<Particle*> workingStore;
std::vector<Vector2> workingPositions;

}  // namespace

void Initialise() {
    Console::Print("\nInitialising particle mover..");
    ParticleGrid::Clear();
}

void Shutdown() {
    Console::Print("\nShutting down particle mover..");
    ParticleGrid::Clear();
}

void ClearGrid() {
    ParticleGrid::Clear();
    for (Particle& particle : ParticleManager::particles) {
        particle.inGrid = 0;
        particle.gridNext = nullptr;
        particle.gridPrevious = nullptr;
    }
}

void GridInsert(Particle& particle) {
    ParticleGrid::Insert(particle);
}

void GridRemove(Particle& particle) {
    ParticleGrid::Remove(particle);
}

void MoveParticle(Particle& particle, float dt) {
    const Vector2 velocity = particle.velocity + particle.pushVelocity;
    if (velocity.x == 0.0f && velocity.y == 0.0f) {
        return;
    }
    Hop(particle.position, velocity * dt);
    RespondToContact(particle, dt);

    const Push push = MeetNeighbours(particle);
    float scale = dt / fullPushTime;
    if (scale > 1.0f) {
        scale = 1.0f;
    }
    float depth = push.depth * scale;
    if (depth > 0.0f) {
        if (depth > hopLength) {
            depth = hopLength;
        }
        particle.position += push.direction * depth;
        Collision::CollideCircle(particle.position, Particle::radius);
    }
}

void Cohere(float dt) {
    // Each particle goes to the back or to the front of the working order by the toss of a
    // coin, so that clusters don't form the same way in each step.
    const std::size_t count = ParticleManager::particles.size();
    workingStore.resize(2 * count);
    std::size_t front = count;
    std::size_t back = count;
    for (Particle& particle : ParticleManager::particles) {
        if ((Random::Next() & 1u) != 0) {
            workingStore[back++] = &particle;
        } else {
            workingStore[--front] = &particle;
        }
    }
    const std::span<Particle* const> working(workingStore.data() + front, count);

    workingPositions.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        workingPositions[i] = working[i]->position;
    }
    clusters.Find(workingPositions);
    for (std::size_t i = 0; i < clusters.Count(); ++i) {
        PullTogether(clusters.Members(i), working, dt);
    }
}

}  // namespace ParticleMover
