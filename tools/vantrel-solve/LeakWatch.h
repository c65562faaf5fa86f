#pragma once
// Watches a world for water that leaves the space it can reach, and counts each drop once. What
// fades away is passed over, and of a lump of ice its middle counts: its drops don't collide until
// it thaws.

#include <vector>

#include "LeakSpace.h"
#include "Outcome.h"
#include "game/World.h"

/// Which of a world's water is outside. A copy goes on with a copy of the world.
class LeakWatch {
public:
    /// After each step of the world: adds what has leaked in it to the outcome.
    void Look(const World& world, const LeakSpace& space, Outcome& outcome);

private:
    // What was outside after the last step. Water has no name, and its places in the lists change.
    std::vector<Vector2> drops;  ///< where each of them began its move in that step
    std::vector<Vector2> lumps;  ///< where they were
};
