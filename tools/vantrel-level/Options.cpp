#include "Options.h"

#include <algorithm>
#include <array>
#include <string_view>

const char* const levelHelpText =
    "Usage: vantrel-level compile MAP.tmj -o LEVEL.swah\n"
    "       vantrel-level decompile LEVEL.swah -o MAP.tmj\n"
    "       vantrel-level check LEVEL.swah [--data DIR]\n"
    "       vantrel-level triangles LEVEL.swah\n"
    "       vantrel-level bsp LEVEL.swah [--data DIR]\n"
    "       vantrel-level collide LEVEL.swah QUERIES [--data DIR]\n"
    "Makes levels from Tiled maps and looks into them. `check` counts a level's records and\n"
    "tells what is wrong with them; the others print triangles, tree nodes and the answers\n"
    "to circle queries, given as lines \"x y r\". DIR is the game's data directory.\n"
    "Exit status: 0 done, 1 unusable file or (check) errors found, 2 bad arguments.\n";

namespace {

struct Command {
    std::string_view name;
    std::size_t files;
    bool hasOutput;
    bool hasData;
};

constexpr std::array commands = {
    Command{"compile", 1, true, false}, Command{"decompile", 1, true, false},
    Command{"check", 1, false, true},   Command{"triangles", 1, false, true},
    Command{"bsp", 1, false, true},     Command{"collide", 2, false, true},
};

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::string>& arguments,
                                    std::string& failure) {
    Options options;
    options.command = arguments.empty() ? "" : arguments.front();
    const auto command = std::ranges::find(commands, options.command, &Command::name);
    if (command == commands.end()) {
        failure = options.command.empty() ? "no command; see --help"
                                          : "unknown command '" + options.command + "'; see --help";
        return std::nullopt;
    }
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        std::string* value = nullptr;
        if (word == "-o" && command->hasOutput) {
            value = &options.output;
        } else if (word == "--data" && command->hasData) {
            value = &options.dataRoot;
        }
        if (value == nullptr && word.size() > 1 && word.front() == '-') {
            failure = "unknown option '" + word + "' for " + options.command;
            return std::nullopt;
        }
        if (value == nullptr) {
            options.files.push_back(word);
            continue;
        }
        if (i + 1 == arguments.size() || arguments[i + 1].empty()) {
            failure = "missing value for '" + word + "'";
            return std::nullopt;
        }
        *value = arguments[++i];
    }
    if (options.files.size() != command->files || (command->hasOutput && options.output.empty())) {
        failure = options.command + " takes " + (command->files == 1 ? "one file" : "two files") +
                  (command->hasOutput ? " and -o FILE" : "") + "; see --help";
        return std::nullopt;
    }
    return options;
}
