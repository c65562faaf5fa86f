#pragma once
// One move of the search: hold a tilt for a while in the running game, and say what came of it.

#include <array>
#include <cstdint>

#include "engine/Vector2.h"
#include "game/HeadlessGame.h"
#include "game/RunFile.h"

/// A tilt to turn to and hold.
struct Move {
    float angle = 0.0f;        ///< degrees, as the camera counts them
    std::uint32_t frames = 1;  ///< at most Outcome::mostMoveFrames
};

/// What a move led to. Plain data: copies of the game write it into shared memory.
struct Outcome {
    static constexpr std::size_t mostPlaces = 160;
    static constexpr std::uint32_t mostMoveFrames = 160;
    /// Room for the end of the level, which is played to its last frame.
    static constexpr std::size_t mostSteps = 400;

    bool lost = false;      ///< too little water was left: played no further
    bool finished = false;  ///< the level is over
    std::uint32_t alive = 0;
    std::uint32_t steam = 0;
    std::uint32_t ice = 0;
    std::uint32_t elapsedMs = 0;
    float angle = 0.0f;
    std::uint64_t switches = 0;  ///< Switches::State
    std::uint64_t fired = 0;     ///< a hash of which one-time triggers have fired
    std::uint64_t movers = 0;    ///< a hash of where movers stand, in rough steps
    Vector2 centre;              ///< of what is alive
    std::uint32_t placeCount = 0;
    std::array<Vector2, mostPlaces> places;  ///< of the water that is alive
    std::uint32_t stepCount = 0;
    std::array<RunStep, mostSteps> steps;  ///< as recorded
};

namespace Playing {

/// Frames from the level's start until the water moves; false if that never happens.
bool FlyIn(HeadlessGame& game, Outcome& outcome);
/// Plays the move, and to the level's end if it reaches the finish. Stops early where less
/// than `leastWater` particles are left.
void Play(HeadlessGame& game, const Move& move, std::uint32_t leastWater, Outcome& outcome);

}  // namespace Playing
