// The collision query. Candidates are gathered once per query and then resolved in a few
// passes; newer candidates come first.

#include "level/Collision.h"

#include "level/BspGrid.h"
#include "level/BspTree.h"
#include "level/LevelData.h"

namespace {

/// The sums over the contacts of a query's passes.
struct ContactSum {
    Vector2 normal;
    float friction = 0.0f;
    unsigned count = 0;

    void Add(Vector2 contactNormal, float contactFriction) {
        normal += contactNormal;
        friction += contactFriction;
        ++count;
    }
};

}  // namespace

/// Takes the segment as a candidate if the circle is beside it or near an end.
inline void CollisionSpace::TestCandidate(const BspSegment& segment, Vector2 relative,
                                          float radius) {
    float along = Dot(relative, segment.direction);
    if (along >= 0.0f && along <= segment.length) {
        contactEdges.push_back(&segment);
    } else if (along >= -radius && along <= segment.length + radius) {
        along = along < 0.0f ? 0.0f : segment.length;
    } else {
        return;
    }
    contactPoints.push_back({segment.start + segment.direction * along, segment.friction});
}

void CollisionSpace::GatherMoving(Vector2 position, float radius) {
    moving.ForEachNear(position, radius, [&](const BspSegment& segment) {
        const Vector2 relative = position - segment.start;
        const float distance = Dot(relative, segment.normal);
        if (distance >= -radius && distance <= radius) {
            TestCandidate(segment, relative, radius);
        }
    });
}

void CollisionSpace::GatherStatic(const LevelState& level, Vector2 position, float radius) {
    openNodes.clear();
    const bool shortCuts = radius <= BspGrid::largestRadius;
    const BspSegment* node = BspGrid::StartNode(position, radius);
    while (node || !openNodes.empty()) {
        if (!node) {
            node = openNodes.back();
            openNodes.pop_back();
        }
        const Vector2 relative = position - node->start;
        const float distance = Dot(relative, node->normal);
        if (distance >= radius) {
            node = node->frontChild;
        } else if (distance < -radius) {
            node = node->backChild;
        } else {
            if (level.segmentsCollide[BspTree::NumberOf(*node)] != 0) {
                TestCandidate(*node, relative, radius);
            }
            const BspSegment* front = node->frontChild;
            if (front && (!shortCuts || BspGrid::CanTouch(front, position))) {
                openNodes.push_back(front);
            }
            node = node->backChild;
            if (node && shortCuts && !BspGrid::CanTouch(node, position)) {
                node = nullptr;
            }
        }
    }
}

Contact CollisionSpace::Resolve(Vector2& centre, float radius) {
    if (contactPoints.empty()) {
        return {};
    }
    constexpr int mostPasses = 3;
    Vector2 position = centre;
    ContactSum sum;
    // A little more than a root's rounding can bring back below the radius.
    const float outside = radius * radius * 1.00001f;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const unsigned before = sum.count;
        for (std::size_t i = contactPoints.size(); i-- > 0;) {
            Vector2 v = contactPoints[i].point - position;
            const float squared = v.x * v.x + v.y * v.y;
            if (squared > outside) {
                continue;
            }
            const float distance = Length(v);
            if (distance < radius && distance > 0.0f) {
                v /= distance;
                position -= v * (radius - distance);
                sum.Add(v, contactPoints[i].friction);
            }
        }
        for (std::size_t i = contactEdges.size(); i-- > 0;) {
            const BspSegment& segment = *contactEdges[i];
            const float distance = Dot(position - segment.start, segment.normal);
            if (distance >= -radius) {
                position -= segment.normal * (radius + distance);
                sum.Add(segment.normal, segment.friction);
            }
        }
        if (sum.count == before) {
            break;
        }
    }
    contactPoints.clear();
    contactEdges.clear();
    if (sum.count == 0) {
        return {};
    }
    centre = position;
    const float share = 1.0f / static_cast<float>(sum.count);
    return {sum.normal * share, sum.friction * share, sum.count};
}

Contact CollisionSpace::CollideCircle(const LevelState& level, Vector2& position, float radius) {
    GatherMoving(position, radius);
    GatherStatic(level, position, radius);
    return Resolve(position, radius);
}

Contact CollisionSpace::CollideCircleStatic(const LevelState& level, Vector2& position,
                                            float radius) {
    GatherStatic(level, position, radius);
    return Resolve(position, radius);
}

namespace Collision {

CollisionSpace current;

namespace {

Contact last;

}  // namespace

bool CollideCircle(Vector2& position, float radius) {
    last = current.CollideCircle(LevelData::current, position, radius);
    return static_cast<bool>(last);
}

bool CollideCircleStatic(Vector2& position, float radius) {
    last = current.CollideCircleStatic(LevelData::current, position, radius);
    return static_cast<bool>(last);
}

Vector2 ContactNormal() {
    return last.normal;
}

float ContactFriction() {
    return last.friction;
}

}  // namespace Collision
