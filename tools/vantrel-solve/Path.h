#pragma once
// How a situation was reached: the steps of its last move, and the path before it, which other
// situations share.

#include <memory>
#include <vector>

#include "Outcome.h"
#include "game/RunFile.h"

struct Leg {
    std::shared_ptr<const Leg> before;
    std::vector<RunStep> steps;
};
using Path = std::shared_ptr<const Leg>;

/// The path with the move's steps at its end.
Path Extend(Path before, const Outcome& outcome);
/// All steps from the level's start on.
std::vector<RunStep> StepsOf(const Path& path);
