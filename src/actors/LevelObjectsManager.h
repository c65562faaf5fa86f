#pragma once
// Level objects: textured sprites, still or animated, that movers carry and triggers switch.
// They don't collide. The manager owns them, steps their animation, culls them against the
// camera and draws them layer by layer. Order of calls: Initialise, Add, then per simulation
// step `Step` and per frame `PrepareDraw` and the layers. Pointers to objects stay valid until
// Shutdown.

#include <array>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "engine/Vector2.h"
#include "graphics/Texture.h"
#include "level/View.h"

struct LevelObject {
    static constexpr std::uint32_t layerCount = 5;

    /// Loads `frames` from a texture name; one with "_FRAME" names an animation.
    void SetTexture(const std::string& name);
    /// Back to the first frame, with no plays done.
    void Rewind();
    /// The centre of what is drawn.
    Vector2 Centre() const { return position + offset; }
    /// Of the current frame, world units; nothing without frames.
    Vector2 HalfSize() const;

    std::uint8_t enabled = 1;  ///< drawn; triggers switch it
    std::uint32_t id = 0;      ///< what movers and triggers address; not unique
    std::uint32_t layer = 0;   ///< 0 to 4
    std::vector<Texture> frames;
    std::uint32_t frameCount = 1;
    std::uint32_t frame = 0;      ///< the current one
    float frameTimer = 0.0f;      ///< seconds since the last change of frame
    Vector2 position;             ///< centre of the sprite
    Vector2 offset;               ///< displacement by movers
    std::uint8_t mirrored = 0;    ///< drawn flipped left to right
    std::uint8_t stopped = 1;     ///< the animation stands; objects wait for a trigger
    std::uint32_t playLimit = 0;  ///< plays to do; 0: loop for ever
    std::uint32_t plays = 0;      ///< plays done
};

namespace LevelObjectsManager {

/// Objects with one frame, and those with more, each in the order of adding.
extern std::list<LevelObject> objects;
extern std::list<LevelObject> animatedObjects;
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
/// Advances animations; the last thing of a simulation step.
void Step(float dt);
/// Once a frame before the layers: queues what is enabled and in view.
void PrepareDraw(const View& view);
/// Draws and empties the layer's queue (LevelObjectsManagerDraw.cpp).
void DrawLayer(int layer);
/// Debug view (LevelObjectsManagerDraw.cpp).
void DrawIds(const View& view);

}  // namespace LevelObjectsManager
