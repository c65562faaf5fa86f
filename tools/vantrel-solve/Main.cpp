// vantrel-solve: searches for a run that wins a level, for places where water is stuck, or for
// leaks.

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "LeakHunt.h"
#include "Options.h"
#include "Search.h"
#include "StuckSearch.h"
#include "engine/Version.h"
#include "game/Game.h"
#include "game/HeadlessGame.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"
#include "platform/DataRoot.h"

namespace {

constexpr int noWin = 3;
constexpr int someFound = 3;

int Fail(const std::string& message, int status) {
    std::fprintf(stderr, "vantrel-solve: %s\n", message.c_str());
    return status;
}

/// Plays the run once more, which gives it the state hashes that it lacks, and writes it.
bool Write(const Options& options, const std::string& path, Run run) {
    std::string reason;
    if (FitsLevel(run, reason)) {
        HeadlessGame game(options.search.windowWidth, options.search.windowHeight);
        RunRecorder::Replay(run);
        if (game.Start(run.level)) {
            while (Game::StepReplay()) {
            }
            run = RunRecorder::Current();
        }
    }
    return WriteRun(path, run);
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
    if (!options.output.empty() && !Write(options, options.output, result.run)) {
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

/// The run's steps; none if it isn't there, or not of this level, with `reason` set.
std::optional<std::vector<RunStep>> ReadSteps(const std::string& path, std::string& reason) {
    if (path.empty()) {
        return std::vector<RunStep>();
    }
    auto run = ReadRun(path, reason);
    if (!run || !FitsLevel(*run, reason)) {
        reason = "cannot use '" + path + "': " + reason;
        return std::nullopt;
    }
    return std::move(run->steps);
}

/// Prints the report and writes the run to each finding.
int Tell(const Options& options, const std::string& report, const std::vector<Run>& runs) {
    std::fputs(report.c_str(), stdout);
    for (std::size_t i = 0; i < runs.size() && !options.output.empty(); ++i) {
        const std::string path = Numbered(options.output, i + 1);
        if (!Write(options, path, runs[i])) {
            return Fail("cannot write '" + path + "'", 1);
        }
    }
    return runs.empty() ? 0 : someFound;
}

int FindStuck(const Options& options, std::vector<RunStep> along) {
    const StuckResult result = HuntStuck(options.search, std::move(along));
    return result.failure.empty() ? Tell(options, Text(result.report), result.runs)
                                  : Fail(result.failure, 1);
}

int FindLeaks(const Options& options, std::vector<RunStep> along) {
    const LeakResult result = HuntLeaks(options.search, options.seeds, std::move(along));
    return result.failure.empty() ? Tell(options, Text(result), result.runs)
                                  : Fail(result.failure, 1);
}

int DoTask(const Options& options) {
    if (!options.stuck && !options.leaks) {
        return Solve(options);
    }
    std::string reason;
    auto along = ReadSteps(options.along, reason);
    if (!along) {
        return Fail(reason, 1);
    }
    return options.stuck ? FindStuck(options, std::move(*along))
                         : FindLeaks(options, std::move(*along));
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
            std::printf("vantrel-solve %s\n", programVersion);
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
    const int status = DoTask(*options);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return Fail("standard output cannot be written", 1);
    }
    return status;
}
