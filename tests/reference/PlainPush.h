#pragma once
// The movers' push, plainly: in each part of a move every particle and group that is still
// free is tested against every edge, in lists.

#include <algorithm>
#include <cstddef>
#include <list>
#include <type_traits>

#include "actors/MoverManager.h"
#include "level/Collision.h"
#include "level/LevelData.h"
#include "water/ParticleManager.h"

namespace Plain {

/// What no polygon has caught yet in this step.
struct FreeWater {
    std::list<Particle*> particles;
    std::list<ParticleGroup*> groups;
};

/// Moves what touches one of the collider's edges to the front of `carried`.
template <class T>
void Catch(const MoverCollider& collider, Vector2 at, std::list<T*>& free, std::list<T*>& carried) {
    for (auto it = free.begin(); it != free.end();) {
        const auto body = it++;
        float reach = 2.25f;
        if constexpr (std::is_same_v<T, ParticleGroup>) {
            reach = (*body)->radius + 0.25f;
        }
        if (std::ranges::any_of(collider.edges, [&](const BspSegment& edge) {
                const Vector2 relative = (*body)->position - (edge.start + at);
                const float n = Dot(relative, edge.normal);
                const float s = Dot(relative, edge.direction);
                return n >= -reach && n <= reach && s >= -reach && s <= edge.length + reach;
            })) {
            carried.splice(carried.begin(), free, body);
        }
    }
}

inline bool IsInside(const LevelPolygon& polygon, Vector2 q) {
    bool inside = false;
    for (std::size_t t = 0; t < polygon.triangleX.size(); t += 3) {
        int in = 0;
        for (std::size_t c = 0; c < 3; ++c) {
            const std::size_t next = t + (c + 1) % 3;
            const Vector2 corner{polygon.triangleX[t + c], polygon.triangleY[t + c]};
            Vector2 d = Vector2{polygon.triangleX[next], polygon.triangleY[next]} - corner;
            d /= Length(d) > 0.0f ? Length(d) : 1.0f;
            in += Dot(q - corner, {-d.y, d.x}) > 0.0f ? 1 : 0;
        }
        inside = inside || in == 3;
    }
    return inside;
}

/// Takes along, in one sweep, what is near to what is carried already.
inline void Chain(std::list<Particle*>& free, std::list<Particle*>& carried) {
    for (auto it = free.begin(); it != free.end();) {
        const auto particle = it++;
        if (std::ranges::any_of(carried, [&](const Particle* other) {
                return DistanceSquared((*particle)->position, other->position) <= 36.0f;
            })) {
            carried.splice(carried.begin(), free, particle);
        }
    }
}

/// One collider on its way from the offset `at` to its polygon's.
inline void Push(const MoverCollider& collider, Vector2 at, FreeWater& water, float dt) {
    const Vector2 offset = LevelData::StateOf(*collider.polygon).offset;
    const Vector2 move = offset - at;
    const float length = Length(move);
    std::list<Particle*> carried;
    std::list<ParticleGroup*> carriedGroups;
    Catch(collider, at, water.particles, carried);
    Catch(collider, at, water.groups, carriedGroups);
    for (float left = length; left > 0.0f; left -= std::min(left, 1.7f)) {
        const Vector2 delta = move / length * std::min(left, 1.7f);
        at += delta;
        for (Particle* particle : carried) {
            particle->position += delta;
        }
        for (ParticleGroup* group : carriedGroups) {
            group->position += delta;
            for (Particle& member : group->particles) {
                member.position += delta;
            }
        }
        Catch(collider, at, water.particles, carried);
        Catch(collider, at, water.groups, carriedGroups);
        for (Particle* particle : carried) {
            Collision::CollideCircleStatic(particle->position, 2.0f);
            if (IsInside(*collider.polygon, particle->position - offset)) {
                ParticleManager::KillParticle(*particle);
            }
        }
        Chain(water.particles, carried);
        for (Particle* particle : carried) {
            particle->pushVelocity += move / dt;
        }
    }
}

}  // namespace Plain
