// The collision query. Candidates are gathered once per query and then resolved in a few
// passes; newer candidates come first.

#include "level/Collision.h"

#include "level/BspGrid.h"
#include "level/BspTree.h"
#include "level/LevelData.h"

/// A circle on its way out of the edges.
struct CollisionSpace::Query {
    Vector2 position;
    float radius;
    // Sums over the contacts.
    Vector2 normal{};
    float friction = 0.0f;
    unsigned count = 0;

    void AddContact(Vector2 contactNormal, float contactFriction) {
        normal += contactNormal;
        friction += contactFriction;
        ++count;
    }
};

/// Takes the segment as a candidate if the circle is beside it or near an end.
void CollisionSpace::TestCandidate(const BspSegment& segment, Vector2 relative, float radius) {
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

void CollisionSpace::GatherMoving(const Query& query) {
    for (const BspSegment& segment : moving) {
        const Vector2 relative = query.position - segment.start;
        const float distance = Dot(relative, segment.normal);
        if (distance >= -query.radius && distance <= query.radius) {
            TestCandidate(segment, relative, query.radius);
        }
    }
}

void CollisionSpace::GatherStatic(const Query& query, const LevelState& level) {
    const float radius = query.radius;
    openNodes.clear();
    const bool shortCuts = radius <= BspGrid::largestRadius;
    const BspSegment* node = BspGrid::StartNode(query.position, radius);
    while (node || !openNodes.empty()) {
        if (!node) {
            node = openNodes.back();
            openNodes.pop_back();
        }
        const Vector2 relative = query.position - node->start;
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
            if (front && (!shortCuts || BspGrid::CanTouch(front, query.position))) {
                openNodes.push_back(front);
            }
            node = node->backChild;
            if (node && shortCuts && !BspGrid::CanTouch(node, query.position)) {
                node = nullptr;
            }
        }
    }
}

void CollisionSpace::PointPass(Query& query) const {
    for (std::size_t i = contactPoints.size(); i-- > 0;) {
        const ContactPoint& contact = contactPoints[i];
        Vector2 v = contact.point - query.position;
        const float distance = Length(v);
        if (distance < query.radius && distance > 0.0f) {
            v /= distance;
            query.position -= v * (query.radius - distance);
            query.AddContact(v, contact.friction);
        }
    }
}

void CollisionSpace::EdgePass(Query& query) const {
    for (std::size_t i = contactEdges.size(); i-- > 0;) {
        const BspSegment& segment = *contactEdges[i];
        const float distance = Dot(query.position - segment.start, segment.normal);
        if (distance >= -query.radius) {
            query.position -= segment.normal * (query.radius + distance);
            query.AddContact(segment.normal, segment.friction);
        }
    }
}

Contact CollisionSpace::Resolve(Query& query) {
    constexpr int mostPasses = 3;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const unsigned before = query.count;
        PointPass(query);
        EdgePass(query);
        if (query.count == before) {
            break;
        }
    }
    contactPoints.clear();
    contactEdges.clear();
    if (query.count == 0) {
        return {};
    }
    const float share = 1.0f / static_cast<float>(query.count);
    return {query.normal * share, query.friction * share, query.count};
}

Contact CollisionSpace::CollideCircle(const LevelState& level, Vector2& position, float radius) {
    Query query{position, radius};
    GatherMoving(query);
    GatherStatic(query, level);
    const Contact contact = Resolve(query);
    position = query.position;
    return contact;
}

Contact CollisionSpace::CollideCircleStatic(const LevelState& level, Vector2& position,
                                            float radius) {
    Query query{position, radius};
    GatherStatic(query, level);
    const Contact contact = Resolve(query);
    position = query.position;
    return contact;
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
