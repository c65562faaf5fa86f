// The game with nothing to show it on; see HeadlessGame.h.

#include "game/HeadlessGame.h"

#include "game/Game.h"
#include "graphics/GLWindow.h"
#include "menus/MenuManager.h"
#include "platform/VirtualKeys.h"

HeadlessGame::HeadlessGame(int width, int height)
    : services({.clock = &clock, .window = &window, .width = width, .height = height}) {}

bool HeadlessGame::Start(const std::string& levelName) {
    Game::Initialise(levelName);
    MenuManager::Show(MenuManager::None);
    return !Game::MapName().empty();
}

void HeadlessGame::Hold(bool left, bool right) {
    window.SetKey(VirtualKey::left, left);
    window.SetKey(VirtualKey::right, right);
}

void HeadlessGame::Frame(std::uint32_t ms) {
    clock.Advance(ms);
    GLWindow::PumpMessages();
    Game::Frame();
}
