// The list of triggers, the test of the water against them, and delayed effects. What the
// types do is in TriggerEffects.cpp.

#include "actors/TriggerManager.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "actors/SoundSourceManager.h"
#include "actors/TriggerEffects.h"
#include "engine/Console.h"
#include "engine/ConsoleCommands.h"
#include "level/LevelData.h"
#include "level/Limits.h"
#include "platform/Assert.h"

namespace TriggerManager {

std::deque<Trigger> triggers;
bool triggerDraw = false;

namespace {

IdIndex objectIndex;
IdIndex animatedObjectIndex;
IdIndex forceIndex;
IdIndex polygonIndex;
IdIndex moverIndex;
IdIndex emitterIndex;

bool hasComplained = false;  // of too many delayed effects

void Bind(Trigger& trigger) {
    if (trigger.targetId == 0) {
        return;
    }
    const std::uint32_t id = trigger.targetId;
    trigger.objects = objectIndex.Bind(Actors::current.objects, id);
    trigger.animatedObjects = animatedObjectIndex.Bind(Actors::current.animatedObjects, id);
    trigger.forces = forceIndex.Bind(Actors::current.forces, id);
    trigger.polygons = polygonIndex.Bind(LevelData::polygons, id);
    trigger.movers = moverIndex.Bind(Actors::current.movers, id);
    trigger.emitters = emitterIndex.Bind(FxParticleManager::emitters, id);
}

/// The triggers of one world in one step.
class TriggerStep {
public:
    TriggerStep(const ActorsParts& parts, const ViewSquare& seen, float seconds)
        : world(parts),
          work(parts.actorsWork),
          states(parts.actors.triggers),
          square(seen),
          dt(seconds),
          events(work.events) {}

    void Run() {
        HaveDelayedEffects();
        CollectCandidates();
        if (work.candidates.empty()) {
            return;
        }
        for (Particle& particle : world.water.particles) {
            Test({.particle = &particle});
        }
        for (ParticleGroup& group : world.water.groups) {
            Test({.group = &group});
        }
        DelayFired();
    }

private:
    void HaveDelayedEffects() {
        world.actors.delayedEffects.Age(dt, work.due);
        for (const DelayedEffects::Due& due : work.due) {
            const Trigger& trigger = triggers[due.firing.trigger];
            for (std::uint32_t i = 0; i < due.firing.times; ++i) {
                trigger.effect({trigger, {}, due.dt, world, events});
            }
        }
    }

    void CollectCandidates() {
        work.candidates.clear();
        work.candidateBoxes.Clear();
        for (const Trigger& trigger : triggers) {
            TriggerState& state = states[trigger.number];
            if (trigger.IsSpent(state.fireCount) ||
                !square.Overlaps(trigger.minX, trigger.maxX, trigger.minY, trigger.maxY)) {
                continue;
            }
            if (state.cooldown > 0.0f) {
                state.cooldown -= dt;
                continue;
            }
            const float reach = trigger.boxReach;
            work.candidates.push_back({&trigger});
            work.candidateBoxes.Add({trigger.minX - reach, trigger.maxX + reach,
                                     trigger.minY - reach, trigger.maxY + reach});
        }
        if (world.water.IsWorthIndexing()) {
            work.candidateBoxes.Build();
        }
    }

    void Test(WaterHit water) {
        const Vector2 position = water.Position();
        work.candidateBoxes.ForEachAt(position, [&](std::uint32_t number) {
            TriggerCandidate& candidate = work.candidates[number];
            const Trigger& trigger = *candidate.trigger;
            if (!trigger.IsSpent(states[trigger.number].fireCount) && trigger.Contains(position)) {
                Fire(candidate, water);
            }
        });
    }

    void Fire(TriggerCandidate& candidate, WaterHit water) {
        const Trigger& trigger = *candidate.trigger;
        TriggerState& state = states[trigger.number];
        ++state.fireCount;
        state.cooldown = trigger.typeInfo->repeatDelay;
        if (!(trigger.delay > 0.0f)) {
            trigger.effect({trigger, water, dt, world, events});
            return;
        }
        candidate.last = delayedFirings++;
        if (candidate.firings++ == 0) {
            candidate.first = candidate.last;
        }
    }

    /// Hands the step's delayed firings over, in their order.
    void DelayFired() {
        if (delayedFirings == 0) {
            return;
        }
        work.fired.clear();
        for (const TriggerCandidate& candidate : work.candidates) {
            const std::uint32_t number = candidate.trigger->number;
            if (candidate.firings > 0) {
                work.fired.push_back({number, candidate.first, 1});
            }
            if (candidate.firings > 1) {
                work.fired.push_back({number, candidate.last, candidate.firings - 1});
            }
        }
        std::ranges::sort(work.fired, {}, &DelayedEffects::Firing::order);
        for (const DelayedEffects::Firing& firing : work.fired) {
            world.actors.delayedEffects.Add(firing, triggers[firing.trigger].delay, dt);
        }
    }

    const ActorsParts& world;
    ActorsWorkspace& work;
    std::vector<TriggerState>& states;
    const ViewSquare square;
    const float dt;
    TriggerEvents& events;
    std::uint32_t delayedFirings = 0;  ///< so far
};

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
    Actors::current.triggers.clear();
    Actors::current.delayedEffects = {};
    hasComplained = false;
    Actors::Parts().actorsWork.events.Clear();
    objectIndex.Clear();
    animatedObjectIndex.Clear();
    forceIndex.Clear();
    polygonIndex.Clear();
    moverIndex.Clear();
    emitterIndex.Clear();
}

void Add(int type, std::uint32_t targetId, float delay, Vector2 corner0, Vector2 corner1,
         Vector2 corner2, Vector2 corner3) {
    Actors::current.triggers.emplace_back();
    Trigger& trigger = triggers.emplace_back();
    trigger.number = static_cast<std::uint32_t>(triggers.size() - 1);
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
    Actors::current.delayedEffects.Clear();
    hasComplained = false;
    std::ranges::fill(Actors::current.triggers, TriggerState{});
}

TriggerState& StateOf(const Trigger& trigger) {
    return Actors::current.triggers[trigger.number];
}

void Step(const ActorsParts& parts, const View& view, float dt) {
    VANTREL_ASSERT(dt >= 0.0f);
    parts.actorsWork.events.Clear();
    TriggerStep(parts, view.Triggering(), dt).Run();
}

const TriggerEvents& Step(const View& view, float dt) {
    const ActorsParts parts = Actors::Parts();
    Step(parts, view, dt);
    const TriggerEvents& events = parts.actorsWork.events;
    SoundSourceManager::Follow(events.sounds);
    TellOfDropped();
    return events;
}

void TellOfDropped() {
    if (!Actors::current.delayedEffects.HasDropped() || hasComplained) {
        return;
    }
    Console::Print("\nToo many delayed effects of triggers wait, more are dropped. The most is ");
    Console::PrintUnsigned(static_cast<std::uint32_t>(Limits::waitingEffects));
    Console::Print(".");
    hasComplained = true;
}

}  // namespace TriggerManager
