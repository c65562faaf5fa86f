#pragma once
// One move of the search: hold a tilt for a while in the running game, and say what came of it.

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/Vector2.h"
#include "game/HeadlessGame.h"
#include "game/RunFile.h"

/// A tilt to turn to and hold.
struct Move {
    float angle = 0.0f;        ///< degrees, as the camera counts them
    std::uint32_t frames = 1;  ///< together with `settle` at most Outcome::mostMoveFrames
    /// So many frames more at most, until the water is at rest.
    std::uint32_t settle = 0;
    /// Not `none`: plays Playing::script from this step on instead of holding a tilt.
    std::uint32_t scriptStep = none;
    /// Milliseconds of a frame. Each is one module step, but for the first sixteen after a
    /// change, in which the game measures its frame time.
    std::uint32_t frameMs = 16;

    static constexpr std::uint32_t none = 0xffffffff;
};

/// Water that left the space it can reach.
struct Leak {
    std::uint32_t steps = 0;  ///< of the run, when it was seen
    std::uint32_t drops = 0;
    Vector2 from;  ///< where it was shortly before
};

enum class Matter : std::uint8_t { Water, Steam, Ice };

/// What a move led to. Plain data: copies of the game write it into shared memory.
struct Outcome {
    static constexpr std::size_t mostPlaces = 160;
    static constexpr std::uint32_t mostMoveFrames = 800;
    /// Room for the end of the level, which is played to its last frame, and for the flight to
    /// water that came back.
    static constexpr std::size_t mostSteps = 1600;
    /// Triggers that are told apart by `firedTriggers`.
    static constexpr std::size_t mostTriggers = 256;

    bool lost = false;      ///< too little water was left: played no further
    bool finished = false;  ///< the level is over
    bool cameBack = false;  ///< all water was lost, and new water began at a check point
    bool settled = false;   ///< at rest, or in a motion that didn't end while it was waited for
    std::uint32_t alive = 0;
    std::uint32_t steam = 0;
    std::uint32_t ice = 0;
    std::uint32_t elapsedMs = 0;
    float angle = 0.0f;
    std::uint64_t switches = 0;  ///< Switches::State
    std::uint64_t fired = 0;     ///< a hash of which one-time triggers have fired
    std::uint64_t movers = 0;    ///< a hash of where movers stand, in rough steps
    std::uint64_t machines = 0;  ///< Machines::State
    Vector2 centre;              ///< of what is alive
    std::uint32_t placeCount = 0;
    std::array<Vector2, mostPlaces> places;  ///< of the water that is alive
    std::array<Matter, mostPlaces> matters;  ///< of the same
    /// Bit i: one-time trigger i has fired; those that count for `fired`.
    std::array<std::uint64_t, mostTriggers / 64> firedTriggers;
    std::uint32_t stepCount = 0;
    std::array<RunStep, mostSteps> steps;  ///< as recorded
    static constexpr std::size_t mostLeaks = 32;
    // Only with Playing::watch.
    std::uint32_t watchedFrames = 0;  ///< in which water moved
    std::uint32_t leakCount = 0;
    std::array<Leak, mostLeaks> leaks;
};

namespace Playing {

/// A run whose turns moves can follow; set before copies are made.
extern std::vector<RunStep> script;
/// Called after each frame of a move, if there is one; set before copies are made.
extern std::function<void(Outcome&)> watch;

/// Starts the level, recorded in memory, and collects its switches. Why it can't; else empty.
std::string Begin(HeadlessGame& game, const std::string& level);
/// Frames from the level's start until the water moves; false if that never happens.
bool FlyIn(HeadlessGame& game, Outcome& outcome);
/// Plays the move, and to the level's end if it reaches the finish. Stops early where less
/// than `leastWater` particles are left; with 0 it plays on until lost water has come back.
void Play(HeadlessGame& game, const Move& move, std::uint32_t leastWater, Outcome& outcome);

}  // namespace Playing
