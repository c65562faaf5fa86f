// Reads what a world looks like; see Outcome.h.

#include "Outcome.h"

#include <algorithm>

#include "Machines.h"
#include "SituationHash.h"
#include "Switches.h"
#include "actors/TriggerManager.h"

namespace {

void ReadWater(const WaterState& water, Outcome& outcome) {
    outcome.drops.reserve(CountAlive(water));
    ForDrops(water, [&](const Drop& drop) {
        outcome.drops.push_back(drop);
        outcome.centre += drop.place;
        outcome.steam += drop.matter == Matter::Steam ? 1 : 0;
        outcome.ice += drop.matter == Matter::Ice ? 1 : 0;
    });
    if (!outcome.drops.empty()) {
        outcome.centre /= static_cast<float>(outcome.drops.size());
    }
}

void ReadFiredOnce(const ActorsState& actors, Outcome& outcome) {
    for (const Trigger& trigger : TriggerManager::triggers) {
        // Sounds, pictures and the like change nothing for the water.
        const TriggerKind kind = trigger.Kind();
        const bool matters = kind == TriggerKind::CheckPoint || TriggerTypes::Toggles(kind) ||
                             TriggerTypes::SteersMovers(kind);
        if (matters && trigger.typeInfo->fireLimit != 0) {
            const std::uint32_t fireCount = actors.triggers[trigger.number].fireCount;
            SituationHash::Mix(outcome.fired, fireCount);
            if (fireCount != 0) {
                outcome.firedTriggers.push_back(trigger.number);
            }
        }
    }
}

/// In which fifth of its path a mover is, and which way it goes; only for the one nearest to
/// the water among those that go to and fro, since all together would make every moment new.
std::uint64_t MoverPlaces(const std::vector<Mover>& movers, Vector2 centre) {
    constexpr float reach = 300.0f;
    std::uint64_t hash = 0;
    const Mover* nearest = nullptr;
    float nearestDistance = reach;
    for (const Mover& mover : movers) {
        if (mover.state >= Mover::LoopingToStart) {
            const float distance = Distance(mover.start + mover.Offset(), centre);
            if (distance < nearestDistance) {
                nearest = &mover;
                nearestDistance = distance;
            }
        } else {
            const float share = mover.length > 0.0f ? mover.distance / mover.length : 0.0f;
            SituationHash::Mix(hash, static_cast<std::uint64_t>(share * 2.99f));
        }
    }
    if (nearest != nullptr) {
        const float share = nearest->distance / std::max(nearest->length, 1.0f);
        SituationHash::Mix(hash, nearest->id * 16 + static_cast<std::uint64_t>(share * 4.99f) * 2 +
                                     (nearest->state == Mover::LoopingToEnd ? 1 : 0));
    }
    return hash;
}

}  // namespace

std::uint32_t CountAlive(const WaterState& water) {
    std::size_t alive = 0;
    for (const Particle& particle : water.particles) {
        alive += particle.dying == 0 ? 1 : 0;
    }
    for (const ParticleGroup& group : water.groups) {
        alive += group.dying == 0 ? group.particles.size() : 0;
    }
    return static_cast<std::uint32_t>(alive);
}

void ReadWorld(const World& world, Outcome& outcome) {
    ReadWater(world.water, outcome);
    outcome.finished = world.progress.IsFinished();
    outcome.elapsedMs = world.progress.stopwatch.elapsedMs;
    outcome.angle = world.camera.angle;
    outcome.switches = Switches::State(world);
    ReadFiredOnce(world.actors, outcome);
    outcome.movers = MoverPlaces(world.actors.movers, outcome.centre);
    outcome.machines = Machines::State(world.actors, outcome.centre);
}
