#pragma once
// The way through the tree that circles of one cell take, laid out flat.

#include <span>

#include "level/BspGrid.h"

namespace BspGrid {

/// The nodes that circles of `radius` with their centres in the box can touch, and those whose
/// line decides whether one of these is visited at all, in the order of a walk. Conditions mean
/// nothing if there are more than `mostSteps`. Valid until the thread's next call.
std::span<const Step> FindSteps(const Box& box);

}  // namespace BspGrid
