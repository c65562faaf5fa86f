// The collision query. Candidates are gathered once per query and then resolved in a few
// passes; newer candidates come first.

#include "level/Collision.h"

#include <array>
#include <span>

#include "level/BspGrid.h"
#include "level/BspTree.h"
#include "level/LevelData.h"

namespace {

constexpr int mostPasses = 3;

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
    Contact Average() const {
        if (count == 0) {
            return {};
        }
        const float share = 1.0f / static_cast<float>(count);
        return {normal * share, friction * share, count};
    }
};

/// Where a circle is to an edge. Worked out without branches, since there is no telling.
struct Place {
    float distance;  ///< from the edge's line, positive on its solid side
    float along;     ///< the edge's point that is nearest, from its start on
    bool isBeside;
    bool isNear;  ///< beside the edge or near an end, if it is near the line
};

inline Place PlaceAt(const BspSegment& edge, Vector2 position, float radius) {
    const Vector2 relative = position - edge.start;
    const float along = Dot(relative, edge.direction);
    const bool isBeside = (along >= 0.0f) & (along <= edge.length);
    const bool isNear = isBeside | ((along >= -radius) & (along <= edge.length + radius));
    const float fromStart = 0.0f > along ? 0.0f : along;
    const float onEdge = fromStart > edge.length ? edge.length : fromStart;
    return {Dot(relative, edge.normal), onEdge, isBeside, isNear};
}

/// Stores a candidate and gives the place for the next: the same again if it isn't one.
inline CandidateEdge* Add(const BspSegment& edge, const Place& place, std::uint64_t isCandidate,
                          CandidateEdge* end) {
    // One by one: a whole that is put together in memory first would have to wait for it.
    end->edge = &edge;
    end->along = place.along;
    end->isBeside = place.isBeside;
    return end + isCandidate;
}

/// Follows a cell's steps without a branch.
CandidateEdge* GatherSteps(const LevelState& level, Vector2 position,
                           std::span<const BspGrid::Step> steps, CandidateEdge* end) {
    constexpr float radius = BspGrid::radius;
    std::uint64_t conditions = 1;
    unsigned next = 1;
    for (const BspGrid::Step step : steps) {
        const BspSegment& edge = BspTree::nodes[step.node];
        const Place place = PlaceAt(edge, position, radius);
        const std::uint64_t isVisited = conditions >> step.condition & 1u;
        const std::uint64_t isBehind = isVisited & std::uint64_t{!(place.distance >= radius)};
        const std::uint64_t isInFront = isVisited & std::uint64_t{!(place.distance < -radius)};
        conditions |= (isBehind | isInFront << 1) << next;
        next += 2;
        end = Add(
            edge, place,
            isBehind & isInFront & std::uint64_t{place.isNear} & level.segmentsCollide[step.node],
            end);
    }
    return end;
}

/// Of one moving polygon.
CandidateEdge* GatherEdges(std::span<const BspSegment> edges, Vector2 position, float radius,
                           CandidateEdge* end) {
    for (const BspSegment& edge : edges) {
        const Place place = PlaceAt(edge, position, radius);
        const bool isAtLine = (place.distance >= -radius) & (place.distance <= radius);
        end = Add(edge, place, isAtLine & place.isNear, end);
    }
    return end;
}

Contact Resolve(std::span<const CandidateEdge> candidates, Vector2& centre, float radius) {
    Vector2 position = centre;
    ContactSum sum;
    // A little more than a root's rounding can bring back below the radius.
    const float outside = radius * radius * 1.00001f;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const unsigned before = sum.count;
        for (std::size_t i = candidates.size(); i-- > 0;) {
            const BspSegment& edge = *candidates[i].edge;
            Vector2 v = edge.start + edge.direction * candidates[i].along - position;
            const float squared = v.x * v.x + v.y * v.y;
            if (squared > outside) {
                continue;
            }
            const float distance = Length(v);
            if (distance < radius && distance > 0.0f) {
                v /= distance;
                position -= v * (radius - distance);
                sum.Add(v, edge.friction);
            }
        }
        for (std::size_t i = candidates.size(); i-- > 0;) {
            const BspSegment& edge = *candidates[i].edge;
            const float distance = Dot(position - edge.start, edge.normal);
            if (candidates[i].isBeside && distance >= -radius) {
                position -= edge.normal * (radius + distance);
                sum.Add(edge.normal, edge.friction);
            }
        }
        if (sum.count == before) {
            break;
        }
    }
    centre = position;
    return sum.Average();
}

/// The same for a particle and one candidate, which is what most of those at rest have. Inline,
/// so that it works in registers.
[[gnu::always_inline]] inline Contact ResolveOne(CandidateEdge candidate, Vector2& centre) {
    constexpr float radius = BspGrid::radius;
    const BspSegment& edge = *candidate.edge;
    const Vector2 point = edge.start + edge.direction * candidate.along;
    Vector2 position = centre;
    const bool hasZero = position.x == 0.0f || position.y == 0.0f;
    ContactSum sum;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const unsigned before = sum.count;
        Vector2 v = point - position;
        const float squared = v.x * v.x + v.y * v.y;
        // As the radius is a power of two, the root rounds to less just if the square is less.
        if (squared < radius * radius && squared > 0.0f) {
            const float distance = std::sqrt(squared);
            v /= distance;
            position -= v * (radius - distance);
            sum.Add(v, edge.friction);
        }
        const float distance = Dot(position - edge.start, edge.normal);
        if (candidate.isBeside && distance >= -radius) {
            // What rests is pushed by nothing, at most a zero changes its sign. The processor
            // foresees that, so that the next pass doesn't wait for it.
            if (distance > -radius || hasZero) {
                position -= edge.normal * (radius + distance);
            }
            sum.Add(edge.normal, edge.friction);
        }
        if (sum.count == before) {
            break;
        }
    }
    centre = position;
    return sum.Average();
}

/// A particle and one edge that is alone near it.
inline Contact CollideEdge(const BspSegment& edge, Vector2& position) {
    constexpr float radius = BspGrid::radius;
    const Vector2 relative = position - edge.start;
    const float distance = Dot(relative, edge.normal);
    if (!(distance >= -radius && distance < radius)) {
        return {};
    }
    const float along = Dot(relative, edge.direction);
    if (along >= 0.0f && along <= edge.length) {
        return ResolveOne({&edge, along, true}, position);
    }
    if (along >= -radius && along <= edge.length + radius) {
        return ResolveOne({&edge, along < 0.0f ? 0.0f : edge.length, false}, position);
    }
    return {};
}

Contact CollideAny(std::span<const CandidateEdge> candidates, Vector2& position, float radius) {
    if (candidates.empty()) {
        return {};
    }
    if (candidates.size() == 1 && radius == BspGrid::radius) {
        return ResolveOne(candidates.front(), position);
    }
    return Resolve(candidates, position, radius);
}

Contact CollideSteps(const LevelState& level, Vector2& position, BspGrid::Cell cell) {
    std::array<CandidateEdge, BspGrid::mostSteps + 1> found;
    const CandidateEdge* const end =
        GatherSteps(level, position, BspGrid::StepsOf(cell), found.data());
    return CollideAny({found.data(), end}, position, BspGrid::radius);
}

}  // namespace

Contact CollisionSpace::CollideCircle(const LevelState& level, Vector2& position, float radius) {
    if (radius == BspGrid::radius && !moving.MayTouch(position)) {
        const BspGrid::Cell cell = BspGrid::CellAt(position);
        switch (cell.What()) {
            case BspGrid::Cell::Empty:
                return {};
            case BspGrid::Cell::OneNode:
                return level.segmentsCollide[cell.Number()] != 0
                           ? CollideEdge(BspTree::nodes[cell.Number()], position)
                           : Contact{};
            case BspGrid::Cell::Steps:
                return CollideSteps(level, position, cell);
            default:
                break;
        }
    }
    return CollideMany(level, position, radius);
}

Contact CollisionSpace::CollideMany(const LevelState& level, Vector2& position, float radius) {
    CandidateEdge* const first = Room();
    CandidateEdge* const end = GatherMoving(position, radius, first);
    return CollideAny({first, GatherStatic(level, position, radius, end)}, position, radius);
}

Contact CollisionSpace::CollideCircleStatic(const LevelState& level, Vector2& position,
                                            float radius) {
    CandidateEdge* const first = Room();
    return CollideAny({first, GatherStatic(level, position, radius, first)}, position, radius);
}

/// The first of as many candidates as there are edges.
CandidateEdge* CollisionSpace::Room() {
    const std::size_t most = BspTree::nodes.size() + moving.All().size() + 1;
    if (candidates.size() < most) {
        candidates.resize(most);
    }
    return candidates.data();
}

CandidateEdge* CollisionSpace::GatherMoving(Vector2 position, float radius,
                                            CandidateEdge* end) const {
    moving.ForEachNear(position, radius, [&](std::span<const BspSegment> polygon) {
        end = GatherEdges(polygon, position, radius, end);
    });
    return end;
}

CandidateEdge* CollisionSpace::GatherStatic(const LevelState& level, Vector2 position, float radius,
                                            CandidateEdge* end) {
    if (radius != BspGrid::radius) {
        return Walk(level, position, radius, end);
    }
    const BspGrid::Cell cell = BspGrid::KnownCellAt(position);
    const BspGrid::Step only{cell.Number(), 0};
    switch (cell.What()) {
        case BspGrid::Cell::Walk:
            return Walk(level, position, radius, end);
        case BspGrid::Cell::Steps:
            return GatherSteps(level, position, BspGrid::StepsOf(cell), end);
        case BspGrid::Cell::OneNode:
            return GatherSteps(level, position, {&only, 1}, end);
        default:
            return end;
    }
}

CandidateEdge* CollisionSpace::Walk(const LevelState& level, Vector2 position, float radius,
                                    CandidateEdge* end) {
    openNodes.clear();
    const bool shortCuts = radius <= BspGrid::radius;
    const BspSegment* node = BspTree::Root();
    while (node || !openNodes.empty()) {
        if (!node) {
            node = openNodes.back();
            openNodes.pop_back();
        }
        const Place place = PlaceAt(*node, position, radius);
        if (place.distance >= radius) {
            node = node->frontChild;
        } else if (place.distance < -radius) {
            node = node->backChild;
        } else {
            if (place.isNear && level.segmentsCollide[BspTree::NumberOf(*node)] != 0) {
                *end++ = {node, place.along, place.isBeside};
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
    return end;
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
