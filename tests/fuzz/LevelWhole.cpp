// Any level file: loaded, its tree built, and played for a second with the arrow keys held in turn.

#include <span>

#include "fuzz/FuzzGame.h"
#include "fuzz/LevelMutator.h"
#include "platform/VirtualKeys.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 8192;  // one run stays well below a second
    constexpr int frames = 60;
    std::string reason;
    std::uint32_t version = 0;
    if (size > longest ||
        !LevelFile::Parse(std::as_bytes(std::span(data, size)), reason, version)) {
        return 0;
    }
    FuzzGame& fuzz = FuzzGame::The();
    fuzz.Load({reinterpret_cast<const char*>(data), size});
    for (int i = 0; i < frames; ++i) {
        fuzz.game.window.SetKey(VirtualKey::left, i % 40 < 10);
        fuzz.game.window.SetKey(VirtualKey::right, i % 40 >= 20);
        fuzz.game.Frames(1);
    }
    return 0;
}
