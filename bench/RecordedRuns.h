#pragma once
// The recorded runs that win the shipped levels, for benchmarks that play along them.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "game/Game.h"
#include "game/RunRecorder.h"
#include "menus/MenuManager.h"
#include "support/Places.h"

namespace RecordedRuns {

/// Paths of all runs, by level name.
inline std::vector<std::string> Files() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(SourceDirectory() / "levels")) {
        if (entry.path().extension() == ".run") {
            files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// "levels/NAME.run" gives NAME.
inline std::string LevelName(const std::string& file) {
    return std::filesystem::path(file).stem().string();
}

/// Loads the run's level and stands at its first step; false if the run can't be played. With
/// a width, the view is another than the run's: play may then leave the run's path a little.
inline bool Begin(const std::string& file, float viewWidth = 0.0f, float viewHeight = 0.0f) {
    std::string reason;
    auto run = ReadRun(file, reason);
    if (!run || !FitsLevel(*run, reason)) {
        return false;
    }
    if (viewWidth > 0.0f) {
        run->viewWidth = viewWidth;
        run->viewHeight = viewHeight;
        run->hashes.clear();  // of the run's own path
    }
    const std::string level = run->level;
    RunRecorder::Replay(std::move(*run));
    Game::Initialise(level);
    MenuManager::Show(MenuManager::None);
    return true;
}

}  // namespace RecordedRuns
