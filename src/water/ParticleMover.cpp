#include "water/ParticleMover.h"

#include <cmath>
#include <span>
#include <vector>

#include "engine/Console.h"
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
    Meeting(ParticleList& list, Particle& met)
        : particles(list),
          particle(met),
          position(met.position),
          velocity(met.velocity),
          pushVelocity(met.pushVelocity),
          temperature(met.temperature) {}

    void MeetChain(std::uint32_t number) {
        while (number != Particle::none) {
            Particle& other = particles[number];
            if (&other != &particle) {
                Meet(other);
            }
            number = other.gridNext;
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

    ParticleList& particles;
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
Push MeetNeighbours(Particle& particle, const WaterStep& step) {
    const ParticleGrid& grid = step.work.grid;
    const std::uint32_t x = particle.gridX;
    const std::uint32_t y = particle.gridY;
    std::uint32_t chains[7] = {grid.Head(x, y)};
    int chainCount = 1;
    const auto addColumn = [&](std::uint32_t column) {
        chains[chainCount++] = grid.Head(column, y);
        if (y < ParticleGrid::side - 1) {
            chains[chainCount++] = grid.Head(column, y + 1);
        }
        if (y > 0) {
            chains[chainCount++] = grid.Head(column, y - 1);
        }
    };
    if (x > 0) {
        addColumn(x - 1);
    }
    if (x < ParticleGrid::side - 1) {
        addColumn(x + 1);
    }
    Meeting meeting(step.water.particles, particle);
    for (int i = 0; i < chainCount; ++i) {
        meeting.MeetChain(chains[i]);
    }
    return meeting.Finish();
}

/// Moves a position by `move` in hops, each followed by a collision query; gives what the last
/// one touched.
Contact Hop(Vector2& position, Vector2 move, const WaterStep& step) {
    float length = Length(move);
    if (length <= hopLength) {
        position += move;
        return step.Collide(position, Particle::radius);
    }
    const Vector2 direction = move / length;
    if (length > longestMove) {
        length = longestMove;
    }
    Contact contact;
    while (length > 0.0f) {
        const float hop = length > hopLength ? hopLength : length;
        position += direction * hop;
        contact = step.Collide(position, Particle::radius);
        length = length > hopLength ? length - hopLength : 0.0f;
    }
    return contact;
}

/// What is touched takes the velocity along its normal, both ways, and damps the rest. There is
/// no bounce.
void RespondToContact(Particle& particle, const Contact& contact, float dt) {
    particle.velocity -= contact.normal * Dot(contact.normal, particle.velocity);
    if (contact.friction != 1.0f) {  // pow(1, dt) is 1
        particle.velocity *= std::pow(contact.friction, dt);
    }
}

/// Moves one body's members towards their centre. `order` holds the places of all particles in
/// the order of clustering.
void PullTogether(std::span<const std::uint32_t> members, std::span<const std::uint32_t> order,
                  const WaterParts& parts, float dt) {
    ParticleList& particles = parts.water.particles;
    Vector2 sum;
    for (const std::uint32_t member : members) {
        sum += particles[order[member]].position;
    }
    const Vector2 centre = sum / static_cast<float>(members.size());
    RandomAhead random(parts.random);
    for (const std::uint32_t member : members) {
        Vector2& position = particles[order[member]].position;
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
        const float noiseX = (random.Unit() - 0.5f) * cohesionNoise;
        const float noiseY = (random.Unit() - 0.5f) * cohesionNoise;
        if (move > 0.0f) {
            position += direction * move + Vector2{noiseX, noiseY};
            parts.space.CollideCircle(parts.level, position, Particle::radius);
        }
    }
}

/// The place of a particle of the world in play.
std::uint32_t NumberOf(const Particle& particle) {
    return static_cast<std::uint32_t>(&particle - ParticleManager::particles.data());
}

}  // namespace

void MoveParticle(Particle& particle, const WaterStep& step) {
    const Vector2 velocity = particle.velocity + particle.pushVelocity;
    if (velocity.x == 0.0f && velocity.y == 0.0f) {
        return;
    }
    const Contact contact = Hop(particle.position, velocity * step.dt, step);
    RespondToContact(particle, contact, step.dt);

    const Push push = MeetNeighbours(particle, step);
    float scale = step.dt / fullPushTime;
    if (scale > 1.0f) {
        scale = 1.0f;
    }
    float depth = push.depth * scale;
    if (depth > 0.0f) {
        if (depth > hopLength) {
            depth = hopLength;
        }
        particle.position += push.direction * depth;
        step.Collide(particle.position, Particle::radius);
    }
}

void Cohere(const WaterParts& parts, float dt) {
    // Each particle goes to the back or to the front of the working order by the toss of a
    // coin, so that clusters don't form the same way in each step.
    const ParticleList& particles = parts.water.particles;
    const std::size_t count = particles.size();
    std::vector<std::uint32_t>& store = parts.work.order;
    store.resize(2 * count);
    std::size_t front = count;
    std::size_t back = count;
    for (std::uint32_t i = 0; i < count; ++i) {
        if ((parts.random.Next() & 1u) != 0) {
            store[back++] = i;
        } else {
            store[--front] = i;
        }
    }
    const std::span<const std::uint32_t> order(store.data() + front, count);

    std::vector<Vector2>& positions = parts.work.positions;
    positions.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        positions[i] = particles[order[i]].position;
    }
    Clusters& clusters = parts.work.clusters;
    clusters.Find(positions);
    for (std::size_t i = 0; i < clusters.Count(); ++i) {
        PullTogether(clusters.Members(i), order, parts, dt);
    }
}

void Initialise() {
    Console::Print("\nInitialising particle mover..");
    ParticleManager::Parts().work.grid.Clear();
}

void Shutdown() {
    Console::Print("\nShutting down particle mover..");
    ParticleManager::Parts().work.grid.Clear();
}

void ClearGrid() {
    ParticleManager::Parts().work.grid.Clear();
    for (Particle& particle : ParticleManager::particles) {
        particle.inGrid = 0;
        particle.gridNext = Particle::none;
        particle.gridPrevious = Particle::none;
    }
}

void GridInsert(Particle& particle) {
    ParticleManager::Parts().work.grid.Insert(ParticleManager::particles, NumberOf(particle));
}

void GridRemove(Particle& particle) {
    ParticleManager::Parts().work.grid.Remove(ParticleManager::particles, NumberOf(particle));
}

void MoveParticle(Particle& particle, const View& view, float dt) {
    MoveParticle(particle, WaterStep(ParticleManager::Parts(), view, dt));
}

void Cohere(float dt) {
    Cohere(ParticleManager::Parts(), dt);
}

}  // namespace ParticleMover
