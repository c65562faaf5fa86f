#pragma once
// The push of moving polygons in its plain form: every particle against every edge, in lists
// that are walked and spliced one by one. It is what the fast form is measured by.

#include <cmath>
#include <list>

#include "actors/Camera.h"
#include "actors/MoverManager.h"
#include "level/Collision.h"
#include "level/LevelPolygon.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace PlainPush {

template <class T>
void Catch(std::list<T*>& from, std::list<T*>& to, const MoverCollider& collider, Vector2 at,
           float (*reachOf)(const T&)) {
    for (auto it = from.begin(); it != from.end();) {
        const auto next = std::next(it);
        for (const BspSegment& edge : collider.edges) {
            const float reach = reachOf(**it);
            const Vector2 relative = (*it)->position - (edge.start + at);
            const float n = Dot(relative, edge.normal);
            const float s = Dot(relative, edge.direction);
            if (-reach <= n && n <= reach && -reach <= s && s <= edge.length + reach) {
                to.splice(to.begin(), from, it);
                break;
            }
        }
        it = next;
    }
}

inline bool IsCrushed(const LevelPolygon& polygon, Vector2 q) {
    for (std::size_t t = 0; t < polygon.triangleCount; ++t) {
        int insideOf = 0;
        for (std::size_t c = 0; c < 3; ++c) {
            const std::size_t i = 3 * t + c;
            const std::size_t j = 3 * t + (c + 1) % 3;
            const Vector2 a{polygon.triangleX[i], polygon.triangleY[i]};
            Vector2 d = Vector2{polygon.triangleX[j], polygon.triangleY[j]} - a;
            if (Length(d) > 0.0f) {
                d /= Length(d);
            }
            insideOf += Dot(q - a, {-d.y, d.x}) > 0.0f ? 1 : 0;
        }
        if (insideOf == 3) {
            return true;
        }
    }
    return false;
}

inline void Chain(std::list<Particle*>& free, std::list<Particle*>& carried) {
    for (auto it = free.begin(); it != free.end();) {
        const auto next = std::next(it);
        for (const Particle* const other : carried) {
            if (DistanceSquared((*it)->position, other->position) <= 36.0f) {
                carried.splice(carried.begin(), free, it);
                break;
            }
        }
        it = next;
    }
}

inline void Push(const MoverCollider& collider, std::list<Particle*>& free,
                 std::list<ParticleGroup*>& freeGroups, float dt) {
    const LevelPolygon& polygon = *collider.polygon;
    const Vector2 move = polygon.offset - polygon.previousOffset;
    float left = Length(move);
    if (left == 0.0f) {
        return;
    }
    const Vector2 velocity = move / dt;
    const Vector2 unit = move / left;
    Vector2 at = polygon.previousOffset;
    std::list<Particle*> carried;
    std::list<ParticleGroup*> carriedGroups;
    const auto catchAll = [&] {
        Catch<Particle>(free, carried, collider, at, [](const Particle&) { return 2.25f; });
        Catch<ParticleGroup>(freeGroups, carriedGroups, collider, at,
                             [](const ParticleGroup& group) { return group.radius + 0.25f; });
    };
    catchAll();
    while (left > 0.0f) {
        const float part = left < 1.7f ? left : 1.7f;
        const Vector2 delta = unit * part;
        at += delta;
        for (Particle* const particle : carried) {
            particle->position += delta;
        }
        for (ParticleGroup* const group : carriedGroups) {
            group->position += delta;
            for (Particle& particle : group->particles) {
                particle.position += delta;
            }
        }
        catchAll();
        left -= part;
        for (Particle* const particle : carried) {
            Collision::CollideCircleStatic(particle->position, 2.0f);
        }
        for (Particle* const particle : carried) {
            if (IsCrushed(polygon, particle->position - polygon.offset)) {
                ParticleManager::KillParticle(*particle);
            }
        }
        Chain(free, carried);
        for (Particle* const particle : carried) {
            particle->pushVelocity += velocity;
        }
    }
}

/// The same as MoverPush::PushWater.
inline void PushWater(float dt) {
    std::list<Particle*> free;
    for (Particle& particle : ParticleManager::particles) {
        free.push_back(&particle);
    }
    std::list<ParticleGroup*> freeGroups;
    for (ParticleGroup& group : GroupedParticleMover::groups) {
        freeGroups.push_back(&group);
    }
    const float half = 800.0f * 0.65f * Camera::zoom;
    const Vector2 centre = Camera::position + Camera::shakeOffset;
    for (const MoverCollider& collider : MoverManager::colliders) {
        LevelPolygon& polygon = *collider.polygon;
        if (polygon.solid && collider.minX + polygon.offset.x <= centre.x + half &&
            collider.maxX + polygon.offset.x >= centre.x - half &&
            collider.minY + polygon.offset.y <= centre.y + half &&
            collider.maxY + polygon.offset.y >= centre.y - half) {
            Push(collider, free, freeGroups, dt);
        }
        polygon.previousOffset = polygon.offset;
    }
}

}  // namespace PlainPush
