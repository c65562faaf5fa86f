// The list of movers, what they carry, and the edges that they bring into collision queries.
// How a moving polygon pushes water is in MoverPush.cpp.

#include "actors/MoverManager.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "actors/IdIndex.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverPush.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/Collision.h"
#include "level/LevelData.h"
#include "platform/Assert.h"

namespace MoverManager {

std::deque<Mover> movers;
std::deque<MoverCollider> colliders;
std::vector<BspSegment> nearEdges;
bool moverDraw = false;
bool dynamicNodeDraw = false;

namespace {

/// All movers of one id and what they carry: the same things for each of them, so one list
/// serves them all, and all the things get the same offset.
struct Carriage {
    std::vector<const Mover*> movers;  // in the order of adding
    BoundTargets<LevelObject> animatedObjects;
    BoundTargets<LevelObject> objects;
    BoundTargets<LevelPolygon> polygons;
};

std::deque<Carriage> carriages;
std::unordered_map<std::uint32_t, Carriage*> carriageOfId;

IdIndex<LevelObject> animatedObjectIndex;
IdIndex<LevelObject> objectIndex;
IdIndex<LevelPolygon> polygonIndex;

std::vector<BspSegment*> nearEdgePointers;  // to `nearEdges`, for the collision queries

/// Shorter sides of an outline, in world units, make no edge.
constexpr float shortestEdge = 0.01f;

void AppendEdge(MoverCollider& collider, Vector2 from, Vector2 to) {
    BspSegment edge;
    edge.start = from;
    edge.end = to;
    edge.direction = to - from;
    edge.length = Length(edge.direction);
    if (!(edge.length > shortestEdge)) {
        return;
    }
    edge.direction /= edge.length;
    edge.normal = {-edge.direction.y, edge.direction.x};
    edge.friction = collider.polygon->friction;
    edge.polygon = collider.polygon;
    collider.edges.push_back(edge);
}

/// A polygon without triangles, such as one that crosses itself, gets no collider.
void AddCollider(LevelPolygon& polygon) {
    if (!polygon.solid || polygon.triangleCount == 0) {
        return;
    }
    MoverCollider& collider = colliders.emplace_back();
    collider.polygon = &polygon;
    const std::size_t count = polygon.PointCount();
    collider.edges.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Vector2 p = polygon.Point(i);
        const Vector2 q = polygon.Point((i + 1) % count);
        // Normals point into the solid.
        if (polygon.winding == 1) {
            AppendEdge(collider, p, q);
        } else {
            AppendEdge(collider, q, p);
        }
    }
    const auto [minX, maxX] = std::ranges::minmax(polygon.pointsX);
    const auto [minY, maxY] = std::ranges::minmax(polygon.pointsY);
    collider.minX = minX;
    collider.maxX = maxX;
    collider.minY = minY;
    collider.maxY = maxY;
}

Carriage& BindCarriage(std::uint32_t id) {
    Carriage*& carriage = carriageOfId[id];
    if (carriage == nullptr) {
        carriage = &carriages.emplace_back();
        carriage->animatedObjects =
            animatedObjectIndex.Bind(LevelObjectsManager::animatedObjects, id);
        carriage->objects = objectIndex.Bind(LevelObjectsManager::objects, id);
        carriage->polygons = polygonIndex.Bind(LevelData::polygons, id);
        for (LevelPolygon* const polygon : carriage->polygons) {
            AddCollider(*polygon);
        }
    }
    return *carriage;
}

void MoveCarried() {
    for (const Carriage& carriage : carriages) {
        Vector2 offset;
        for (const Mover* const mover : carriage.movers) {
            offset += mover->Offset();
        }
        for (LevelObject* const object : carriage.animatedObjects) {
            object->offset = offset;
        }
        for (LevelObject* const object : carriage.objects) {
            object->offset = offset;
        }
        for (LevelPolygon* const polygon : carriage.polygons) {
            polygon->offset = offset;
        }
    }
}

void ClearLists() {
    movers.clear();
    colliders.clear();
    carriages.clear();
    carriageOfId.clear();
    animatedObjectIndex.Clear();
    objectIndex.Clear();
    polygonIndex.Clear();
    nearEdges.clear();
    nearEdgePointers.clear();
}

const Console::CommandTable commands{
    {"MoverCount", Console::Count<movers>, "How many movers there are."},
    {"MoverDraw", Console::Variable<moverDraw>,
     "Shows the paths of the movers, with id and speed."},
    {"DynamicNodeDraw", Console::Variable<dynamicNodeDraw>,
     "Shows the edges that move: green ones collide, red ones don't."},
};

}  // namespace

void Initialise() {
    Shutdown();
    moverDraw = false;
    dynamicNodeDraw = false;
    Console::Print("\nInitialising down mover manager..");
    commands.Add();
    Collision::UseMovingSegments(&nearEdgePointers);
}

void Shutdown() {
    Console::Print("\nShutting down mover manager..");
    Collision::UseMovingSegments(nullptr);
    ClearLists();
    commands.Remove();
}

void Add(const Mover& mover) {
    Mover& added = movers.emplace_back(mover);
    if (!std::isfinite(added.speed)) {
        added.speed = 0.0f;
    }
    BindCarriage(added.id).movers.push_back(&added);
}

void Reset() {
    moverDraw = false;
    dynamicNodeDraw = false;
    for (Mover& mover : movers) {
        mover.distance = 0.0f;
        mover.state = Mover::Stopped;
    }
}

void CollectVisible(const View& view) {
    const ViewSquare square = view.Colliding();
    nearEdges.clear();
    for (const MoverCollider& collider : colliders) {
        const Vector2 offset = collider.polygon->offset;
        if (!collider.polygon->solid ||
            !square.Overlaps(collider.minX + offset.x, collider.maxX + offset.x,
                             collider.minY + offset.y, collider.maxY + offset.y)) {
            continue;
        }
        for (const BspSegment& edge : collider.edges) {
            BspSegment& placed = nearEdges.emplace_back(edge);
            placed.start += offset;
            placed.end += offset;
        }
    }
    nearEdgePointers.clear();
    for (BspSegment& edge : nearEdges) {
        nearEdgePointers.push_back(&edge);
    }
}

void Step(const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    for (Mover& mover : movers) {
        mover.Advance(dt);
    }
    MoveCarried();
    MoverPush::PushWater(colliders, view.Pushing(), dt);
}

}  // namespace MoverManager
