#include "water/ParticleMover.h"

#include <cmath>
#include <span>
#include <vector>

#include "engine/Console.h"
#include "water/Neighbours.h"
#include "water/ParticleManager.h"

namespace ParticleMover {
namespace {

/// Longest move between two collision queries, and the longest push from neighbours. Shorter
/// than the radius, so that no hop carries a centre across an edge that the query can't see.
constexpr float hopLength = Particle::radius * 0.85f;
/// Longest move per step; longer ones are cut, and the velocity stays as it is.
constexpr float longestMove = 15.0f;
/// Steps of this many seconds and more give the full push of neighbours.
constexpr float fullPushTime = 0.02f;
/// A particle closes the gap to its body's centre in this many seconds, at its first speed.
constexpr float cohesionTime = 0.75f;
/// Longest cohesion move per step.
constexpr float longestCohesion = Particle::radius * 0.75f;
/// Particles nearer to the centre than this have no way to go in.
constexpr float nearestCentre = 0.0001f;
constexpr float cohesionNoise = 0.1f;

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
void RespondToContact(Vector2& velocity, const Contact& contact, float dt) {
    velocity -= contact.normal * Dot(contact.normal, velocity);
    if (contact.friction != 1.0f) {  // pow(1, dt) is 1
        velocity *= std::pow(contact.friction, dt);
    }
}

/// Moves one body's members towards their centre. `order` holds the places of all particles in
/// the order of clustering.
void PullTogether(std::span<const std::uint32_t> members, std::span<const std::uint32_t> order,
                  const WaterParts& parts, float dt, RandomAhead& random) {
    ParticleList& particles = parts.water.particles;
    Vector2 sum;
    for (const std::uint32_t member : members) {
        sum += particles[order[member]].position;
    }
    const Vector2 centre = sum / static_cast<float>(members.size());
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

void Move(Motion& motion, const Particle& particle, const WaterStep& step) {
    const Vector2 velocity = motion.velocity + motion.pushVelocity;
    if (velocity.x == 0.0f && velocity.y == 0.0f) {
        return;
    }
    const Contact contact = Hop(motion.position, velocity * step.dt, step);
    RespondToContact(motion.velocity, contact, step.dt);

    const Push push = MeetNeighbours(motion, particle, step.work);
    float scale = step.dt / fullPushTime;
    if (scale > 1.0f) {
        scale = 1.0f;
    }
    float depth = push.depth * scale;
    if (depth > 0.0f) {
        if (depth > hopLength) {
            depth = hopLength;
        }
        motion.position += push.direction * depth;
        step.Collide(motion.position, Particle::radius);
    }
}

void Cohere(const WaterParts& parts, float dt, RandomAhead& random) {
    // Each particle goes to the back or to the front of the working order by the toss of a
    // coin, so that clusters don't form the same way in each step.
    const ParticleList& particles = parts.water.particles;
    const std::size_t count = particles.size();
    std::vector<std::uint32_t>& store = parts.work.order;
    store.resize(2 * count);
    std::size_t front = count;
    std::size_t back = count;
    for (std::uint32_t i = 0; i < count; ++i) {
        // Put down at both ends, and kept at one: no branch could be foretold.
        const std::uint32_t coin = random.Next() & 1u;
        store[back] = i;
        store[front - 1] = i;
        back += coin;
        front -= 1 - coin;
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
        PullTogether(clusters.Members(i), order, parts, dt, random);
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
    }
}

void MoveParticle(Particle& particle, const View& view, float dt) {
    const WaterStep step(ParticleManager::Parts(), view, dt);
    ParticleGrid& grid = step.work.grid;
    grid.FillFrom(step.water.particles, view.centre);
    const std::uint32_t slot = grid.SlotOf(NumberOf(particle));
    Motion motion = grid.TakeOut(slot);
    Move(motion, particle, step);
    grid.PutBack(slot, motion);
    grid.StoreTo(step.water.particles);
}

void Cohere(float dt) {
    const WaterParts parts = ParticleManager::Parts();
    RandomAhead random(parts.random, parts.work.chance);
    Cohere(parts, dt, random);
}

}  // namespace ParticleMover
