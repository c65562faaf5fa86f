// See StateHash.h.

#include "game/StateHash.h"

#include "actors/ActorsFold.h"
#include "engine/Random.h"
#include "engine/StateFold.h"
#include "game/LevelProgress.h"
#include "level/LevelFold.h"
#include "water/WaterFold.h"

namespace {

void Fold(StateFold& fold, const ProgressState& progress) {
    // The clock's reading in the stopwatch is this machine's.
    const auto& [finishing, finishTimer, waterInFinish, stopwatch, stepSeconds, respawnX, respawnY,
                 respawnAmount] = progress;
    fold.Add(finishing, finishTimer, waterInFinish, stopwatch.elapsedMs, stepSeconds, respawnX,
             respawnY, respawnAmount);
}

}  // namespace

std::uint64_t StateHash() {
    StateFold fold;
    fold.Add(Random::state);
    ActorsFold::AddCamera(fold);
    LevelFold::AddLevel(fold);
    WaterFold::AddWater(fold);
    WaterFold::AddEffects(fold);
    ActorsFold::AddActors(fold);
    Fold(fold, LevelProgress::current);
    return fold.Value();
}
