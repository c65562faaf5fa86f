// The collision query. Candidates are gathered once per query and then resolved in a few
// passes; newer candidates come first. All storage is kept from query to query.

#include "level/Collision.h"

#include "level/BspGrid.h"

namespace {

struct ContactPoint {
    Vector2 point;
    float friction;
};

constexpr int mostPasses = 3;

float queryRadius = 0.0f;
Vector2 contactNormal;
float contactFriction = 1.0f;
unsigned contactCount = 0;
// Candidates, the newest last; passes run from the back.
std::vector<ContactPoint> contactPoints;
std::vector<const BspSegment*> contactEdges;
std::vector<const BspSegment*> openNodes;
const std::vector<BspSegment*>* movingSegments = nullptr;

/// Takes the segment as a candidate if the circle is beside it or near an end.
void TestCandidate(const BspSegment& segment, Vector2 relative) {
    float along = Dot(relative, segment.direction);
    if (along >= 0.0f && along <= segment.length) {
        contactEdges.push_back(&segment);
    } else if (along >= -queryRadius && along <= segment.length + queryRadius) {
        along = along < 0.0f ? 0.0f : segment.length;
    } else {
        return;
    }
    contactPoints.push_back({segment.start + segment.direction * along, segment.friction});
}

void GatherMoving(Vector2 position) {
    if (!movingSegments) {
        return;
    }
    for (const BspSegment* segment : *movingSegments) {
        const Vector2 relative = position - segment->start;
        const float distance = Dot(relative, segment->normal);
        if (distance >= -queryRadius && distance <= queryRadius) {
            TestCandidate(*segment, relative);
        }
    }
}

void GatherStatic(Vector2 position) {
    openNodes.clear();
    const bool shortCuts = queryRadius <= BspGrid::largestRadius;
    const BspSegment* node = BspGrid::StartNode(position, queryRadius);
    while (node || !openNodes.empty()) {
        if (!node) {
            node = openNodes.back();
            openNodes.pop_back();
        }
        const Vector2 relative = position - node->start;
        const float distance = Dot(relative, node->normal);
        if (distance >= queryRadius) {
            node = node->frontChild;
        } else if (distance < -queryRadius) {
            node = node->backChild;
        } else {
            if (node->active) {
                TestCandidate(*node, relative);
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

void AddContact(Vector2 normal, float friction) {
    contactNormal += normal;
    contactFriction += friction;
    ++contactCount;
}

void PointPass(Vector2& position) {
    for (std::size_t i = contactPoints.size(); i-- > 0;) {
        const ContactPoint& contact = contactPoints[i];
        Vector2 v = contact.point - position;
        const float distance = Length(v);
        if (distance < queryRadius && distance > 0.0f) {
            v /= distance;
            position -= v * (queryRadius - distance);
            AddContact(v, contact.friction);
        }
    }
}

void EdgePass(Vector2& position) {
    for (std::size_t i = contactEdges.size(); i-- > 0;) {
        const BspSegment& segment = *contactEdges[i];
        const float distance = Dot(position - segment.start, segment.normal);
        if (distance >= -queryRadius) {
            position -= segment.normal * (queryRadius + distance);
            AddContact(segment.normal, segment.friction);
        }
    }
}

bool Collide(Vector2& position, float radius, bool withMoving) {
    contactNormal = {};
    contactFriction = 0.0f;
    contactCount = 0;
    queryRadius = radius;
    if (withMoving) {
        GatherMoving(position);
    }
    GatherStatic(position);
    for (int pass = 0; pass < mostPasses; ++pass) {
        const unsigned before = contactCount;
        PointPass(position);
        EdgePass(position);
        if (contactCount == before) {
            break;
        }
    }
    if (contactCount > 0) {
        const float share = 1.0f / static_cast<float>(contactCount);
        contactNormal *= share;
        contactFriction *= share;
    } else {
        contactFriction = 1.0f;
    }
    contactPoints.clear();
    contactEdges.clear();
    return contactCount > 0;
}

}  // namespace

bool Collision::CollideCircle(Vector2& position, float radius) {
    return Collide(position, radius, true);
}

bool Collision::CollideCircleStatic(Vector2& position, float radius) {
    return Collide(position, radius, false);
}

Vector2 Collision::ContactNormal() {
    return contactNormal;
}

float Collision::ContactFriction() {
    return contactFriction;
}

void Collision::UseMovingSegments(const std::vector<BspSegment*>* segments) {
    movingSegments = segments;
}
