// Brings the game up with nothing to show it on, and takes it down.

#include "Headless.h"

#include "engine/Console.h"
#include "game/Game.h"
#include "game/RunRecorder.h"
#include "graphics/GLWindow.h"
#include "graphics/TextureManager.h"
#include "menus/MenuManager.h"
#include "platform/VirtualKeys.h"
#include "water/ParticleMover.h"

Headless::Headless(const std::string& levelName, int width, int height) {
    Platform::UseClock(&clock);
    Platform::UseWindow(&window);
    GLWindow::Create("vantrel-solve", width, height);
    TextureManager::Initialise();
    Console::Initialise();
    ReadSurfaces();
    RunRecorder::Record("");
    Game::Initialise(levelName);
    MenuManager::Show(MenuManager::None);
}

Headless::~Headless() {
    Game::Shutdown();
    Console::Shutdown();
    TextureManager::Shutdown();
    GLWindow::Close();
    Platform::UseWindow(nullptr);
    Platform::UseClock(nullptr);
    RunRecorder::Stop();
}

bool Headless::IsLoaded() const {
    return !Game::MapName().empty();
}

std::string Headless::LastReason() {
    const std::string text = Console::OutputText();
    const std::size_t reason = text.rfind("\nReason: ");
    if (reason != std::string::npos) {
        return text.substr(reason + 9);
    }
    return text.substr(text.rfind('\n') + 1);
}

void Headless::Frame(int keys) {
    window.SetKey(VirtualKey::left, keys > 0);
    window.SetKey(VirtualKey::right, keys < 0);
    clock.Advance(frameMs);
    GLWindow::PumpMessages();
    Game::Frame();
}
