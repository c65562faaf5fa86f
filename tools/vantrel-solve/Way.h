#pragma once
// How a situation was reached: the steps of its last move, and the way before it, which other
// situations share.

#include <memory>
#include <vector>

#include "Playing.h"
#include "game/RunFile.h"

struct Leg {
    std::shared_ptr<const Leg> before;
    std::vector<RunStep> steps;
};
using Way = std::shared_ptr<const Leg>;

/// The way with the move's steps at its end.
Way Extend(Way before, const Outcome& outcome);
/// All steps from the level's start on.
std::vector<RunStep> StepsOf(const Way& way);
