// The table of trigger types and their effects.

#include "actors/TriggerTypes.h"

#include <algorithm>
#include <cmath>

#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/Mover.h"
#include "actors/SoundSourceManager.h"
#include "engine/Random.h"
#include "game/LevelProgress.h"
#include "level/LevelData.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace TriggerTypes {

namespace {

constexpr unsigned particleKind = 0;
constexpr unsigned groupKind = 1;

/// What of the water fired a trigger; both are null if the effect was delayed.
struct Water {
    Water(void* object, unsigned kind)
        : particle(kind == particleKind ? static_cast<Particle*>(object) : nullptr),
          group(kind == groupKind ? static_cast<ParticleGroup*>(object) : nullptr) {}

    Vector2 Position() const { return particle ? particle->position : group->position; }
    Vector2& Velocity() const { return particle ? particle->velocity : group->velocity; }
    explicit operator bool() const { return particle || group; }

    Particle* particle;
    ParticleGroup* group;
};

void DoNothing(Trigger& /*trigger*/, void* /*object*/, unsigned /*kind*/, float /*dt*/) {}

// Objects

template <class Change>
void ForEachObject(Trigger& trigger, Change change) {
    for (LevelObject* const object : trigger.objects) {
        change(*object);
    }
    for (LevelObject* const object : trigger.animatedObjects) {
        change(*object);
    }
}

void PlayLooped(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    ForEachObject(trigger, [](LevelObject& target) {
        target.playLimit = 0;
        target.stopped = 0;
    });
}

void PlayOnce(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    ForEachObject(trigger, [](LevelObject& target) {
        target.Rewind();
        target.playLimit = 1;
        target.stopped = 0;
    });
}

void StopAnimation(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    ForEachObject(trigger, [](LevelObject& target) { target.stopped = 1; });
}

// Sound sources are looked up by the target id at the time of firing.

void PlaySound(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    SoundSourceManager::Play(trigger.targetId);
}

void StopSound(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    SoundSourceManager::Stop(trigger.targetId);
}

// Forces

/// Forces give no speed beyond this, units per second: its square is still a float.
constexpr float mostSpeed = 1.0e18f;

/// Sets the velocity to what each enabled force in turn makes of it.
template <class Apply>
void ApplyForces(const Trigger& trigger, const Water& water, Apply apply) {
    if (!water) {
        return;
    }
    for (const Force* const force : trigger.forces) {
        if (force->enabled) {
            const Vector2 velocity = apply(*force, water.Velocity());
            if (std::fabs(velocity.x) <= mostSpeed && std::fabs(velocity.y) <= mostSpeed) {
                water.Velocity() = velocity;
            }
        }
    }
}

void ForceDirectional(Trigger& trigger, void* object, unsigned kind, float dt) {
    ApplyForces(trigger, Water(object, kind), [dt](const Force& force, Vector2 velocity) {
        return velocity + force.direction * force.strength * dt;
    });
}

void ForceInstantaneous(Trigger& trigger, void* object, unsigned kind, float /*dt*/) {
    ApplyForces(trigger, Water(object, kind), [](const Force& force, Vector2 /*velocity*/) {
        return force.direction * force.strength;
    });
}

/// What a force that acts from its place adds to a velocity, away from it. Falls off with the
/// square root of the distance.
Vector2 RadialGain(const Force& force, Vector2 position, float dt) {
    Vector2 d = position - force.position;
    const float r = Length(d);
    if (r > 0.0001f) {
        d /= r;
    }
    const float m = std::sqrt(1.0f / (r + 1.0f)) * dt * force.strength;
    return d * m;
}

void ForcePull(Trigger& trigger, void* object, unsigned kind, float dt) {
    const Water water(object, kind);
    ApplyForces(trigger, water, [&](const Force& force, Vector2 velocity) {
        return velocity - RadialGain(force, water.Position(), dt);
    });
}

void ForcePush(Trigger& trigger, void* object, unsigned kind, float dt) {
    const Water water(object, kind);
    ApplyForces(trigger, water, [&](const Force& force, Vector2 velocity) {
        return velocity + RadialGain(force, water.Position(), dt);
    });
}

// Things that come and go

void SetEnabled(Trigger& trigger, bool enabled) {
    const auto flag = static_cast<std::uint8_t>(enabled ? 1 : 0);
    ForEachObject(trigger, [flag](LevelObject& object) { object.enabled = flag; });
    for (Force* const force : trigger.forces) {
        force->enabled = flag;
    }
    for (LevelPolygon* const polygon : trigger.polygons) {
        LevelData::SetPolygonSolid(*polygon, enabled);
        polygon->enabled = flag;
    }
}

void RemoveEntity(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    SetEnabled(trigger, false);
}

void AddEntity(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    SetEnabled(trigger, true);
}

// Movers and emitters

template <Mover::State state>
void SetMoverState(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    for (Mover* const mover : trigger.movers) {
        mover->state = state;
    }
}

void BurstEmitter(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    for (Emitter* const emitter : trigger.emitters) {
        emitter->Burst();
    }
}

template <bool running>
void SetEmitterRunning(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    for (Emitter* const emitter : trigger.emitters) {
        emitter->running = running ? 1 : 0;
    }
}

// Camera, water and the course of the level

void ZoomCamera(Trigger& /*trigger*/, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    Camera::Zoom();
}

void ShakeCamera(Trigger& /*trigger*/, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    Camera::Shake();
}

void Kill(Trigger& /*trigger*/, void* object, unsigned kind, float /*dt*/) {
    const Water water(object, kind);
    if (water.particle) {
        ParticleManager::KillParticle(*water.particle);
    } else if (water.group) {
        GroupedParticleMover::KillGroup(*water.group);
    }
}

void KillAtRandom(Trigger& trigger, void* object, unsigned kind, float dt) {
    constexpr float killsPerSecond = 0.5f;
    if (Random::Unit() <= killsPerSecond * dt) {
        Kill(trigger, object, kind, dt);
    }
}

void EndLevel(Trigger& /*trigger*/, void* object, unsigned kind, float /*dt*/) {
    const Water water(object, kind);
    const std::size_t count = water.group ? water.group->particles.size() : 1;
    LevelProgress::AddWaterAtFinish(static_cast<std::uint32_t>(count));
}

void ReachCheckPoint(Trigger& trigger, void* /*object*/, unsigned /*kind*/, float /*dt*/) {
    const Vector2 centre = trigger.Centre();
    LevelProgress::SetRespawn(centre.x, centre.y);
    CheckPointTimesManager::Reached(trigger, LevelProgress::ElapsedMs());
}

/// Fires once until the next reset ("_1"); without it, for all water in every step ("_a").
constexpr std::uint32_t once = 1;
/// Acts on the water that fired it.
constexpr bool onWater = true;

constexpr TriggerType table[] = {
    {-1, "Null_a", DoNothing},
    {0, "To_ice_a", TemperatureTriggerToIce, 0, onWater},
    {1, "To_water_a", TemperatureTriggerToWater, 0, onWater},
    {2, "To_steam_a", TemperatureTriggerToSteam, 0, onWater},
    {3, "Anim_play_loop_1", PlayLooped, once},
    {4, "Anim_play_once_1", PlayOnce, once},
    {5, "Anim_stop_1", StopAnimation, once},
    {100, "Sound_play_1", PlaySound, once},
    {101, "Sound_stop_1", StopSound, once},
    {200, "Force_directional_a", ForceDirectional, 0, onWater},
    {201, "Force_instantenous_a", ForceInstantaneous, 0, onWater},
    {202, "Force_multi_dir_pull_a", ForcePull, 0, onWater},
    {203, "Force_multi_dir_push_a", ForcePush, 0, onWater},
    {300, "Entity_remove_1", RemoveEntity, once},
    {301, "Entity_add_1", AddEntity, once},
    {401, "Mover_goto_start_1", SetMoverState<Mover::GoingToStart>, once},
    {402, "Mover_goto_end_1", SetMoverState<Mover::GoingToEnd>, once},
    {403, "Mover_stop_1", SetMoverState<Mover::Stopped>, once},
    {404, "Mover_goto_start_a", SetMoverState<Mover::GoingToStart>},
    {405, "Mover_goto_end_a", SetMoverState<Mover::GoingToEnd>},
    {406, "Mover_stop_a", SetMoverState<Mover::Stopped>},
    {407, "Mover_goto_start_loop_1", SetMoverState<Mover::LoopingToStart>, once},
    {408, "Mover_goto_end_loop_1", SetMoverState<Mover::LoopingToEnd>, once},
    {409, "Mover_goto_start_loop_a", SetMoverState<Mover::LoopingToStart>},
    {410, "Mover_goto_end_loop_a", SetMoverState<Mover::LoopingToEnd>},
    {501, "Emitter_create_burst_1", BurstEmitter, once},
    {502, "Emitter_start_1", SetEmitterRunning<true>, once},
    {503, "Emitter_stop_1", SetEmitterRunning<false>, once},
    {601, "Camera_zoom_1", ZoomCamera, once},
    {602, "Camera_zoom_a", ZoomCamera},
    {603, "Camera_shake_1", ShakeCamera, once},
    {604, "Camera_shake_a", ShakeCamera},
    {701, "Particle_kill_a", Kill, 0, onWater},
    {702, "Particle_kill_random_a", KillAtRandom, 0, onWater},
    {801, "Level_end_a", EndLevel},
    {901, "Checkpoint_1", ReachCheckPoint, once},
};
static_assert(std::ranges::is_sorted(table, {}, &TriggerType::number));

}  // namespace

std::span<const TriggerType> All() {
    return table;
}

const TriggerType& Find(int number) {
    const auto* const row = std::ranges::lower_bound(table, number, {}, &TriggerType::number);
    return row != std::end(table) && row->number == number ? *row : table[0];
}

}  // namespace TriggerTypes
