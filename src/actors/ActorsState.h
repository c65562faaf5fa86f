#pragma once
// What changes about a level's actors while it is played. What is fixed once they are added (the
// areas of triggers, who carries what) lies with their managers and is shared by all worlds of the
// level; it names actors by their place in these lists.

#include <cstdint>
#include <vector>

#include "actors/DelayedEffects.h"
#include "actors/Force.h"
#include "actors/LevelObject.h"
#include "actors/Mover.h"

/// Of one trigger.
struct TriggerState {
    float cooldown = 0.0f;        ///< seconds until it may be tested again
    std::uint32_t fireCount = 0;  ///< since the last reset
};

/// All lists are in the order of adding.
struct ActorsState {
    std::vector<Mover> movers;
    std::vector<Force> forces;
    std::vector<LevelObject> objects;          ///< with one frame
    std::vector<LevelObject> animatedObjects;  ///< with more
    std::vector<TriggerState> triggers;        ///< by Trigger::number
    DelayedEffects delayedEffects;
};

namespace Actors {

/// Of the world in play.
extern ActorsState current;

}  // namespace Actors
