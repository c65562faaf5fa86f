#pragma once
// Steps the animation of the level objects, culls them against the camera and draws them layer by
// layer. Order of calls: Initialise, Add, then per simulation step `Step` and per frame
// `PrepareDraw` and the layers.

#include <array>
#include <cstdint>
#include <vector>

#include "actors/ActorsState.h"
#include "level/View.h"

namespace LevelObjectsManager {

/// Advances the animations of any world's objects; the last thing of a simulation step.
void Step(ActorsState& actors, float dt);

// The world in play.

inline std::vector<LevelObject>& objects = Actors::current.objects;
inline std::vector<LevelObject>& animatedObjects = Actors::current.animatedObjects;
extern bool objectsDraw;
extern bool objectsCull;
extern bool objectsDrawIds;
extern float animationSpeeds;  ///< frames per second of all objects

/// One sprite that a layer draws. They go by texture, and those of one texture as queued.
struct QueuedObject {
    std::uint32_t glName = 0;  ///< of the current frame's texture
    std::uint32_t number = 0;  ///< in the queue
    const LevelObject* object = nullptr;
};
/// This frame's, from PrepareDraw to DrawLayer. Storage is kept.
extern std::array<std::vector<QueuedObject>, LevelObject::layerCount> layerQueues;

void Initialise();
void Shutdown();
/// Appends the object to the list that its `frameCount` asks for.
void Add(const LevelObject& object);
/// Level restart: rewinds, stops, enables and puts back all objects.
void Reset();
void Step(float dt);
/// Once a frame before the layers: queues what is enabled and in view.
void PrepareDraw(const View& view);
/// Draws and empties the layer's queue (LevelObjectsManagerDraw.cpp).
void DrawLayer(int layer);
/// Debug view (LevelObjectsManagerDraw.cpp).
void DrawIds(const View& view);

}  // namespace LevelObjectsManager
