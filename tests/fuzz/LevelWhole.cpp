// Any level file: loaded, its tree built, and played for a second with the arrow keys held in turn.

#include "fuzz/FuzzGame.h"
#include "fuzz/LevelMutator.h"
#include "platform/VirtualKeys.h"

void Try(std::string_view input) {
    constexpr std::size_t longest = 8192;  // one run stays well below a second
    constexpr int frames = 60;
    std::string reason;
    std::uint32_t version = 0;
    if (input.size() > longest || !LevelFile::Parse(BytesOf(input), reason, version)) {
        return;
    }
    FuzzGame& fuzz = FuzzGame::The();
    fuzz.Load(input);
    for (int i = 0; i < frames; ++i) {
        fuzz.game.window.SetKey(VirtualKey::left, i % 40 < 10);
        fuzz.game.window.SetKey(VirtualKey::right, i % 40 >= 20);
        fuzz.game.Frames(1);
    }
}
