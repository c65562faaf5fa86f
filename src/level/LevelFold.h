#pragma once
// A level's state, for comparing runs (engine/StateFold.h).

#include "engine/StateFold.h"
#include "level/LevelState.h"

namespace LevelFold {

/// All polygons in file order, and which segments of the tree collide.
void AddLevel(StateFold& fold, const LevelState& level);

}  // namespace LevelFold
