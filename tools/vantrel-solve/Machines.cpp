// Reads movers and triggers; see Machines.h.

#include "Machines.h"

#include <algorithm>

#include "SituationHash.h"
#include "actors/TriggerManager.h"

namespace Machines {

namespace {

/// World units from a mover's path within which it counts as near.
constexpr float reach = 400.0f;

bool IsNear(const Mover& mover, Vector2 place) {
    const float along = std::clamp(Dot(place - mover.start, mover.direction), 0.0f, mover.length);
    return Distance(mover.start + mover.direction * along, place) < reach;
}

/// Whether the mover does, or has done, what a trigger of the kind tells it.
bool Obeys(const Mover& mover, TriggerKind kind) {
    constexpr float there = 0.5f;
    switch (kind) {
        case TriggerKind::MoverGoToStartOnce:
            return mover.state == Mover::GoingToStart || mover.distance < there;
        case TriggerKind::MoverGoToEndOnce:
            return mover.state == Mover::GoingToEnd || mover.distance > mover.length - there;
        case TriggerKind::MoverStopOnce:
            return mover.state == Mover::Stopped;
        default:
            return mover.state >= Mover::LoopingToStart;
    }
}

/// Whether the trigger can't fire again and what it did doesn't hold any more. What it has taken
/// out or put back counts as well, since that holds.
bool IsUsedUp(const Trigger& trigger, const ActorsState& actors) {
    if (actors.triggers[trigger.number].fireCount == 0 || trigger.typeInfo->fireLimit == 0) {
        return false;
    }
    if (TriggerTypes::Toggles(trigger.Kind())) {
        return trigger.polygons.size() != 0 || trigger.forces.size() != 0;
    }
    return TriggerTypes::SteersMovers(trigger.Kind()) &&
           !std::all_of(trigger.movers.begin(), trigger.movers.end(), [&](std::uint32_t place) {
               return Obeys(actors.movers[place], trigger.Kind());
           });
}

}  // namespace

std::uint64_t State(const ActorsState& actors, Vector2 place) {
    std::uint64_t hash = 0;
    for (const Mover& mover : actors.movers) {
        if (!IsNear(mover, place)) {
            continue;
        }
        const bool loops = mover.state >= Mover::LoopingToStart;
        const float share = loops || mover.length <= 0.0f ? 0.0f : mover.distance / mover.length;
        SituationHash::Mix(hash, mover.id);
        SituationHash::Mix(hash, static_cast<std::uint64_t>(share * 2.99f) * 4 +
                                     static_cast<std::uint64_t>(loops ? 3 : mover.state));
    }
    std::uint64_t index = 0;
    for (const Trigger& trigger : TriggerManager::triggers) {
        if (IsUsedUp(trigger, actors)) {
            SituationHash::Mix(hash, index);
        }
        ++index;
    }
    return hash;
}

}  // namespace Machines
