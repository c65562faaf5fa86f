// The list of triggers, the test of the water against them, and delayed effects. What the
// types do is in TriggerEffects.cpp.

#include "actors/TriggerManager.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerEffects.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/LevelData.h"
#include "platform/Assert.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace TriggerManager {

std::deque<Trigger> triggers;
bool triggerDraw = false;

namespace {

IdIndex<LevelObject> objectIndex;
IdIndex<LevelObject> animatedObjectIndex;
IdIndex<Force> forceIndex;
IdIndex<LevelPolygon> polygonIndex;
IdIndex<Mover> moverIndex;
IdIndex<Emitter> emitterIndex;

DelayedEffects delayedEffects;
std::vector<DelayedEffects::Firing> fired;  // those of this step
std::uint32_t delayedFirings = 0;           // in this step so far
TriggerEvents events;                       // of the last step

/// A trigger that is tested in this step, with the box outside of which it contains nothing.
struct Candidate {
    float minX, maxX, minY, maxY;
    Trigger* trigger;
    // Its delayed firings in this step: how many, and when the first and the last came.
    std::uint32_t firings = 0;
    std::uint32_t first = 0;
    std::uint32_t last = 0;
};
std::vector<Candidate> candidates;  // keeps its storage from step to step

void Bind(Trigger& trigger) {
    if (trigger.targetId == 0) {
        return;
    }
    const std::uint32_t id = trigger.targetId;
    trigger.objects = objectIndex.Bind(LevelObjectsManager::objects, id);
    trigger.animatedObjects = animatedObjectIndex.Bind(LevelObjectsManager::animatedObjects, id);
    trigger.forces = forceIndex.Bind(ForceManager::forces, id);
    trigger.polygons = polygonIndex.Bind(LevelData::polygons, id);
    trigger.movers = moverIndex.Bind(MoverManager::movers, id);
    trigger.emitters = emitterIndex.Bind(FxParticleManager::emitters, id);
}

void CollectCandidates(const ViewSquare& square, float dt) {
    candidates.clear();
    for (Trigger& trigger : triggers) {
        if (trigger.IsSpent() ||
            !square.Overlaps(trigger.minX, trigger.maxX, trigger.minY, trigger.maxY)) {
            continue;
        }
        if (trigger.cooldown > 0.0f) {
            trigger.cooldown -= dt;
            continue;
        }
        const float reach = trigger.boxReach;
        candidates.push_back({trigger.minX - reach, trigger.maxX + reach, trigger.minY - reach,
                              trigger.maxY + reach, &trigger});
    }
}

void Fire(Candidate& candidate, WaterHit water, float dt) {
    Trigger& trigger = *candidate.trigger;
    ++trigger.fireCount;
    trigger.cooldown = trigger.typeInfo->repeatDelay;
    if (!(trigger.delay > 0.0f)) {
        trigger.effect({trigger, water, dt, events});
        return;
    }
    candidate.last = delayedFirings++;
    if (candidate.firings++ == 0) {
        candidate.first = candidate.last;
    }
}

/// Hands the step's delayed firings over, in their order.
void DelayFired(float dt) {
    if (delayedFirings == 0) {
        return;
    }
    fired.clear();
    for (const Candidate& candidate : candidates) {
        if (candidate.firings > 0) {
            fired.push_back({candidate.trigger, candidate.first, 1});
        }
        if (candidate.firings > 1) {
            fired.push_back({candidate.trigger, candidate.last, candidate.firings - 1});
        }
    }
    std::ranges::sort(fired, {}, &DelayedEffects::Firing::order);
    delayedEffects.Add(fired, dt);
    delayedFirings = 0;
}

void Test(WaterHit water, float dt) {
    const Vector2 position = water.Position();
    for (Candidate& candidate : candidates) {
        if (position.x < candidate.minX || position.x > candidate.maxX ||
            position.y < candidate.minY || position.y > candidate.maxY) {
            continue;
        }
        const Trigger& trigger = *candidate.trigger;
        if (!trigger.IsSpent() && trigger.Contains(position)) {
            Fire(candidate, water, dt);
        }
    }
}

void PrintTypes() {
    Console::PrintBanner("Trigger types");
    for (const TriggerType& type : TriggerTypes::all) {
        Console::Print("\nTrigger id: ");
        Console::PrintInt(type.Number());
        Console::Print("\t\tTrigger name:   ");
        Console::Print(type.name);
    }
}

void Create(int type, std::uint32_t targetId, float x, float y, float w, float h) {
    const Vector2 at{x, y};
    const Vector2 width{w, 0.0f};
    const Vector2 height{0.0f, h};
    Add(type, targetId, 0.0f, at, at + width, at + width + height, at + height);
}

const Console::CommandTable commands{
    {"TriggerTypeList", PrintTypes, "Lists the types that there are."},
    {"TriggerCreate", Console::Words<Create>,
     "Adds a rectangular trigger with its top left at (x, y).",
     "< id : integer > < target id : integer > < x : number > < y : number > < w : number > "
     "< h : number > "},
    {"TriggerDraw", Console::Variable<triggerDraw>,
     "Shows the triggers: white ones can be fired by water, red ones are too far from the camera."},
    {"TriggerCount", Console::Count<triggers>, "How many triggers there are."},
};

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising down trigger manager..");
    triggerDraw = false;
    commands.Add();
}

void Shutdown() {
    Console::Print("\nShutting down trigger manager..");
    commands.Remove();
    triggers.clear();
    delayedEffects.Clear();
    candidates.clear();
    events.Clear();
    objectIndex.Clear();
    animatedObjectIndex.Clear();
    forceIndex.Clear();
    polygonIndex.Clear();
    moverIndex.Clear();
    emitterIndex.Clear();
}

void Add(int type, std::uint32_t targetId, float delay, Vector2 corner0, Vector2 corner1,
         Vector2 corner2, Vector2 corner3) {
    Trigger& trigger = triggers.emplace_back();
    trigger.SetCorners(corner0, corner1, corner2, corner3);
    trigger.targetId = targetId;
    trigger.type = type;
    const TriggerType* const known = TriggerTypes::Find(type);
    trigger.typeInfo = known != nullptr ? known : TriggerTypes::Find("Null_a");
    trigger.effect = TriggerEffects::Of(trigger.Kind());
    trigger.delay = trigger.typeInfo->needsWater || !std::isfinite(delay) ? 0.0f : delay;
    Bind(trigger);
}

void Reset() {
    delayedEffects.Clear();
    for (Trigger& trigger : triggers) {
        trigger.cooldown = 0.0f;
        trigger.fireCount = 0;
    }
}

const TriggerEvents& Step(const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    events.Clear();
    delayedEffects.Run(dt, events);
    CollectCandidates(view.Triggering(), dt);
    if (candidates.empty()) {
        return events;
    }
    for (Particle& particle : ParticleManager::particles) {
        Test({.particle = &particle}, dt);
    }
    for (ParticleGroup& group : GroupedParticleMover::groups) {
        Test({.group = &group}, dt);
    }
    DelayFired(dt);
    return events;
}

const DelayedEffects& Delayed() {
    return delayedEffects;
}

}  // namespace TriggerManager
