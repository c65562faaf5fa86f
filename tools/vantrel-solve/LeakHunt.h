#pragma once
// The hunt for water that gets through walls: it tilts the level for a long time, slowly and at
// random, in many lives from its start and from along a run, and says where drops got out.

#include <cstdint>
#include <string>
#include <vector>

#include "Search.h"
#include "engine/Vector2.h"

/// Leaks close to each other.
struct LeakPlace {
    Vector2 at;  ///< of the first
    std::uint32_t drops = 0;
    // The first:
    std::uint32_t seed = 0;
    std::uint32_t life = 0;
    double second = 0.0;  ///< of that life
};

struct LeakCount {
    std::uint32_t seed = 0;
    std::uint32_t lives = 0;
    std::uint32_t wins = 0;
    std::uint32_t losses = 0;  ///< all water was lost and came back
    std::uint32_t drops = 0;
    double seconds = 0.0;  ///< of play
};

struct LeakResult {
    std::string failure;  ///< why there was no hunt; empty otherwise
    std::vector<LeakCount> seeds;
    std::vector<LeakPlace> places;  ///< in the order in which they were found
    std::vector<Run> runs;          ///< to each place, and a little beyond
};

/// Plays `settings.seconds` of the game's time, of 128 drops or what is left of them, for each
/// of `seeds` seeds from the settings' own on. `script`: steps of a run of the level; may be
/// empty. The same seed gives the same lives, whatever the number of threads. An
/// interrupt ends it.
LeakResult HuntLeaks(const SearchSettings& settings, std::uint32_t seeds,
                     std::vector<RunStep> script);
/// What was found, lines ended by '\n'.
std::string Text(const LeakResult& result);
