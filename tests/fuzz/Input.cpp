// Any sequence of keys, characters, mouse and window events, in play, in menus and at the
// console. Two bytes make an event.

#include "fuzz/FuzzGame.h"

namespace {

/// `what` in the low three bits, the rest makes variants; `value` is a key or a place.
void Send(TestGame& game, unsigned what, unsigned value) {
    const int key = static_cast<int>(value);
    switch (what % 8) {
        case 0:
            game.window.SetKey(key, true, static_cast<char>(what >> 3 != 0 ? key : 0));
            return;
        case 1:
            return game.window.SetKey(key, false);
        case 2:
            return game.window.SetCursorPosition(key * 4, static_cast<int>(what >> 3) * 20);
        case 3:
            return game.window.SetButton(1 << (key % 3), (what & 8u) != 0);
        case 4:
            return MenuManager::Show(key % 12);
        case 5:
            return game.window.SetForeground((value & 1u) != 0);
        case 6:
            return game.window.SetToggled(key, (what & 8u) != 0);
        default:
            game.Frames(1, value);
    }
}

}  // namespace

void Try(std::string_view input) {
    constexpr std::size_t longest = 256;
    FuzzGame& fuzz = FuzzGame::The();
    Game listener;
    GLWindow::SetListener(&listener);
    fuzz.Load();
    for (std::size_t i = 0; i + 1 < std::min(input.size(), longest); i += 2) {
        Send(fuzz.game, static_cast<unsigned char>(input[i]),
             static_cast<unsigned char>(input[i + 1]));
        GLWindow::PumpMessages();
    }
    fuzz.game.Frames(2);
    GLWindow::SetListener(nullptr);
}
