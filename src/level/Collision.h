#pragma once
// The game's one collision query: push a circle out of whatever edges it touches and report
// the average contact. It works on the tree's segments and on those of moving polygons.

#include <vector>

#include "engine/Vector2.h"
#include "level/BspSegment.h"
#include "level/LevelState.h"
#include "level/MovingEdges.h"

/// What a query touched.
struct Contact {
    /// Average of the unit vectors from the circle into what it touched; not normalised, (0, 0)
    /// without contact.
    Vector2 normal;
    /// Average friction of what was touched; 1 without contact.
    float friction = 1.0f;
    unsigned count = 0;

    explicit operator bool() const { return count > 0; }
};

/// An edge that a query's circle is beside or near an end of.
struct CandidateEdge {
    const BspSegment* edge;
    float along;  ///< its point that is nearest, from its start on
    bool isBeside;
};

/// All that circles touch in one step of a world. The tree is that of the loaded level. Each
/// thread that steps worlds has its own.
class CollisionSpace {
public:
    /// Moves `position` out of all edges within `radius`. `level` says which of the tree's
    /// segments collide; it is of the loaded level.
    Contact CollideCircle(const LevelState& level, Vector2& position, float radius);
    /// The same against the static level only.
    Contact CollideCircleStatic(const LevelState& level, Vector2& position, float radius);

    MovingEdges moving;

private:
    CandidateEdge* Room();
    Contact CollideMany(const LevelState& level, Vector2& position, float radius);
    CandidateEdge* GatherMoving(Vector2 position, float radius, CandidateEdge* end) const;
    CandidateEdge* GatherStatic(const LevelState& level, Vector2 position, float radius,
                                CandidateEdge* end);
    CandidateEdge* Walk(const LevelState& level, Vector2 position, float radius,
                        CandidateEdge* end);

    // Those of the query at hand, the newest last. Storage is kept from query to query.
    std::vector<CandidateEdge> candidates;
    std::vector<const BspSegment*> openNodes;
};

/// The queries of the world in play. The results of the last one stay readable until the next.
namespace Collision {

extern CollisionSpace current;

/// True if anything was touched.
bool CollideCircle(Vector2& position, float radius);
bool CollideCircleStatic(Vector2& position, float radius);
Vector2 ContactNormal();
float ContactFriction();

}  // namespace Collision
