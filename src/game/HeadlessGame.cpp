// Brings the game up with nothing to show it on, and takes it down; see HeadlessGame.h.

#include "game/HeadlessGame.h"

#include "engine/Console.h"
#include "game/Game.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureManager.h"
#include "level/Surfaces.h"
#include "menus/MenuManager.h"
#include "platform/Assert.h"
#include "platform/VirtualKeys.h"

HeadlessGame::HeadlessGame(int width, int height) {
    VANTREL_ASSERT(width > 0 && height > 0);
    VANTREL_ASSERT(!Game::IsRunning());
    Platform::UseClock(&clock);
    Platform::UseWindow(&window);
    GLWindow::Create("headless", width, height);
    TextureManager::Initialise();
    Console::Initialise();
    ReadSurfaces();
}

HeadlessGame::~HeadlessGame() {
    Game::Shutdown();
    RunRecorder::Stop();
    Console::Shutdown();
    TextureManager::Shutdown();
    GLWindow::Close();
    Platform::UseWindow(nullptr);
    Platform::UseClock(nullptr);
}

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
