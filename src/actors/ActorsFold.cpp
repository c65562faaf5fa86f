#include "actors/ActorsFold.h"

#include "actors/Camera.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/SoundSourceManager.h"
#include "actors/TriggerManager.h"

namespace ActorsFold {

namespace {

void Fold(StateFold& fold, const CameraState& camera) {
    const auto& [position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer, shaking,
                 shakeTimer, shakeTarget] = camera;
    fold.Add(position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer, shaking,
             shakeTimer, shakeTarget);
}

void Fold(StateFold& fold, const TriggerTriangle& triangle) {
    // The rest follows from the corners.
    const auto& [corners, normals, edges, lengths] = triangle;
    fold.Add(corners[0], corners[1], corners[2]);
}

void Fold(StateFold& fold, const Trigger& trigger) {
    // Box and reach follow from the triangles, information and effect from the type, and what is
    // bound from the target id and from how much bore it then.
    const auto& [triangleA, triangleB, minX, maxX, minY, maxY, boxReach, type, targetId, typeInfo,
                 effect, cooldown, delay, fireCount, objects, animatedObjects, forces, polygons,
                 movers, emitters] = trigger;
    Fold(fold, triangleA);
    Fold(fold, triangleB);
    fold.Add(type, targetId, cooldown, delay, fireCount, objects.size(), animatedObjects.size(),
             forces.size(), polygons.size(), movers.size(), emitters.size());
}

void Fold(StateFold& fold, const Mover& mover) {
    const auto& [id, start, end, direction, length, speed, distance, state] = mover;
    fold.Add(id, start, end, direction, length, speed, distance, state);
}

void Fold(StateFold& fold, const Force& force) {
    const auto& [enabled, id, position, direction, strength] = force;
    fold.Add(enabled, id, position, direction, strength);
}

void Fold(StateFold& fold, const LevelObject& object) {
    const auto& [enabled, id, layer, frames, frameCount, frame, frameTimer, position, offset,
                 mirrored, stopped, playLimit, plays] = object;
    fold.Add(enabled, id, layer, frameCount, frame, frameTimer, position, offset, mirrored, stopped,
             playLimit, plays);
}

void Fold(StateFold& fold, const SoundSource& source) {
    // Where the sample stands is the audio device's.
    const auto& [x, y, strength, sound, looping, stopped, id] = source;
    fold.Add(x, y, strength, looping, stopped, id);
}

template <class Records>
void FoldAll(StateFold& fold, const Records& records) {
    fold.Add(records.size());
    for (const auto& record : records) {
        Fold(fold, record);
    }
}

}  // namespace

void AddCamera(StateFold& fold) {
    Fold(fold, Camera::current);
}

void AddActors(StateFold& fold) {
    FoldAll(fold, TriggerManager::triggers);
    TriggerManager::Delayed().AddTo(fold, TriggerManager::triggers);
    FoldAll(fold, MoverManager::movers);
    FoldAll(fold, ForceManager::forces);
    FoldAll(fold, LevelObjectsManager::objects);
    FoldAll(fold, LevelObjectsManager::animatedObjects);
    fold.Add(LevelObjectsManager::animationSpeeds);
    for (const auto* const sources :
         {&SoundSourceManager::loopingSources, &SoundSourceManager::oneShotSources}) {
        fold.Add(sources->size());
        for (const auto& [id, list] : *sources) {
            FoldAll(fold, list);
        }
    }
}

}  // namespace ActorsFold
