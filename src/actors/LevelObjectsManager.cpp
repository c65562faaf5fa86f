// The lists of level objects, their animation, and the choice of what is in view.

#include "actors/LevelObjectsManager.h"

#include <algorithm>
#include <cmath>

#include "actors/Camera.h"
#include "engine/ConfigFile.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "platform/Assert.h"

void LevelObject::SetTexture(const std::string& name) {
    frames = TextureSet(LoadFrames(name));
    frameCount = static_cast<std::uint32_t>(frames.size());
    frame = 0;
}

void LevelObject::Rewind() {
    frame = 0;
    frameTimer = 0.0f;
    plays = 0;
}

Vector2 LevelObject::HalfSize() const {
    if (frame >= frames.size()) {
        return {};
    }
    const Texture& texture = frames[frame];
    return Vector2{static_cast<float>(texture.width), static_cast<float>(texture.height)} * 0.5f;
}

namespace LevelObjectsManager {

bool objectsDraw = true;
bool objectsCull = true;
bool objectsDrawIds = false;
float animationSpeeds = 0.0f;
std::array<std::vector<QueuedObject>, LevelObject::layerCount> layerQueues;

namespace {

void ResetFlags() {
    objectsDraw = true;
    objectsCull = true;
    objectsDrawIds = false;
}

void EmptyQueues() {
    for (std::vector<QueuedObject>& queue : layerQueues) {
        queue.clear();
    }
}

void Create(float x, float y, std::uint32_t id, const std::string& textureName) {
    LevelObject object;
    object.position = {x, y};
    object.id = id;
    object.SetTexture(textureName);
    Add(object);
}

const Console::CommandTable commands{
    {"ObjectsDraw", Console::Variable<objectsDraw>, "Shows or hides the level's sprites."},
    {"ObjectsCull", Console::Variable<objectsCull>,
     "Leaves out sprites out of view; without it, disabled ones show too."},
    {"ObjectsDrawIds", Console::Variable<objectsDrawIds>, "Shows the ids of the sprites."},
    {"ObjectsCount", [] { return static_cast<int>(objects.size() + animatedObjects.size()); },
     "How many sprites there are."},
    {"ObjectCreate", Console::Words<Create>, "Adds a sprite with its middle at (x, y).",
     "< x : number > < y : number > < object id : integer > < textureName : string >"},
};

/// At most one frame passes, however long the step is.
void StepAnimation(LevelObject& object, float dt) {
    if (object.stopped) {
        return;
    }
    object.frameTimer += dt;
    if (!(object.frameTimer >= 1.0f / animationSpeeds)) {
        return;
    }
    object.frameTimer = 0.0f;
    if (++object.frame < object.frameCount) {
        return;
    }
    object.frame = 0;
    if (object.playLimit != 0 && ++object.plays >= object.playLimit) {
        object.plays = 0;
        object.stopped = 1;
        object.frame = object.frameCount - 1;
    }
}

void Queue(const LevelObject& object) {
    if (object.layer >= LevelObject::layerCount || object.frame >= object.frames.size()) {
        return;
    }
    std::vector<QueuedObject>& queue = layerQueues[object.layer];
    queue.push_back(
        {object.frames[object.frame].glName, static_cast<std::uint32_t>(queue.size()), &object});
}

void QueueVisible(const std::vector<LevelObject>& list, const ViewSquare& square) {
    for (const LevelObject& object : list) {
        if (!objectsCull) {
            Queue(object);
            continue;
        }
        const Vector2 centre = object.Centre();
        const Vector2 half = object.HalfSize();
        if (object.enabled && square.Overlaps(centre.x - half.x, centre.x + half.x,
                                              centre.y - half.y, centre.y + half.y)) {
            Queue(object);
        }
    }
}

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising level objects manager..");
    ResetFlags();
    commands.Add();
    animationSpeeds = std::fabs(ConfigFile("cfg\\animation.cfg").GetFloat("animationSpeeds"));
}

void Shutdown() {
    Console::Print("\nShutting down level objects manager..");
    EmptyQueues();
    objects.clear();
    animatedObjects.clear();
    commands.Remove();
}

void Add(const LevelObject& object) {
    VANTREL_ASSERT(object.layer < LevelObject::layerCount);
    if (object.frameCount == 1) {
        objects.push_back(object);
    } else if (object.frameCount > 1) {
        animatedObjects.push_back(object);
    }
}

void Reset() {
    ResetFlags();
    for (std::vector<LevelObject>* const list : {&objects, &animatedObjects}) {
        for (LevelObject& object : *list) {
            object.Rewind();
            object.offset = {};
            object.stopped = 1;
            object.enabled = 1;
        }
    }
}

void Step(ActorsState& actors, float dt) {
    if (!(animationSpeeds > 0.0f)) {
        return;
    }
    for (LevelObject& object : actors.animatedObjects) {
        StepAnimation(object, dt);
    }
}

void Step(float dt) {
    Step(Actors::current, dt);
}

void PrepareDraw(const View& view) {
    if (!objectsDraw) {
        return;
    }
    EmptyQueues();
    const ViewSquare square = view.Drawing();
    QueueVisible(objects, square);
    QueueVisible(animatedObjects, square);
    for (std::vector<QueuedObject>& queue : layerQueues) {
        std::ranges::sort(queue, [](const QueuedObject& a, const QueuedObject& b) {
            return a.glName != b.glName ? a.glName < b.glName : a.number < b.number;
        });
    }
}

}  // namespace LevelObjectsManager
