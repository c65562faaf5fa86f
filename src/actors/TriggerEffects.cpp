// What each trigger type does.

#include "actors/TriggerEffects.h"

#include <algorithm>
#include <cmath>

#include "level/LevelData.h"
#include "water/ParticleManager.h"

namespace TriggerEffects {

namespace {

void DoNothing(const TriggerFiring& /*firing*/) {}

// Objects

template <class Change>
void ForEachObject(const TriggerFiring& firing, Change change) {
    for (const std::uint32_t place : firing.trigger.objects) {
        change(firing.world.actors.objects[place]);
    }
    for (const std::uint32_t place : firing.trigger.animatedObjects) {
        change(firing.world.actors.animatedObjects[place]);
    }
}

void PlayLooped(const TriggerFiring& firing) {
    ForEachObject(firing, [](LevelObject& target) {
        target.playLimit = 0;
        target.stopped = 0;
    });
}

void PlayOnce(const TriggerFiring& firing) {
    ForEachObject(firing, [](LevelObject& target) {
        target.Rewind();
        target.playLimit = 1;
        target.stopped = 0;
    });
}

void StopAnimation(const TriggerFiring& firing) {
    ForEachObject(firing, [](LevelObject& target) { target.stopped = 1; });
}

// Sound sources are looked up by the target id when they play.

template <bool plays>
void CueSound(const TriggerFiring& firing) {
    firing.events.sounds.push_back({firing.trigger.targetId, plays});
}

// Temperature

void CoolToIce(const TriggerFiring& firing) {
    TemperatureTriggerToIce(firing.water, firing.dt);
}

void BringToWater(const TriggerFiring& firing) {
    TemperatureTriggerToWater(firing.water, firing.dt);
}

void HeatToSteam(const TriggerFiring& firing) {
    TemperatureTriggerToSteam(firing.water, firing.dt);
}

// Forces

/// Forces give no speed beyond this, units per second: its square is still a float.
constexpr float mostSpeed = 1.0e18f;

/// Sets the velocity to what each enabled force in turn makes of it.
template <class Apply>
void ApplyForces(const TriggerFiring& firing, Apply apply) {
    if (!firing.water) {
        return;
    }
    for (const std::uint32_t place : firing.trigger.forces) {
        const Force& force = firing.world.actors.forces[place];
        if (force.enabled) {
            Vector2& current = firing.water.Velocity();
            const Vector2 velocity = apply(force, current);
            if (std::fabs(velocity.x) <= mostSpeed && std::fabs(velocity.y) <= mostSpeed) {
                current = velocity;
            }
        }
    }
}

void ForceDirectional(const TriggerFiring& firing) {
    ApplyForces(firing, [&](const Force& force, Vector2 velocity) {
        return velocity + force.direction * force.strength * firing.dt;
    });
}

void ForceInstantaneous(const TriggerFiring& firing) {
    ApplyForces(firing, [](const Force& force, Vector2 /*velocity*/) {
        return force.direction * force.strength;
    });
}

/// What a force that acts from its place adds to a velocity, away from it. Falls off with the
/// square root of the distance.
Vector2 RadialGain(const Force& force, const TriggerFiring& firing) {
    Vector2 d = firing.water.Position() - force.position;
    const float r = Length(d);
    if (r > 0.0001f) {
        d /= r;
    }
    const float m = std::sqrt(1.0f / (r + 1.0f)) * firing.dt * force.strength;
    return d * m;
}

void ForcePull(const TriggerFiring& firing) {
    ApplyForces(firing, [&](const Force& force, Vector2 velocity) {
        return velocity - RadialGain(force, firing);
    });
}

void ForcePush(const TriggerFiring& firing) {
    ApplyForces(firing, [&](const Force& force, Vector2 velocity) {
        return velocity + RadialGain(force, firing);
    });
}

// Things that come and go

template <bool enabled>
void SetEnabled(const TriggerFiring& firing) {
    constexpr std::uint8_t flag = enabled ? 1 : 0;
    ForEachObject(firing, [](LevelObject& object) { object.enabled = flag; });
    for (const std::uint32_t place : firing.trigger.forces) {
        firing.world.actors.forces[place].enabled = flag;
    }
    LevelState& level = firing.world.level;
    for (const std::uint32_t place : firing.trigger.polygons) {
        LevelData::SetPolygonSolid(level, LevelData::polygons[place], enabled);
        level.polygons[place].enabled = flag;
    }
}

// Movers and emitters

template <Mover::State state>
void SetMoverState(const TriggerFiring& firing) {
    for (const std::uint32_t place : firing.trigger.movers) {
        firing.world.actors.movers[place].state = state;
    }
}

void BurstEmitter(const TriggerFiring& firing) {
    EffectsState& effects = firing.world.effects;
    for (const std::uint32_t place : firing.trigger.emitters) {
        effects.emitters[place].Burst(effects, firing.world.random);
    }
}

template <bool running>
void SetEmitterRunning(const TriggerFiring& firing) {
    for (const std::uint32_t place : firing.trigger.emitters) {
        firing.world.effects.emitters[place].running = running ? 1 : 0;
    }
}

// Camera, water and the course of the level

void ZoomCamera(const TriggerFiring& firing) {
    Camera::Zoom(firing.world.camera);
}

void ShakeCamera(const TriggerFiring& firing) {
    Camera::Shake(firing.world.camera, firing.world.random);
}

void Kill(const TriggerFiring& firing) {
    if (firing.water.particle) {
        firing.world.water.Kill(*firing.water.particle);
    } else if (firing.water.group) {
        firing.world.water.Kill(*firing.water.group);
    }
}

void KillAtRandom(const TriggerFiring& firing) {
    constexpr float killsPerSecond = 0.5f;
    if (firing.world.random.Unit() <= killsPerSecond * firing.dt) {
        Kill(firing);
    }
}

void EndLevel(const TriggerFiring& firing) {
    const ParticleGroup* const group = firing.water.group;
    firing.events.waterInFinish += static_cast<std::uint32_t>(group ? group->particles.size() : 1);
}

void ReachCheckPoint(const TriggerFiring& firing) {
    firing.events.checkPoints.push_back(&firing.trigger);
}

struct Row {
    TriggerKind kind;
    TriggerEffect effect;
};

constexpr Row table[] = {
    {TriggerKind::Null, DoNothing},
    {TriggerKind::ToIce, CoolToIce},
    {TriggerKind::ToWater, BringToWater},
    {TriggerKind::ToSteam, HeatToSteam},
    {TriggerKind::AnimPlayLoop, PlayLooped},
    {TriggerKind::AnimPlayOnce, PlayOnce},
    {TriggerKind::AnimStop, StopAnimation},
    {TriggerKind::SoundPlay, CueSound<true>},
    {TriggerKind::SoundStop, CueSound<false>},
    {TriggerKind::ForceDirectional, ForceDirectional},
    {TriggerKind::ForceInstantaneous, ForceInstantaneous},
    {TriggerKind::ForcePull, ForcePull},
    {TriggerKind::ForcePush, ForcePush},
    {TriggerKind::EntityRemove, SetEnabled<false>},
    {TriggerKind::EntityAdd, SetEnabled<true>},
    {TriggerKind::MoverGoToStartOnce, SetMoverState<Mover::GoingToStart>},
    {TriggerKind::MoverGoToEndOnce, SetMoverState<Mover::GoingToEnd>},
    {TriggerKind::MoverStopOnce, SetMoverState<Mover::Stopped>},
    {TriggerKind::MoverGoToStart, SetMoverState<Mover::GoingToStart>},
    {TriggerKind::MoverGoToEnd, SetMoverState<Mover::GoingToEnd>},
    {TriggerKind::MoverStop, SetMoverState<Mover::Stopped>},
    {TriggerKind::MoverLoopToStartOnce, SetMoverState<Mover::LoopingToStart>},
    {TriggerKind::MoverLoopToEndOnce, SetMoverState<Mover::LoopingToEnd>},
    {TriggerKind::MoverLoopToStart, SetMoverState<Mover::LoopingToStart>},
    {TriggerKind::MoverLoopToEnd, SetMoverState<Mover::LoopingToEnd>},
    {TriggerKind::EmitterBurst, BurstEmitter},
    {TriggerKind::EmitterStart, SetEmitterRunning<true>},
    {TriggerKind::EmitterStop, SetEmitterRunning<false>},
    {TriggerKind::CameraZoomOnce, ZoomCamera},
    {TriggerKind::CameraZoom, ZoomCamera},
    {TriggerKind::CameraShakeOnce, ShakeCamera},
    {TriggerKind::CameraShake, ShakeCamera},
    {TriggerKind::Kill, Kill},
    {TriggerKind::KillAtRandom, KillAtRandom},
    {TriggerKind::LevelEnd, EndLevel},
    {TriggerKind::CheckPoint, ReachCheckPoint},
};
static_assert(std::ranges::equal(table, TriggerTypes::all, {}, &Row::kind, &TriggerType::kind),
              "each type has its effect, in the same order");

}  // namespace

TriggerEffect Of(TriggerKind kind) {
    const Row* const row = std::ranges::lower_bound(table, kind, {}, &Row::kind);
    return row != std::end(table) && row->kind == kind ? row->effect : DoNothing;
}

}  // namespace TriggerEffects
