#pragma once
// The collision query, plainly: down the whole tree from its root, candidates in lists.

#include <list>
#include <utility>
#include <vector>

#include "level/BspTree.h"

namespace Plain {

/// A circle, and what it has touched so far.
struct CircleQuery {
    Vector2 position;
    float radius;
    Vector2 normal = {};
    float friction = 0.0f;
    int count = 0;
    std::list<std::pair<Vector2, float>> points = {};  ///< with their friction, the newest first
    std::list<const BspSegment*> edges = {};

    void Test(const BspSegment& s) {
        float t = Dot(position - s.start, s.direction);
        if (t < -radius || t > s.length + radius) {
            return;
        }
        if (t >= 0.0f && t <= s.length) {
            edges.push_front(&s);
        }
        t = t < 0.0f ? 0.0f : t > s.length ? s.length : t;
        points.emplace_front(s.start + s.direction * t, s.friction);
    }

    void Descend(const BspSegment* s) {
        if (s == nullptr) {
            return;
        }
        const float d = Dot(position - s->start, s->normal);
        if (d < radius && d >= -radius && BspTree::Collides(*s)) {
            Test(*s);
        }
        if (d < radius) {
            Descend(s->backChild);
        }
        if (d >= -radius) {
            Descend(s->frontChild);
        }
    }

    void Touch(Vector2 contactNormal, float contactFriction) {
        normal += contactNormal;
        friction += contactFriction;
        ++count;
    }

    void Resolve() {
        for (const auto& [point, pointFriction] : points) {
            const float distance = Distance(point, position);
            if (distance < radius && distance > 0.0f) {
                const Vector2 v = (point - position) / distance;
                position -= v * (radius - distance);
                Touch(v, pointFriction);
            }
        }
        for (const BspSegment* s : edges) {
            const float d = Dot(position - s->start, s->normal);
            if (d >= -radius) {
                position -= s->normal * (radius + d);
                Touch(s->normal, s->friction);
            }
        }
    }
};

/// `count` is 0 if nothing was touched.
inline CircleQuery CollideCircle(Vector2 position, float radius, const BspSegment* root,
                                 const std::vector<BspSegment>& moving) {
    CircleQuery query{position, radius};
    for (const BspSegment& s : moving) {
        const float d = Dot(position - s.start, s.normal);
        if (d >= -radius && d <= radius) {
            query.Test(s);
        }
    }
    query.Descend(root);
    for (int pass = 0, before = -1; pass < 3 && query.count != before; ++pass) {
        before = query.count;
        query.Resolve();
    }
    query.normal *= query.count > 0 ? 1.0f / static_cast<float>(query.count) : 1.0f;
    query.friction =
        query.count > 0 ? query.friction * (1.0f / static_cast<float>(query.count)) : 1.0f;
    return query;
}

}  // namespace Plain
