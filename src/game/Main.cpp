// The entry point: opens the window as the player wants it, brings the services up and runs the
// game once.

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "audio/SoundManager.h"
#include "engine/Version.h"
#include "game/Game.h"
#include "game/GameScreen.h"
#include "game/HighScoreTable.h"
#include "game/IntroScreen.h"
#include "game/Notice.h"
#include "game/RunRecorder.h"
#include "game/Services.h"
#include "game/Startup.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowCursor.h"
#include "graphics/GLWindowDisplay.h"
#include "graphics/ProgramIcon.h"
#include "graphics/TextureManager.h"
#include "platform/DataRoot.h"
#include "platform/GlfwWindow.h"
#include "platform/OpenAlAudio.h"
#include "platform/System.h"

namespace {

constexpr const char* helpText =
    "Usage: vantrel [switches]\n"
    "  -MAP name          level to start with, for one start\n"
    "  -RESOLUTION w h    window or screen size; kept\n"
    "  -FULLSCREEN 0|1    kept\n"
    "  -DETAIL 0..5       graphics detail; kept\n"
    "  -SOUND 0|1         kept\n"
    "  -MUSIC 0|1         kept\n"
    "  -RECORD file       records the run until a level is finished\n"
    "  -REPLAY file       shows a recorded run, without opening film and menu\n"
    "  --help, --version\n"
    "Switches count in upper or lower case.\n";

/// Whether the arguments only asked for a text, which is then printed.
bool AnswerQuestion(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]) == "--help") {
            std::fputs(helpText, stdout);
            return true;
        }
        if (std::string_view(argv[i]) == "--version") {
            std::printf("Vantrel %s\n", programVersion);
            return true;
        }
    }
    return false;
}

/// Relative to where the program was started.
std::string PathFrom(const std::filesystem::path& directory, const std::string& file) {
    return file.empty() ? file : (directory / file).string();
}

/// Gets the recorded run ready, with its level as the one to start with; or says why not.
void PrepareReplay(const std::string& file) {
    std::string reason;
    auto run = ReadRun(file, reason);
    if (run && FitsLevel(*run, reason)) {
        startupSettings.mapName = run->level;
        RunRecorder::Replay(std::move(*run));
        return;
    }
    Notice("Unable to replay '" + file + "': " + reason);
}

/// The opening film, or a recorded run in its place.
void Open(const std::string& recordFile, const std::string& replayFile) {
    if (!recordFile.empty() && !RunRecorder::Record(recordFile)) {
        Notice("Unable to write to '" + recordFile + "': nothing is recorded");
    }
    if (replayFile.empty()) {
        IntroScreen().Run();
    } else {
        PrepareReplay(replayFile);
    }
}

int Width() {
    return static_cast<int>(startupSettings.resolutionX);
}

int Height() {
    return static_cast<int>(startupSettings.resolutionY);
}

std::string SizeText() {
    return std::to_string(Width()) + " by " + std::to_string(Height());
}

/// In the wanted size, or else in the one before it.
void CreateWindow() {
    const std::string title = std::string("Vantrel: Version ") + programVersion;
    while (!GLWindow::TryCreate(title, Width(), Height())) {
        const std::string refused = SizeText();
        if (!FallBackResolution()) {
            GLWindow::Create(title, Width(), Height());  // fails, and ends the process
        }
        Notice("No window of " + refused + " fits this display: trying " + SizeText());
    }
}

void OpenWindow(const DetailProfile& profile) {
    CreateWindow();
    GLWindow::Centre();
    GLWindow::SetCursorKind(Platform::Cursor::Empty);
    for (const unsigned count : profile.sampleCounts) {
        if (GLWindow::SetSamples(count)) {
            break;
        }
    }
    ShowProgramIcon();
    if (startupSettings.fullscreen) {
        GLWindow::SetFullscreen(true, Width(), Height());
    }
    GLWindow::SetVsync(true);
    KeepResolution();
}

/// With the services up: the texture manager learns only at its start which extensions there are.
void SetTextures(const DetailProfile& profile) {
    TextureManager::SetQuality(profile.textureQuality);
    if (profile.anisotropy != 0) {
        TextureManager::SetAnisotropy(profile.anisotropy);
    }
}

/// Film, game and high scores, with all that they need. Paths are relative to the directory.
void RunProgram(const std::filesystem::path& startDirectory) {
    const DetailProfile profile = ProfileOf(startupSettings.detailLevel);
    Platform::GlfwWindow window;
    Platform::OpenAlAudio audio;
    GameScreen screen;
    const Services services(
        {.window = &window, .screen = screen.Parts(), .audio = &audio, .openWindow = [&profile] {
             OpenWindow(profile);
         }});
    if (!SoundManager::HasDevice()) {
        Notice("No sound device can be opened: playing without sound");
    }
    SetTextures(profile);
    Open(PathFrom(startDirectory, startupSettings.recordFile),
         PathFrom(startDirectory, startupSettings.replayFile));
    HighScoreTable::Load();
    GLWindow::BringToFront();
    if (GLWindow::IsOpen()) {
        Game::Run(startupSettings.mapName);
    }
    HighScoreTable::Save();
}

}  // namespace

int main(int argc, char** argv) {
    if (AnswerQuestion(argc, argv)) {
        return 0;
    }
    std::error_code ignored;
    const std::filesystem::path startDirectory = std::filesystem::current_path(ignored);
    Platform::FindDataRoot(argv[0]);
    Platform::EnterUserDirectory();
    LoadPreferences();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    for (const std::string& complaint : ParseCommandLine(arguments)) {
        Notice(complaint);
    }

    Platform::EndAtOnceOnExit(true);
    RunProgram(startDirectory);
    Platform::EndAtOnceOnExit(false);
    return 0;
}
