// Parsing of vantrel-sim's arguments and key files.

#include "Options.h"

#include <algorithm>
#include <charconv>
#include <sstream>

#include "platform/WholeFile.h"

const char* const simHelpText =
    "Usage: vantrel-sim LEVEL.swah --frames N --frame-ms MS [--input FILE] [--every K]\n"
    "                   [--record FILE] [--window WxH] [--quiet] [--data DIR]\n"
    "       vantrel-sim --replay FILE [--record FILE] [--every K] [--quiet] [--data DIR]\n"
    "Runs the game's own frames with no display and prints the state after every K-th\n"
    "module step. FILE has lines \"frame left|right|both|none\": the arrow keys that are held\n"
    "from that frame on; frames count from 1. --record keeps the run in a file, which\n"
    "--replay here and -REPLAY in the game play again. With --quiet there is a summary\n"
    "in place of the trace. --replay with --record keeps the same steps with the settings\n"
    "and state hashes of this replay. Exit status 0, or 1 for a file that can't be used,\n"
    "2 for bad arguments, 3 for a replay that went another way than its run.\n";

namespace {

bool ParseNumber(const std::string& text, std::uint32_t least, std::uint32_t& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number >= least;
}

bool ParseKeyLine(const std::string& line, KeyChange& change) {
    std::istringstream words(line);
    std::string frame;
    std::string keys;
    std::string rest;
    if (!(words >> frame >> keys) || (words >> rest) || !ParseNumber(frame, 0, change.frame)) {
        return false;
    }
    change.left = keys == "left" || keys == "both";
    change.right = keys == "right" || keys == "both";
    return change.left || change.right || keys == "none";
}

bool ReadKeys(const std::string& fileName, std::vector<KeyChange>& keys, OptionsError& error) {
    const auto bytes = Platform::ReadWholeFile(fileName);
    if (!bytes) {
        error = {"cannot read input file '" + fileName + "'", 1};
        return false;
    }
    std::istringstream file(
        std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.find_first_not_of(" \t\r") == std::string::npos) {
            continue;
        }
        KeyChange change;
        if (!ParseKeyLine(line, change)) {
            error = {
                fileName + ":" + std::to_string(number) + ": expected 'frame left|right|both|none'",
                1};
            return false;
        }
        keys.push_back(change);
    }
    std::stable_sort(keys.begin(), keys.end(),
                     [](const KeyChange& a, const KeyChange& b) { return a.frame < b.frame; });
    return true;
}

bool ParseWindow(const std::string& text, Options& options) {
    const std::size_t by = text.find('x');
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    constexpr std::uint32_t most = 16384;
    if (by == std::string::npos || !ParseNumber(text.substr(0, by), 1, width) ||
        !ParseNumber(text.substr(by + 1), 1, height) || width > most || height > most) {
        return false;
    }
    options.windowWidth = static_cast<int>(width);
    options.windowHeight = static_cast<int>(height);
    return true;
}

/// Empty, or what doesn't go together.
std::string Conflict(const Options& options, bool hasFrames, bool hasFrameMs, bool hasInput) {
    if (options.replayFile.empty()) {
        return options.level.empty() || !hasFrames || !hasFrameMs
                   ? "a level, --frames and --frame-ms are needed, or --replay; see --help"
                   : "";
    }
    return !options.level.empty() || hasFrames || hasFrameMs || hasInput
               ? "--replay stands for level, frames and input; see --help"
               : "";
}

std::string BadValue(const std::string& option, const std::string& value) {
    return "bad value '" + value + "' for " + option;
}

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::string>& arguments,
                                    OptionsError& error) {
    Options options;
    std::string inputFile;
    bool hasFrames = false;
    bool hasFrameMs = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        if (!name.starts_with("--")) {
            if (!options.level.empty()) {
                error.message = "more than one level given";
                return std::nullopt;
            }
            options.level = name;
            continue;
        }
        if (name == "--quiet") {
            options.quiet = true;
            continue;
        }
        if (i + 1 == arguments.size()) {
            error.message = "unknown option or missing value: '" + name + "'";
            return std::nullopt;
        }
        const std::string& value = arguments[++i];
        bool good = true;
        if (name == "--frames") {
            good = hasFrames = ParseNumber(value, 0, options.frames);
        } else if (name == "--frame-ms") {
            good = hasFrameMs = ParseNumber(value, 0, options.frameMs);
        } else if (name == "--every") {
            good = ParseNumber(value, 1, options.every);
        } else if (name == "--input") {
            inputFile = value;
        } else if (name == "--record") {
            options.recordFile = value;
        } else if (name == "--replay") {
            options.replayFile = value;
        } else if (name == "--window") {
            good = ParseWindow(value, options);
        } else if (name == "--data") {
            options.dataRoot = value;
        } else {
            error.message = "unknown option '" + name + "'";
            return std::nullopt;
        }
        if (!good) {
            error.message = BadValue(name, value);
            return std::nullopt;
        }
    }
    error.message = Conflict(options, hasFrames, hasFrameMs, !inputFile.empty());
    if (!error.message.empty()) {
        return std::nullopt;
    }
    if (!inputFile.empty() && !ReadKeys(inputFile, options.keys, error)) {
        return std::nullopt;
    }
    return options;
}
