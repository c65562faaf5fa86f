// Replays a recorded run and gives pictures of it, 1280 by 720, as raw RGB rows on standard
// output: at each of the given shares of the run, in percent and ascending.
//   run-pictures FILE.run PERCENT...

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

#include "PictureWindow.h"
#include "engine/Presentation.h"
#include "game/Game.h"
#include "game/GameScreen.h"
#include "game/RunRecorder.h"
#include "game/Services.h"
#include "menus/MenuManager.h"
#include "platform/DataRoot.h"

namespace {

constexpr int width = 1280;
constexpr int height = 720;

void TakePictures(PictureWindow& window, int count, char** percents) {
    const auto steps = static_cast<double>(RunRecorder::Current().steps.size());
    double taken = 0.0;
    for (int i = 0; i < count; ++i) {
        const double until = steps * std::atof(percents[i]) / 100.0;
        while (taken < until && Game::StepReplay()) {
            taken += 1.0;
        }
        window.recording = true;
        Presentation::Current().DrawFrame();
        window.recording = false;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fputs("Usage: run-pictures FILE.run PERCENT... > PICTURES\n", stderr);
        return 2;
    }
    Platform::FindDataRoot(argv[0]);
    std::string reason;
    auto run = ReadRun(argv[1], reason);
    if (!run || !FitsLevel(*run, reason)) {
        std::fprintf(stderr, "run-pictures: %s: %s\n", argv[1], reason.c_str());
        return 1;
    }
    PictureWindow window(width, height);
    GameScreen screen;
    const Services services({.window = &window,
                             .screen = screen.Parts(),
                             .title = "Pictures",
                             .width = width,
                             .height = height});
    const std::string level = run->level;
    RunRecorder::Replay(std::move(*run));
    Game::Initialise(level);
    MenuManager::Show(MenuManager::None);
    TakePictures(window, argc - 2, argv + 2);
    return 0;
}
