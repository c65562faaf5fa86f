// The list of movers, what they carry, and the edges that they bring into collision queries.
// How a moving polygon pushes water is in MoverPush.cpp.

#include "actors/MoverManager.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "actors/IdIndex.h"
#include "actors/MoverPush.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/LevelData.h"
#include "platform/Assert.h"

namespace MoverManager {

std::deque<MoverCollider> colliders;
bool moverDraw = false;
bool dynamicNodeDraw = false;

namespace {

/// All movers of one id and what they carry: the same things for each of them, so one list
/// serves them all, and all the things get the same offset.
struct Carriage {
    std::vector<std::uint32_t> movers;  // in the order of adding
    BoundTargets animatedObjects;
    BoundTargets objects;
    BoundTargets polygons;
};

std::deque<Carriage> carriages;
std::unordered_map<std::uint32_t, Carriage*> carriageOfId;

IdIndex animatedObjectIndex;
IdIndex objectIndex;
IdIndex polygonIndex;

void AppendEdge(MoverCollider& collider, LevelPolygon& polygon, Vector2 from, Vector2 to) {
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
    edge.friction = polygon.friction;
    edge.polygon = &polygon;
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
            AppendEdge(collider, polygon, p, q);
        } else {
            AppendEdge(collider, polygon, q, p);
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
        carriage->animatedObjects = animatedObjectIndex.Bind(Actors::current.animatedObjects, id);
        carriage->objects = objectIndex.Bind(Actors::current.objects, id);
        carriage->polygons = polygonIndex.Bind(LevelData::polygons, id);
        for (const std::uint32_t place : carriage->polygons) {
            AddCollider(LevelData::polygons[place]);
        }
    }
    return *carriage;
}

void MoveCarried(ActorsState& actors, LevelState& level) {
    for (const Carriage& carriage : carriages) {
        Vector2 offset;
        for (const std::uint32_t place : carriage.movers) {
            offset += actors.movers[place].Offset();
        }
        for (const std::uint32_t place : carriage.animatedObjects) {
            actors.animatedObjects[place].offset = offset;
        }
        for (const std::uint32_t place : carriage.objects) {
            actors.objects[place].offset = offset;
        }
        for (const std::uint32_t place : carriage.polygons) {
            level.polygons[place].offset = offset;
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
    Collision::current.moving.Clear();
}

const Console::CommandTable commands{
    {"MoverCount", Console::Count<Actors::current, &ActorsState::movers>,
     "How many movers there are."},
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
}

void Shutdown() {
    Console::Print("\nShutting down mover manager..");
    ClearLists();
    commands.Remove();
}

void Add(const Mover& mover) {
    Mover& added = movers.emplace_back(mover);
    if (!std::isfinite(added.speed)) {
        added.speed = 0.0f;
    }
    BindCarriage(added.id).movers.push_back(static_cast<std::uint32_t>(movers.size() - 1));
}

void Reset() {
    moverDraw = false;
    dynamicNodeDraw = false;
    for (Mover& mover : movers) {
        mover.distance = 0.0f;
        mover.state = Mover::Stopped;
    }
}

void CollectVisible(const ActorsParts& parts, const View& view) {
    const ViewSquare square = view.Colliding();
    MovingEdges& moving = parts.space.moving;
    moving.Clear();
    for (const MoverCollider& collider : colliders) {
        const PolygonState& polygon = parts.level.polygons[collider.polygon->number];
        const Vector2 offset = polygon.offset;
        if (!polygon.solid ||
            !square.Overlaps(collider.minX + offset.x, collider.maxX + offset.x,
                             collider.minY + offset.y, collider.maxY + offset.y)) {
            continue;
        }
        moving.Add(collider.edges, offset);
    }
    if (parts.water.IsWorthIndexing()) {
        moving.Index();
    }
}

void Step(const ActorsParts& parts, const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    for (Mover& mover : parts.actors.movers) {
        mover.Advance(dt);
    }
    MoveCarried(parts.actors, parts.level);
    MoverPush::PushWater(parts, view.Pushing(), dt);
}

void CollectVisible(const View& view) {
    CollectVisible(Actors::Parts(), view);
}

void Step(const View& view, float dt) {
    Step(Actors::Parts(), view, dt);
}

}  // namespace MoverManager
