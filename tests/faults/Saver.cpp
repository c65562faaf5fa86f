// Saves as the game does, with no window: for tests that make its calls fail, or kill it.
//   saver scores NAME SCORE [TIMES]       enters SCORE, SCORE + 1, ... and saves each
//   saver preferences NAME NUMBER [TIMES] stores NUMBER, NUMBER + 1, ...

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "engine/PreferenceStore.h"
#include "game/HighScoreTable.h"

namespace {

int SaveScores(const char* name, unsigned score, unsigned times) {
    HighScoreTable::Load();
    for (unsigned i = 0; i < times; ++i) {
        HighScoreTable::Insert({name, score + i});
        HighScoreTable::Save();
    }
    HighScoreTable::Save();
    return 0;
}

int StorePreferences(const char* name, unsigned number, unsigned times) {
    const PreferenceKey key = PreferenceStore::OpenOrCreateKey("software/test");
    bool isStored = true;
    for (unsigned i = 0; i < times; ++i) {
        isStored = key.SetValue(name, std::to_string(number + i)) && isStored;
    }
    if (!isStored) {
        std::fputs("not stored\n", stderr);
    }
    return isStored ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view what = argc > 2 ? argv[1] : "";
    const unsigned number = argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 0;
    const unsigned times = argc > 4 ? static_cast<unsigned>(std::atoi(argv[4])) : 1;
    if (what == "scores") {
        return SaveScores(argv[2], number, times);
    }
    if (what == "preferences") {
        return StorePreferences(argv[2], number, times);
    }
    return 2;
}
