#pragma once
// Movers: platforms, gates and lifts. A mover writes an `offset` into each polygon and object
// of its id. Solid carried polygons stay out of the level's tree: the manager keeps them as
// colliders, offers their edges near the camera to the collision queries, and pushes the water
// that a moving one runs into.
//
// Order of calls: Initialise and Add while a level loads, after polygons and objects; then
// CollectVisible and Step, in this order, at the front of each simulation step.

#include <deque>
#include <vector>

#include "actors/ActorsStep.h"
#include "level/BspSegment.h"
#include "level/LevelPolygon.h"
#include "level/View.h"

/// A solid carried polygon. Nothing of it changes once it is added.
struct MoverCollider {
    const LevelPolygon* polygon = nullptr;
    std::vector<BspSegment> edges;  ///< of the outline at offset zero
    float minX = 0.0f;              ///< box of the outline at offset zero
    float maxX = 0.0f;
    float minY = 0.0f;
    float maxY = 0.0f;
};

namespace MoverManager {

// Of any world.

/// First thing of a simulation step: fills the collision space from where the polygons stand.
void CollectVisible(const ActorsParts& parts, const View& view);
/// Advances the movers, moves what they carry, and pushes the water; `dt` in seconds.
void Step(const ActorsParts& parts, const View& view, float dt);

/// One for each solid carried polygon.
extern std::deque<MoverCollider> colliders;

// The world in play.

inline std::vector<Mover>& movers = Actors::current.movers;
/// Edges of solid colliders near the camera, in world position, as of CollectVisible.
inline const std::vector<BspSegment>& nearEdges = Collision::current.moving.All();
extern bool moverDraw;
extern bool dynamicNodeDraw;

void Initialise();
void Shutdown();
/// Appends a copy. What it carries is bound when the first mover of its id is added. A speed
/// that isn't finite counts as 0.
void Add(const Mover& mover);
/// Level restart: all movers stopped at their start, debug views off.
void Reset();
void CollectVisible(const View& view);
void Step(const View& view, float dt);
/// Debug views (MoverManagerDraw.cpp).
void Draw(const View& view);

}  // namespace MoverManager
