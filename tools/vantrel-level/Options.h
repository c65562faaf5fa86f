#pragma once
// The command line of vantrel-level.

#include <optional>
#include <string>
#include <vector>

struct Options {
    std::string command;
    std::vector<std::string> files;  ///< as many as the command takes
    std::string output;              ///< of compile and decompile
    std::string dataRoot;            ///< empty: found as the game finds it
};

/// The options, or none with `failure` set.
std::optional<Options> ParseOptions(const std::vector<std::string>& arguments,
                                    std::string& failure);

extern const char* const levelHelpText;
