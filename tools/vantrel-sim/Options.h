#pragma once
// The command line of vantrel-sim.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Window.h"

/// From frame `frame` on, these arrow keys are held.
struct KeyChange {
    std::uint32_t frame = 0;
    bool left = false;
    bool right = false;
};

struct Options {
    std::string level;       ///< empty with `replayFile`
    std::string replayFile;  ///< empty: keys are played
    std::string recordFile;  ///< empty: none; with `replayFile`, for the run as it goes now
    std::uint32_t frames = 0;
    std::uint32_t frameMs = 0;
    int windowWidth = Platform::defaultWidth;  ///< a replay has its run's view
    int windowHeight = Platform::defaultHeight;
    bool quiet = false;           ///< no trace, but a summary
    std::uint32_t every = 1;      ///< print every so many module steps; at least 1
    std::string dataRoot;         ///< empty: found as the game finds it
    std::vector<KeyChange> keys;  ///< ascending by frame
};

/// Where a command line or a file could not be used: the message and the exit status.
struct OptionsError {
    std::string message;
    int status = 2;  ///< 2 bad arguments, 1 unusable file
};

/// The options, or none with `error` set.
std::optional<Options> ParseOptions(const std::vector<std::string>& arguments, OptionsError& error);

extern const char* const simHelpText;
