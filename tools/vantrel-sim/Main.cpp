// vantrel-sim: runs the game's own frames with no display and prints the state.

#include <cstdio>
#include <string>
#include <vector>

#include "Options.h"
#include "Trace.h"
#include "engine/Console.h"
#include "game/Game.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureManager.h"
#include "menus/MenuManager.h"
#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"
#include "platform/Paths.h"
#include "platform/VirtualKeys.h"
#include "water/ParticleMover.h"

namespace {

int Fail(const OptionsError& error) {
    std::fprintf(stderr, "vantrel-sim: %s\n", error.message.c_str());
    return error.status;
}

/// The last reason that the console gives, as one line.
std::string LastReason() {
    std::string text = Console::OutputText();
    const std::size_t reason = text.rfind("\nReason: ");
    if (reason != std::string::npos) {
        return text.substr(reason + 9);
    }
    const std::size_t line = text.rfind('\n');
    return line == std::string::npos ? text : text.substr(line + 1);
}

void PrintStep(const Options& options) {
    if (!options.quiet && Game::StepCount() % options.every == 0) {
        Trace::PrintStep();
    }
}

void RunFrames(const Options& options, Platform::HeadlessWindow& window,
               Platform::ScriptedClock& clock) {
    auto change = options.keys.begin();
    for (std::uint32_t frame = 1; frame <= options.frames; ++frame) {
        for (; change != options.keys.end() && change->frame <= frame; ++change) {
            window.SetKey(VirtualKey::left, change->left);
            window.SetKey(VirtualKey::right, change->right);
        }
        clock.Advance(options.frameMs);
        const std::uint32_t before = Game::StepCount();
        GLWindow::PumpMessages();
        Game::Frame();
        if (Game::StepCount() != before) {
            PrintStep(options);
        }
    }
}

/// One frame a step; gives their number.
std::uint32_t RunReplay(const Options& options) {
    std::uint32_t frames = 0;
    while (Game::StepReplay()) {
        ++frames;
        PrintStep(options);
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

void Play(const Options& options, Platform::HeadlessWindow& window,
          Platform::ScriptedClock& clock) {
    std::uint32_t frames = options.frames;
    if (options.replayFile.empty()) {
        RunFrames(options, window, clock);
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
    Platform::ScriptedClock clock;
    Platform::UseClock(&clock);
    Platform::HeadlessWindow window;
    Platform::UseWindow(&window);
    GLWindow::Create("vantrel-sim", options.windowWidth, options.windowHeight);
    TextureManager::Initialise();
    Console::Initialise();
    ReadSurfaces();
    if (!options.recordFile.empty()) {
        RunRecorder::Record(options.recordFile);
    }
    Game::Initialise(options.level);
    MenuManager::Show(MenuManager::None);
    int status = 0;
    if (!Game::MapName().empty()) {
        Play(options, window, clock);
    } else {
        status = Fail({"cannot load level '" + options.level + "': " + LastReason(), 1});
    }
    Game::Shutdown();
    if (RunRecorder::HasFailed()) {
        status = 1;
    }
    Console::Shutdown();
    TextureManager::Shutdown();
    GLWindow::Close();
    Platform::UseWindow(nullptr);
    Platform::UseClock(nullptr);
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& argument : arguments) {
        if (argument == "--help") {
            std::fputs(simHelpText, stdout);
            return 0;
        }
        if (argument == "--version") {
            std::puts("vantrel-sim 1.03");
            return 0;
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
    return RunGame(*options);
}
