// vantrel-sim: runs the game's own frames with no display and prints the state.

#include <cstdio>
#include <string>
#include <vector>

#include "Options.h"
#include "Trace.h"
#include "engine/Version.h"
#include "game/Game.h"
#include "game/HeadlessGame.h"
#include "game/Notice.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"
#include "platform/DataRoot.h"

namespace {

constexpr int wentAnotherWay = 3;

int Fail(const OptionsError& error) {
    std::fprintf(stderr, "vantrel-sim: %s\n", error.message.c_str());
    return error.status;
}

/// False if nothing more can be printed: a full disk is no reason to play on for hours.
bool PrintStep(const Options& options) {
    if (!options.quiet && Game::StepCount() % options.every == 0) {
        Trace::PrintStep();
    }
    return std::ferror(stdout) == 0;
}

int CannotWrite(const Options& options) {
    return Fail({"cannot write '" + options.recordFile + "'", 1});
}

int FinishOutput() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        return Fail({"standard output cannot be written", 1});
    }
    return 0;
}

void RunFrames(const Options& options, HeadlessGame& game) {
    auto change = options.keys.begin();
    for (std::uint32_t frame = 1; frame <= options.frames; ++frame) {
        for (; change != options.keys.end() && change->frame <= frame; ++change) {
            game.Hold(change->left, change->right);
        }
        const std::uint32_t before = Game::StepCount();
        game.Frame(options.frameMs);
        if (Game::StepCount() != before && !PrintStep(options)) {
            return;
        }
    }
}

/// One frame a step; gives their number.
std::uint32_t RunReplay(const Options& options) {
    std::uint32_t frames = 0;
    while (Game::StepReplay()) {
        ++frames;
        if (!PrintStep(options)) {
            break;
        }
    }
    return frames;
}

/// False if there is no run to replay, with the reason printed.
bool PrepareReplay(Options& options) {
    std::string reason;
    auto run = ReadRun(options.replayFile, reason);
    if (!run || !FitsLevel(*run, reason)) {
        Fail({"cannot replay '" + options.replayFile + "': " + reason, 1});
        return false;
    }
    options.level = run->level;
    RunRecorder::Replay(std::move(*run));
    return true;
}

void Play(const Options& options, HeadlessGame& game) {
    std::uint32_t frames = options.frames;
    if (options.replayFile.empty()) {
        RunFrames(options, game);
    } else {
        frames = RunReplay(options);
    }
    if (options.quiet) {
        Trace::PrintSummary();
    } else {
        Trace::PrintEnd(frames);
    }
}

int RunGame(const Options& options) {
    HeadlessGame game(options.windowWidth, options.windowHeight);
    if (options.replayFile.empty() && !options.recordFile.empty() &&
        !RunRecorder::Record(options.recordFile)) {
        return CannotWrite(options);
    }
    if (!game.Start(options.level)) {
        return Fail({"cannot load level '" + options.level + "': " + LastReason(), 1});
    }
    Play(options, game);
    return FinishOutput();
}

/// Once a run was replayed to its end.
int EndReplay(const Options& options) {
    if (!options.recordFile.empty() && !WriteRun(options.recordFile, RunRecorder::Current())) {
        return CannotWrite(options);
    }
    return RunRecorder::HasDiffered() ? wentAnotherWay : 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& argument : arguments) {
        if (argument == "--help") {
            std::fputs(simHelpText, stdout);
            return FinishOutput();
        }
        if (argument == "--version") {
            std::printf("vantrel-sim %s\n", programVersion);
            return FinishOutput();
        }
    }
    OptionsError error;
    auto options = ParseOptions(arguments, error);
    if (!options) {
        return Fail(error);
    }
    Platform::FindDataRoot(argv[0]);
    if (!options->dataRoot.empty()) {
        Platform::UseDataRoot(options->dataRoot, true);
    }
    if (!options->replayFile.empty() && !PrepareReplay(*options)) {
        return 1;
    }
    int status = RunGame(*options);
    if (status == 0 && !options->replayFile.empty()) {
        status = EndReplay(*options);
    }
    return RunRecorder::HasFailed() ? 1 : status;
}
