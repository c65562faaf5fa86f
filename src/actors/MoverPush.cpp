// Moving polygons against water; see MoverPush.h. Particles and groups are handled through
// lists of pointers, which are good for one step. The order of the load makes no difference.

#include "actors/MoverPush.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "actors/MoverManager.h"
#include "level/LevelPolygon.h"

namespace MoverPush {

namespace {

constexpr float catchMargin = 0.25f;  // world units round what an edge catches
constexpr float chainDistance = 6.0f;
constexpr float shortestStep = 0.0000001f;  // seconds

struct Box {
    float minX, maxX, minY, maxY;

    /// Whether the point is in the box, widened by `reach` on each side.
    bool Contains(Vector2 p, float reach) const {
        return p.x >= minX - reach && p.x <= maxX + reach && p.y >= minY - reach &&
               p.y <= maxY + reach;
    }
    void Include(Vector2 p) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    }
    /// Bound of the rounding in differences of coordinates of this size, with some to spare.
    float Rounding() const {
        return 2.0e-6f *
               std::max({std::fabs(minX), std::fabs(maxX), std::fabs(minY), std::fabs(maxY)});
    }
};

Box BoxAt(const MoverCollider& collider, Vector2 at) {
    return {collider.minX + at.x, collider.maxX + at.x, collider.minY + at.y, collider.maxY + at.y};
}

/// How far outside of a collider's box something of `reach` can still be caught: the corners
/// of the rectangle round a slanted edge stick out by a little less than half as much again.
float BoxReach(float reach, float rounding) {
    return reach * 1.5f + rounding;
}

float Reach(const Particle& /*particle*/) {
    return Particle::radius + catchMargin;
}

float Reach(const ParticleGroup& group) {
    return group.radius + catchMargin;
}

/// Moves what passes the test to the back of `to`; the rest keeps its order.
template <class T, class Test>
void Extract(std::vector<T*>& from, std::vector<T*>& to, Test passes) {
    auto kept = from.begin();
    for (T* const item : from) {
        if (passes(*item)) {
            to.push_back(item);
        } else {
            *kept++ = item;
        }
    }
    from.erase(kept, from.end());
}

bool TouchesEdge(const MoverCollider& collider, Vector2 at, Vector2 position, float reach) {
    return std::ranges::any_of(collider.edges, [&](const BspSegment& edge) {
        const Vector2 relative = position - (edge.start + at);
        const float n = Dot(relative, edge.normal);
        const float s = Dot(relative, edge.direction);
        return n >= -reach && n <= reach && s >= -reach && s <= edge.length + reach;
    });
}

void Catch(const MoverCollider& collider, Vector2 at, ActorsWorkspace& work) {
    const Box box = BoxAt(collider, at);
    const float rounding = box.Rounding() + 2.0e-6f * (std::fabs(at.x) + std::fabs(at.y));
    const auto isCaught = [&](const auto& body) {
        const float reach = Reach(body);
        return box.Contains(body.position, BoxReach(reach, rounding)) &&
               TouchesEdge(collider, at, body.position, reach);
    };
    Extract(work.freeParticles, work.carriedParticles, isCaught);
    Extract(work.freeGroups, work.carriedGroups, isCaught);
}

/// Whether anything free lies where the collider passes on its way.
bool MeetsWater(const MoverCollider& collider, Vector2 from, Vector2 to,
                const ActorsWorkspace& work) {
    Box box = BoxAt(collider, from);
    box.Include({collider.minX + to.x, collider.minY + to.y});
    box.Include({collider.maxX + to.x, collider.maxY + to.y});
    // The place is a sum of up to `mostParts` parts, each addition rounded.
    const float travelled =
        std::fabs(from.x) + std::fabs(from.y) + std::fabs(to.x - from.x) + std::fabs(to.y - from.y);
    const float rounding =
        box.Rounding() + travelled * (2.0e-6f + 1.2e-7f * static_cast<float>(mostParts));
    const auto meets = [&](const auto* body) {
        return box.Contains(body->position, BoxReach(Reach(*body), rounding));
    };
    const float reach = BoxReach(Particle::radius + catchMargin, rounding);
    return (work.freeMap.MayHold(box.minX - reach, box.maxX + reach, box.minY - reach,
                                 box.maxY + reach) &&
            std::ranges::any_of(work.freeParticles, meets)) ||
           std::ranges::any_of(work.freeGroups, meets);
}

/// Where a collider's box must be to catch any of the water that is free now.
Box CatchReach(const ActorsWorkspace& work) {
    constexpr float none = std::numeric_limits<float>::infinity();
    Box box{none, -none, none, -none};
    const auto include = [&box](const auto* body) {
        const float reach = BoxReach(Reach(*body), 0.0f);
        box.Include(body->position - Vector2{reach, reach});
        box.Include(body->position + Vector2{reach, reach});
    };
    std::ranges::for_each(work.freeParticles, include);
    std::ranges::for_each(work.freeGroups, include);
    return box;
}

/// False if nothing within `reach` can be caught at `at`; rounding is allowed for twice over.
bool MayCatch(const MoverCollider& collider, Vector2 at, const Box& reach) {
    const Box box = BoxAt(collider, at);
    const float slack =
        2.0f * (box.Rounding() + reach.Rounding() + 2.0e-6f * (std::fabs(at.x) + std::fabs(at.y)));
    return box.minX <= reach.maxX + slack && reach.minX <= box.maxX + slack &&
           box.minY <= reach.maxY + slack && reach.minY <= box.maxY + slack;
}

void MoveLoad(Vector2 delta, const ActorsWorkspace& work) {
    for (Particle* const particle : work.carriedParticles) {
        particle->position += delta;
    }
    for (ParticleGroup* const group : work.carriedGroups) {
        group->position += delta;
        for (Particle& particle : group->particles) {
            particle.position += delta;
        }
    }
}

/// Whether `q` is strictly inside of a triangle. Only triangles whose side normals point
/// inwards hold anything: those of polygons with winding 1.
bool IsInside(const LevelPolygon& polygon, Vector2 q) {
    for (std::size_t t = 0; t < polygon.triangleCount; ++t) {
        bool inside = true;
        for (std::size_t i = 3 * t; inside && i < 3 * t + 3; ++i) {
            const Vector2 relative = q - Vector2{polygon.triangleX[i], polygon.triangleY[i]};
            inside = Dot(relative, {polygon.triangleNormalX[i], polygon.triangleNormalY[i]}) > 0.0f;
        }
        if (inside) {
            return true;
        }
    }
    return false;
}

void Crush(const LevelPolygon& polygon, Vector2 offset, const ActorsParts& parts) {
    for (Particle* const particle : parts.actorsWork.carriedParticles) {
        if (!particle->dying && IsInside(polygon, particle->position - offset)) {
            parts.water.Kill(*particle);
        }
    }
}

/// Takes along the free particles near the load, so that water in front of a platform moves as
/// a body. One pass: what it takes attracts what comes later in the list.
void Chain(ActorsWorkspace& work) {
    std::vector<Particle*>& load = work.carriedParticles;
    if (load.empty()) {
        return;
    }
    const Vector2 first = load.front()->position;
    Box box{first.x, first.x, first.y, first.y};
    for (const Particle* const particle : load) {
        box.Include(particle->position);
    }
    const float reach = chainDistance * 1.1f + box.Rounding();
    Extract(work.freeParticles, load, [&](const Particle& particle) {
        if (!box.Contains(particle.position, reach)) {
            return false;
        }
        const bool near = std::ranges::any_of(load, [&](const Particle* carried) {
            return DistanceSquared(particle.position, carried->position) <=
                   chainDistance * chainDistance;
        });
        if (near) {
            box.Include(particle.position);
        }
        return near;
    });
}

void Push(const MoverCollider& collider, const PolygonState& polygon, const ActorsParts& parts,
          float dt) {
    ActorsWorkspace& work = parts.actorsWork;
    const Vector2 move = polygon.offset - polygon.previousOffset;
    float left = Length(move);
    if (!(left > 0.0f && left <= longestPart * static_cast<float>(mostParts)) ||
        !MeetsWater(collider, polygon.previousOffset, polygon.offset, work)) {
        return;
    }
    const Vector2 velocity = move / std::max(dt, shortestStep);
    const Vector2 unit = move / left;
    Vector2 at = polygon.previousOffset;
    work.carriedParticles.clear();
    work.carriedGroups.clear();
    Catch(collider, at, work);
    const Box reach = CatchReach(work);
    while (left > 0.0f) {
        const float part = std::min(left, longestPart);
        const Vector2 delta = unit * part;
        at += delta;
        if (work.carriedParticles.empty() && work.carriedGroups.empty() &&
            !MayCatch(collider, at, reach)) {
            left -= part;  // the way to the water may be long
            continue;
        }
        MoveLoad(delta, work);
        Catch(collider, at, work);
        left -= part;
        for (Particle* const particle : work.carriedParticles) {
            parts.space.CollideCircleStatic(parts.level, particle->position, Particle::radius);
        }
        Crush(*collider.polygon, polygon.offset, parts);
        Chain(work);
        for (Particle* const particle : work.carriedParticles) {
            particle->pushVelocity += velocity;
        }
    }
}

void CollectWater(WaterState& water, const ViewSquare& square, ActorsWorkspace& work) {
    work.freeParticles.clear();
    work.freeMap.Clear(square.centre.x - square.half, square.centre.x + square.half,
                       square.centre.y - square.half, square.centre.y + square.half);
    for (Particle& particle : water.particles) {
        work.freeParticles.push_back(&particle);
        work.freeMap.Mark(particle.position);
    }
    work.freeGroups.clear();
    for (ParticleGroup& group : water.groups) {
        work.freeGroups.push_back(&group);
    }
}

}  // namespace

void PushWater(const ActorsParts& parts, const ViewSquare& square, float dt) {
    bool collected = false;
    for (const MoverCollider& collider : MoverManager::colliders) {
        PolygonState& polygon = parts.level.polygons[collider.polygon->number];
        if (polygon.offset == polygon.previousOffset) {
            continue;
        }
        const Box box = BoxAt(collider, polygon.offset);
        if (polygon.solid && square.Overlaps(box.minX, box.maxX, box.minY, box.maxY)) {
            if (!collected) {
                CollectWater(parts.water, square, parts.actorsWork);
                collected = true;
            }
            Push(collider, polygon, parts, dt);
        }
        polygon.previousOffset = polygon.offset;
    }
}

}  // namespace MoverPush
