#pragma once
// The hunt for places where water is stuck for good. First it spreads over all situations that
// can be reached and remembers which moves lead from which to which; then it plays on from
// those that no move led from to the finish, until one does or enough were in vain.

#include <string>
#include <vector>

#include "Search.h"
#include "StuckReport.h"

struct StuckResult {
    std::string failure;  ///< why there was no hunt; empty otherwise
    StuckReport report;
    std::vector<Run> runs;  ///< to each place of the report
    double seconds = 0.0;
};

/// `script`: steps of a run of the level, along which it begins to explore; may be empty. Of
/// the settings, `leastWater` and `improve` don't count. For a given seed the same moves
/// are tried, as far as the time allows.
StuckResult HuntStuck(const SearchSettings& settings, std::vector<RunStep> script);
