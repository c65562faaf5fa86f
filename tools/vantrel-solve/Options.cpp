// Parsing of vantrel-solve's arguments.

#include "Options.h"

#include <algorithm>
#include <charconv>
#include <thread>

#include "Worlds.h"
#include "engine/FullBody.h"

const char* const solveHelpText =
    "Usage: vantrel-solve LEVEL.swah [-o FILE.run] [--minutes M] [--least N] [--improve]\n"
    "                     [--seed S] [--jobs J] [--room N] [--window WxH] [--data DIR]\n"
    "       vantrel-solve LEVEL.swah --stuck [-o FILE.run] [--along FILE.run] [--minutes M] ...\n"
    "       vantrel-solve LEVEL.swah --leaks [-o FILE.run] [--along FILE.run] [--minutes M]\n"
    "                     [--seeds N] ...\n"
    "Searches for a run that wins the level, by playing many tilts ahead on copies of the\n"
    "world, and writes the best one that it found, also when it is interrupted. With --stuck\n"
    "it looks for places where water is stuck for good, and writes the run to the worst one,\n"
    "and to others with a number in the name. With --leaks it tilts the level for long, slowly\n"
    "and at random, counts drops that get into or through what is solid, and writes the runs to\n"
    "where they do.\n"
    "  -o FILE      where to write the run\n"
    "  --stuck      look for stuck water; ends before the time is up when all is judged\n"
    "  --leaks      look for leaks\n"
    "  --along FILE a run of the level, from along which --stuck and --leaks set out, too\n"
    "  --minutes M  how long to search; with --leaks, how long each seed plays, in the game's\n"
    "               time; 9 if not given\n"
    "  --least N    drops of the 128 that must reach the end; 90 if not given\n"
    "  --improve    go on after the first win until the time is up: more water, then less time\n"
    "  --seed S     another number gives another search; 1 if not given\n"
    "  --seeds N    with --leaks, so many seeds from that one on; 1 if not given\n"
    "  --jobs J     threads that play; one per processor if not given\n"
    "  --room N     worlds to keep; 2500 if not given, each takes about 50 kilobytes\n"
    "  --window WxH the window that the run is for; 1280x720 if not given\n"
    "  --data DIR   the game's data\n"
    "Exit status: 0 a win, 3 no win, 1 an unusable file, 2 bad arguments; with --stuck and\n"
    "--leaks 0 nothing found, 3 something found.\n";

namespace {

template <class Value>
bool ParseNumber(const std::string& text, Value least, Value most, Value& number) {
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number >= least && number <= most;
}

bool ParseWindow(const std::string& text, SearchSettings& search) {
    const std::size_t cross = text.find('x');
    return cross != std::string::npos &&
           ParseNumber(text.substr(0, cross), 100, 10000, search.windowWidth) &&
           ParseNumber(text.substr(cross + 1), 100, 10000, search.windowHeight);
}

/// Takes an option that has a value.
bool TakeValue(const std::string& name, const std::string& value, Options& options, bool& known) {
    SearchSettings& search = options.search;
    if (name == "--minutes") {
        double minutes = 0.0;
        const bool good = ParseNumber(value, 0.001, 100000.0, minutes);
        search.seconds = minutes * 60.0;
        return good;
    }
    if (name == "--least") {
        return ParseNumber(value, 1u, fullBody, search.leastWater);
    }
    if (name == "--seed") {
        return ParseNumber(value, 0u, 0xffffffffu, search.seed);
    }
    if (name == "--seeds") {
        return ParseNumber(value, 1u, 10000u, options.seeds);
    }
    if (name == "--jobs") {
        return ParseNumber(value, 1u, Worlds::mostThreads, search.jobs);
    }
    if (name == "--room") {
        return ParseNumber(value, 50u, 20000u, search.room);
    }
    if (name == "--window") {
        return ParseWindow(value, search);
    }
    if (name == "--along") {
        options.along = value;
    } else if (name == "-o") {
        options.output = value;
    } else if (name == "--data") {
        options.dataRoot = value;
    } else {
        known = false;
    }
    return known;
}

std::string BadValue(const std::string& value, const std::string& name) {
    return "bad value '" + value + "' for " + name;
}

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::string>& arguments,
                                    std::string& message) {
    Options options;
    options.search.jobs = std::clamp(std::thread::hardware_concurrency(), 1u, Worlds::mostThreads);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& name = arguments[i];
        if (!name.starts_with("-")) {
            if (!options.search.level.empty()) {
                message = "more than one level given";
                return std::nullopt;
            }
            options.search.level = name;
        } else if (name == "--improve") {
            options.search.improve = true;
        } else if (name == "--stuck") {
            options.stuck = true;
        } else if (name == "--leaks") {
            options.leaks = true;
        } else if (i + 1 == arguments.size()) {
            message = "unknown option or missing value: '" + name + "'";
            return std::nullopt;
        } else {
            bool known = true;
            const std::string& value = arguments[++i];
            if (!TakeValue(name, value, options, known)) {
                message = known ? BadValue(value, name) : "unknown option '" + name + "'";
                return std::nullopt;
            }
        }
    }
    if (options.search.level.empty()) {
        message = "a level is needed; see --help";
        return std::nullopt;
    }
    return options;
}
