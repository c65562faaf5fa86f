// Any lines typed at the console of a running level, with a frame after each.

#include "audio/SoundManager.h"
#include "fuzz/FuzzGame.h"
#include "graphics/GLWindowCommands.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int mostLines = 16;
    static const std::vector<std::byte> level = FuzzLevel().Serialise();
    FuzzGame& fuzz = FuzzGame::The();
    static const bool added =
        (GLWindow::AddConsoleCommands(), SoundManager::InitialiseCache(), true);
    fuzz.Load(TestLevelFile::Text(level));
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    for (int i = 0; added && i < mostLines && !rest.empty(); ++i) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        Console::Execute(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
        fuzz.game.Frames(1);
    }
    Console::SetLogging(false);
    return 0;
}
