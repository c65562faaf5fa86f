#pragma once
// The loaded level's state, for comparing runs (engine/StateFold.h).

#include "engine/StateFold.h"

namespace LevelFold {

/// All polygons in file order, and which segments of the tree collide.
void AddLevel(StateFold& fold);

}  // namespace LevelFold
