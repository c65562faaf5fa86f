// Finds what triggers open, and says what is open now.

#include "Switches.h"

#include <algorithm>
#include <map>

#include "actors/TriggerManager.h"
#include "level/LevelData.h"

namespace Switches {

std::vector<Switch> all;

namespace {

void AddPolygons(Switch& fresh) {
    for (const LevelPolygon& polygon : LevelData::polygons) {
        if (polygon.id == fresh.id && polygon.solid != 0) {
            fresh.polygons.push_back(&polygon);
        }
    }
}

}  // namespace

void Collect() {
    std::map<std::uint32_t, Switch> found;
    for (const Trigger& trigger : TriggerManager::triggers) {
        const bool moves = TriggerTypes::SetsGoing(trigger.Kind()) && trigger.movers.size() != 0;
        if (moves ||
            (trigger.Kind() == TriggerKind::EntityRemove && trigger.polygons.size() != 0)) {
            Switch& which = found[trigger.targetId];
            which.id = trigger.targetId;
            which.openers.push_back(&trigger);
            if (moves) {
                which.movers.assign(trigger.movers.begin(), trigger.movers.end());
            }
        }
    }
    all.clear();
    for (auto& [id, which] : found) {
        AddPolygons(which);
        if (!which.polygons.empty() && all.size() < most) {
            all.push_back(std::move(which));
        }
    }
}

bool IsOn(const Switch& which, const World& world) {
    const bool away =
        std::any_of(which.movers.begin(), which.movers.end(), [&](std::uint32_t place) {
            const Mover& mover = world.actors.movers[place];
            return mover.state == Mover::GoingToEnd || mover.state >= Mover::LoopingToStart ||
                   mover.distance > 0.5f * mover.length;
        });
    return away || std::any_of(which.polygons.begin(), which.polygons.end(),
                               [&](const LevelPolygon* polygon) {
                                   return world.level.polygons[polygon->number].enabled == 0;
                               });
}

std::uint64_t State(const World& world) {
    std::uint64_t state = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        state |= static_cast<std::uint64_t>(IsOn(all[i], world) ? 1 : 0) << i;
    }
    return state;
}

}  // namespace Switches
