// See StateHash.h.

#include "game/StateHash.h"

#include "actors/ActorsFold.h"
#include "engine/StateFold.h"
#include "level/LevelFold.h"
#include "water/WaterFold.h"

namespace {

void Fold(StateFold& fold, const ProgressState& progress) {
    // Where the time comes from doesn't count, nor what this machine's clock shows.
    const auto& [finishing, finishTimer, waterInFinish, countsSteps, stopwatch, stepSeconds,
                 respawnX, respawnY, respawnAmount] = progress;
    fold.Add(finishing, finishTimer, waterInFinish, stopwatch.elapsedMs, stepSeconds, respawnX,
             respawnY, respawnAmount);
}

}  // namespace

std::uint64_t StateHash(const WorldParts& world) {
    StateFold fold;
    fold.Add(world.random.state);
    ActorsFold::AddCamera(fold, world.camera);
    LevelFold::AddLevel(fold, world.level);
    WaterFold::AddWater(fold, world.water);
    WaterFold::AddEffects(fold, world.effects);
    ActorsFold::AddActors(fold, world.actors);
    Fold(fold, world.progress);
    return fold.Value();
}

std::uint64_t StateHash() {
    return StateHash(WorldInPlay());
}
