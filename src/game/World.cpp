#include "game/World.h"

#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "game/LevelProgress.h"
#include "level/LevelData.h"
#include "platform/Assert.h"
#include "water/FxParticleManager.h"
#include "water/ParticleManager.h"

namespace {

// The simulation never sees a longer step: below 30 frames a second it slows down.
constexpr float longestSimulationStep = 0.033333335f;

void Simulate(const WorldParts& world, float dt, Vector2 viewSize, WorldListener* listener) {
    const float capped = dt > longestSimulationStep ? longestSimulationStep : dt;
    const View view = Camera::Look(world.camera, viewSize.x, viewSize.y);
    MoverManager::CollectVisible(world, view);
    MoverManager::Step(world, view, capped);
    FxParticleManager::Step(world.effects, world.random, world.water.gravity, view, capped);
    ParticleManager::Step(world, view, capped);
    TriggerManager::Step(world, view, capped);
    const TriggerEvents& events = world.actorsWork.events;
    LevelProgress::Take(world, events);
    LevelObjectsManager::Step(world.actors, capped);
    if (listener) {
        listener->OnSimulated(events);
    }
}

}  // namespace

WorldParts World::Parts(WorldWorkspace& work) {
    return {{{water, level, work.space, random, work.water}, effects, actors, camera, work.actors},
            progress};
}

bool IsPlaying(const WorldParts& world, const RunStep& step) {
    return (step.flags & (RunStep::Menu | RunStep::Paused)) == 0 &&
           world.camera.state != Camera::OpeningFlight && !world.progress.IsFinished();
}

void StepWorld(const WorldParts& world, const RunStep& step, Vector2 viewSize,
               WorldListener* listener) {
    VANTREL_ASSERT(step.dt > 0.0f);
    if (IsPlaying(world, step)) {
        Simulate(world, step.dt, viewSize, listener);
    }
    if (!world.progress.IsFinished()) {
        ImpactChances chances;
        chances.ice = ImpactChance::Draw(world.random);
        chances.water = ImpactChance::Draw(world.random);
        if (listener) {
            listener->OnSounds(chances, step.dt);
        }
    }
    if ((step.flags & RunStep::Menu) == 0) {
        const bool isSteered = (step.flags & RunStep::Unsteered) == 0;
        Camera::Step(world.camera, world.water, world.random,
                     isSteered ? std::optional(step.turn) : std::nullopt, step.dt);
    }
    if (IsPlaying(world, step)) {
        LevelProgress::Step(world, step.dt, listener);
    } else {
        world.progress.SkipTime();
    }
}

WorldParts WorldInPlay() {
    return {Actors::Parts(), LevelProgress::current};
}

World CopyWorldInPlay() {
    return {LevelData::current, ParticleManager::current, FxParticleManager::current,
            Actors::current,    Camera::current,          LevelProgress::current,
            Random::current};
}

void PutInPlay(const World& world) {
    VANTREL_ASSERT(world.level.polygons.size() == LevelData::polygons.size());
    LevelData::current = world.level;
    ParticleManager::current = world.water;
    FxParticleManager::current = world.effects;
    Actors::current = world.actors;
    Camera::current = world.camera;
    LevelProgress::current = world.progress;
    Random::current = world.random;
}
