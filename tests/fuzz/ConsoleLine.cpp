// Any lines typed at the console of a running level, with a frame after each.

#include "audio/SoundManager.h"
#include "fuzz/FuzzGame.h"
#include "graphics/GLWindowCommands.h"

void Try(std::string_view input) {
    constexpr int mostLines = 16;
    FuzzGame& fuzz = FuzzGame::The();
    static const bool added =
        (GLWindow::AddConsoleCommands(), SoundManager::InitialiseCache(), true);
    fuzz.Load();
    for (int i = 0; added && i < mostLines && !input.empty(); ++i) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        Console::Execute(input.substr(0, end));
        input.remove_prefix(std::min(end + 1, input.size()));
        fuzz.game.Frames(1);
    }
    Console::SetLogging(false);
}
