// vantrel-solve: searches for a run that wins a level, or for places where water is stuck.

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "Options.h"
#include "Search.h"
#include "StuckSearch.h"
#include "game/RunFile.h"
#include "platform/Paths.h"

namespace {

constexpr int noWin = 3;
constexpr int someStuck = 3;

int Fail(const std::string& message, int status) {
    std::fprintf(stderr, "vantrel-solve: %s\n", message.c_str());
    return status;
}

int Solve(const Options& options) {
    const SearchResult result = Search(options.search);
    if (!result.failure.empty()) {
        return Fail(result.failure, 1);
    }
    if (result.wins) {
        std::printf("WIN water %u of 128, %.3f s of play, ", result.water,
                    result.elapsedMs * 0.001);
    } else {
        std::printf("NO WIN, %.0f to go, ", static_cast<double>(result.distance));
    }
    std::printf("%llu moves in %.1f s\n", static_cast<unsigned long long>(result.moves),
                result.seconds);
    if (!options.output.empty() && !WriteRun(options.output, result.run)) {
        return Fail("cannot write '" + options.output + "'", 1);
    }
    return result.wins ? 0 : noWin;
}

/// The path itself for the first, then "stuck-2.run" and so on.
std::string Numbered(const std::string& path, std::size_t number) {
    const std::filesystem::path whole(path);
    const std::string name = whole.stem().string() + "-" + std::to_string(number);
    return number == 1 ? path
                       : (whole.parent_path() / (name + whole.extension().string())).string();
}

int Hunt(const Options& options) {
    Run run;
    if (!options.along.empty()) {
        std::string reason;
        auto read = ReadRun(options.along, reason);
        if (!read || !FitsLevel(*read, reason)) {
            return Fail("cannot use '" + options.along + "': " + reason, 1);
        }
        run = std::move(*read);
    }
    const StuckResult result = HuntStuck(options.search, std::move(run.steps));
    if (!result.failure.empty()) {
        return Fail(result.failure, 1);
    }
    std::fputs(Text(result.report).c_str(), stdout);
    for (std::size_t i = 0; i < result.runs.size() && !options.output.empty(); ++i) {
        const std::string path = Numbered(options.output, i + 1);
        if (!WriteRun(path, result.runs[i])) {
            return Fail("cannot write '" + path + "'", 1);
        }
    }
    return result.report.found.empty() ? 0 : someStuck;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& argument : arguments) {
        if (argument == "--help") {
            std::fputs(solveHelpText, stdout);
            return 0;
        }
        if (argument == "--version") {
            std::puts("vantrel-solve 1.03");
            return 0;
        }
    }
    std::string message;
    const auto options = ParseOptions(arguments, message);
    if (!options) {
        return Fail(message, 2);
    }
    Platform::FindDataRoot(argv[0]);
    if (!options->dataRoot.empty()) {
        Platform::UseDataRoot(options->dataRoot, true);
    }
    const int status = options->stuck ? Hunt(*options) : Solve(*options);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return Fail("standard output cannot be written", 1);
    }
    return status;
}
