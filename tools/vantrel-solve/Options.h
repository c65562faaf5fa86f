#pragma once
// The command line of vantrel-solve.

#include <optional>
#include <string>
#include <vector>

#include "Search.h"

struct Options {
    SearchSettings search;
    bool stuck = false;  ///< looks for stuck water instead of a win
    bool leaks = false;  ///< looks for water that gets through walls instead
    std::uint32_t seeds = 1;
    std::string along;     ///< a run along which it explores; empty: none
    std::string output;    ///< empty: the run isn't kept
    std::string dataRoot;  ///< empty: found as the game finds it
};

/// The options, or none with `message` set.
std::optional<Options> ParseOptions(const std::vector<std::string>& arguments,
                                    std::string& message);

extern const char* const solveHelpText;
