#pragma once
// The rules of the water in their plain form: all pairs, real lists, recursion. Slow and short;
// the game's fast forms must give the same to the last bit, random draws included.

#include <cmath>
#include <iterator>
#include <list>
#include <map>
#include <utility>
#include <vector>

#include "actors/Camera.h"
#include "engine/Random.h"
#include "level/Collision.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace PlainWater {

using Cluster = std::vector<std::size_t>;

/// Sweeps over what is left, each starting a cluster with its first point.
inline std::vector<Cluster> FindClusters(const std::vector<Vector2>& points) {
    std::list<std::size_t> working;
    for (std::size_t i = 0; i < points.size(); ++i) {
        working.push_back(i);
    }
    std::vector<Cluster> clusters;
    while (!working.empty()) {
        Cluster& cluster = clusters.emplace_back(1, working.front());
        working.pop_front();
        for (auto q = working.begin(); q != working.end();) {
            bool joins = false;
            for (std::size_t c = 0; c < cluster.size() && !joins; ++c) {
                joins = DistanceSquared(points[cluster[c]], points[*q]) <= 1600.0f;
            }
            if (joins) {
                cluster.push_back(*q);
                q = working.erase(q);
            } else {
                ++q;
            }
        }
    }
    return clusters;
}

inline void Cohere(float dt) {
    std::list<Particle*> working;
    for (Particle& particle : ParticleManager::particles) {
        if ((Random::Next() & 1u) == 1u) {
            working.push_back(&particle);
        } else {
            working.push_front(&particle);
        }
    }
    const std::vector<Particle*> order(working.begin(), working.end());
    std::vector<Vector2> points;
    for (const Particle* particle : order) {
        points.push_back(particle->position);
    }
    for (const Cluster& cluster : FindClusters(points)) {
        Vector2 centre;
        for (const std::size_t member : cluster) {
            centre += points[member];
        }
        centre /= static_cast<float>(cluster.size());
        for (const std::size_t member : cluster) {
            Vector2& position = order[member]->position;
            Vector2 t = centre - position;
            const float distance = Length(t);
            if (distance <= 0.0001f) {
                continue;
            }
            t = t / distance;
            const float move = std::fmin((dt / 0.75f) * (distance - 4.0f), 1.5f);
            Vector2 noise;
            noise.x = (Random::Unit() - 0.5f) * 0.1f;
            noise.y = (Random::Unit() - 0.5f) * 0.1f;
            if (move > 0.0f) {
                position += t * move + noise;
                Collision::CollideCircle(position, 2.0f);
            }
        }
    }
}

/// The grid as a map from cell to chain, the head first.
class Grid {
public:
    using Cell = std::pair<std::uint32_t, std::uint32_t>;

    void Insert(Particle& particle) {
        const Vector2 corner = Camera::position + Camera::shakeOffset - Vector2{512.0f, 512.0f};
        const std::uint32_t x = Along(particle.position.x - corner.x);
        const std::uint32_t y = Along(particle.position.y - corner.y);
        if (x < 1024 && y < 1024) {
            particle.gridX = x;
            particle.gridY = y;
            chains[{x, y}].push_front(&particle);
        }
    }
    void Remove(Particle& particle) {
        for (auto& [cell, chain] : chains) {
            chain.remove(&particle);
        }
    }
    const std::list<Particle*>& Chain(std::uint32_t x, std::uint32_t y) { return chains[{x, y}]; }

private:
    static std::uint32_t Along(float distance) {
        return static_cast<std::uint32_t>(static_cast<std::int64_t>(distance)) >> 1;
    }
    std::map<Cell, std::list<Particle*>> chains;
};

inline void Move(Particle& particle, Grid& grid, float dt) {
    const Vector2 v = particle.velocity + particle.pushVelocity;
    if (v.x == 0.0f && v.y == 0.0f) {
        return;
    }
    Vector2 s = v * dt;
    float length = Length(s);
    if (length <= 1.7f) {
        particle.position += s;
        Collision::CollideCircle(particle.position, 2.0f);
    } else {
        s = s / length;
        length = std::fmin(length, 15.0f);
        while (length > 0.0f) {
            particle.position += s * std::fmin(length, 1.7f);
            Collision::CollideCircle(particle.position, 2.0f);
            length = length > 1.7f ? length - 1.7f : 0.0f;
        }
    }
    const Vector2 n = Collision::ContactNormal();
    particle.velocity -= n * Dot(n, particle.velocity);
    particle.velocity *= std::pow(Collision::ContactFriction(), dt);

    Vector2 direction;
    float depth = 0.0f;
    float count = 0.0f;
    const auto visit = [&](std::uint32_t x, std::uint32_t y) {
        for (Particle* const b : grid.Chain(x, y)) {
            const Vector2 d = particle.position - b->position;
            const float distance = Length(d);
            if (b == &particle || distance >= 4.0f) {
                continue;
            }
            if (distance > 0.00001f) {
                direction += d / distance;
                depth += 4.0f - distance;
                count += 1.0f;
            }
            b->velocity = particle.velocity = (particle.velocity + b->velocity) / 2.0f;
            b->pushVelocity = particle.pushVelocity =
                (particle.pushVelocity + b->pushVelocity) / 2.0f;
            b->temperature = particle.temperature = (particle.temperature + b->temperature) / 2.0f;
        }
    };
    const std::uint32_t x = particle.gridX;
    const std::uint32_t y = particle.gridY;
    visit(x, y);
    for (const bool right : {false, true}) {
        if (right ? x == 1023 : x == 0) {
            continue;
        }
        const std::uint32_t column = right ? x + 1 : x - 1;
        visit(column, y);
        if (y < 1023) {
            visit(column, y + 1);
        }
        if (y > 0) {
            visit(column, y - 1);
        }
    }
    if (count > 0.0f) {
        direction /= count;
        depth /= count;
        Normalise(direction);
    }
    depth *= std::fmin(dt / 0.02f, 1.0f);
    if (depth > 0.0f) {
        particle.position += direction * std::fmin(depth, 1.7f);
        Collision::CollideCircle(particle.position, 2.0f);
    }
}

inline void Place(Particle& particle) {
    particle.groupDirection.x = Random::Unit() - 0.5f;
    particle.groupDirection.y = Random::Unit() - 0.5f;
    Normalise(particle.groupDirection);
    particle.groupScale = Random::Unit();
}

inline void Grow(Vector2 centre, ParticleGroup& group, ParticleList& frozen, ParticleList& free) {
    std::list<Particle*> reached;
    for (ParticleList* const list : {&frozen, &free}) {
        for (auto it = list->begin(); it != list->end();) {
            const auto particle = it++;
            if (DistanceSquared(particle->position, centre) <= 144.0f) {
                group.particles.splice(group.particles.begin(), *list, particle);
                Place(*particle);
                reached.push_back(&*particle);
            }
        }
    }
    for (Particle* const particle : reached) {
        Grow(particle->position, group, frozen, free);
    }
}

inline void Freeze(ParticleList& particles, GroupList& groups) {
    ParticleList frozen;
    for (auto it = particles.begin(); it != particles.end();) {
        const auto particle = it++;
        if (particle->temperature <= 0.0f) {
            frozen.splice(frozen.end(), particles, particle);
        }
    }
    while (!frozen.empty()) {
        ParticleGroup& group = groups.emplace_front();
        group.particles.splice(group.particles.begin(), frozen, frozen.begin());
        Particle& seed = group.particles.front();
        group.radius = group.targetRadius = 2.0f;
        group.position = seed.position;
        group.velocity = seed.velocity;
        group.pushVelocity = seed.pushVelocity;
        group.temperature = seed.temperature;
        seed.speed = 0.0f;
        Place(seed);
        Grow(seed.position, group, frozen, particles);
        group.targetRadius = std::sqrt(static_cast<float>(group.particles.size()) *
                                       (2.0f * 2.0f * 3.1415927f) / 3.1415927f);
    }
}

inline void Merge(GroupList& groups) {
    const auto move = [](ParticleGroup& from, ParticleGroup& to) {
        to.particles.splice(to.particles.end(), from.particles);
        to.targetRadius = std::sqrt(static_cast<float>(to.particles.size()) *
                                    (2.0f * 2.0f * 3.1415927f) / 3.1415927f);
    };
    for (auto a = groups.begin(); a != groups.end(); ++a) {
        for (auto b = std::next(a); b != groups.end(); ++b) {
            if (!(a->targetRadius + b->targetRadius + 2.0f > Distance(a->position, b->position))) {
                continue;
            }
            if (b->targetRadius >= a->targetRadius) {
                move(*a, *b);
            } else {
                move(*b, *a);
            }
        }
    }
}

/// A whole step; groups move as in the game.
inline void Step(float dt) {
    ParticleList& particles = ParticleManager::particles;
    const Vector2 g = Camera::GravityDirection() * ParticleManager::gravity * dt;
    Grid grid;
    for (Particle& particle : particles) {
        grid.Insert(particle);
    }
    const Camera::ViewRectangle view = Camera::View();
    const float h = 1.0f - std::pow(1.0f - ParticleManager::heatTransferRate, dt);
    for (auto it = particles.begin(); it != particles.end();) {
        Particle& p = *it;
        bool gone = view.IsOutside(p.position, 130.0f);
        if (!gone && p.dying == 1) {
            p.killTimer -= dt;
            gone = p.killTimer <= 0.0f;
        }
        if (gone) {
            grid.Remove(p);
            it = particles.erase(it);
            continue;
        }
        if (p.temperature < 100.0f) {
            p.velocity += g;
        } else {
            p.velocity -= g * ParticleManager::steamRiseRate;
            Vector2 scatter = g * ParticleManager::steamScatterRate;
            Rotate(scatter, Random::Unit() * 6.2831855f);
            p.velocity += scatter;
        }
        p.temperature = ParticleManager::roomTemperature * h + (1.0f - h) * p.temperature;
        p.positionHistory[2] = p.positionHistory[1];
        p.positionHistory[1] = p.positionHistory[0];
        p.positionHistory[0] = p.position;
        Move(p, grid, dt);
        p.speed = Length(p.pushVelocity + p.velocity);
        p.pushVelocity = {};
        ++it;
    }
    Cohere(dt);
    Freeze(particles, GroupedParticleMover::groups);
    GroupedParticleMover::Step(dt, particles);
}

}  // namespace PlainWater
