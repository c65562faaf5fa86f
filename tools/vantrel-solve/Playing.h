#pragma once
// One move of the search: hold a tilt for a while in some world, and say what came of it.

#include <cstdint>
#include <string>
#include <vector>

#include "LeakWatch.h"
#include "Outcome.h"
#include "game/HeadlessGame.h"
#include "game/RunFile.h"
#include "game/World.h"

/// A tilt to turn to and hold.
struct Move {
    float angle = 0.0f;  ///< degrees, as the camera counts them
    std::uint32_t frames = 1;
    /// So many frames more at most, until the water is at rest.
    std::uint32_t settle = 0;
    /// Not `none`: plays the rules' script from this step on instead of holding a tilt.
    std::uint32_t scriptStep = none;
    std::uint32_t frameMs = 16;  ///< milliseconds of a frame, which is one step

    static constexpr std::uint32_t none = 0xffffffff;
};

/// What the moves of a search have in common.
struct PlayRules {
    Run start{};  ///< of the level as it was begun, without steps; its view is the moves'
    /// Moves stop early where less drops are left; with 0 they play on until lost water has come
    /// back.
    std::uint32_t leastWater = 0;
    std::vector<RunStep> script{};         ///< of a run whose turns moves can follow
    const LeakSpace* leakSpace = nullptr;  ///< null: leaks aren't looked for
};

/// A world that has played a move, and what that led to. A copy goes on by itself.
struct Situation {
    World world;
    LeakWatch leaks;
    Outcome outcome;
};

namespace Playing {

/// Starts the level, whose time is counted by steps from then on, collects its switches, and
/// gives `start`. Why it can't; else empty.
std::string Begin(HeadlessGame& game, const std::string& level, Run& start);
/// Plays from the level's start until the water moves; false if that never happens.
bool FlyIn(Situation& situation, const PlayRules& rules, WorldWorkspace& work);
/// Plays the move, and to the level's end if it reaches the finish. Only the situation and the
/// workspace change.
void Play(Situation& situation, const Move& move, const PlayRules& rules, WorldWorkspace& work);

}  // namespace Playing
