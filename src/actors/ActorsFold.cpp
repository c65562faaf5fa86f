#include "actors/ActorsFold.h"

namespace ActorsFold {

namespace {

void Fold(StateFold& fold, const CameraState& camera) {
    const auto& [position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer, shaking,
                 shakeTimer, shakeTarget] = camera;
    fold.Add(position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer, shaking,
             shakeTimer, shakeTarget);
}

void Fold(StateFold& fold, const TriggerState& trigger) {
    const auto& [cooldown, fireCount] = trigger;
    fold.Add(cooldown, fireCount);
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

template <class Records>
void FoldAll(StateFold& fold, const Records& records) {
    fold.Add(records.size());
    for (const auto& record : records) {
        Fold(fold, record);
    }
}

}  // namespace

void AddCamera(StateFold& fold, const CameraState& camera) {
    Fold(fold, camera);
}

void AddActors(StateFold& fold, const ActorsState& actors) {
    const auto& [movers, forces, objects, animatedObjects, triggers, delayedEffects] = actors;
    FoldAll(fold, movers);
    FoldAll(fold, forces);
    FoldAll(fold, objects);
    FoldAll(fold, animatedObjects);
    FoldAll(fold, triggers);
    delayedEffects.AddTo(fold);
}

}  // namespace ActorsFold
