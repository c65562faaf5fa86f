// Any bytes as the cfg files of all modules and menus at once: whatever they set, the game starts,
// every menu opens and takes keys and clicks, and some frames are played.

#include "fuzz/FuzzGame.h"
#include "platform/VirtualKeys.h"
#include "support/Places.h"

namespace {

/// Every settings file becomes a link to one.
void LinkSettings(const std::filesystem::path& root) {
    namespace fs = std::filesystem;
    for (const auto& entry : fs::directory_iterator(SourceDirectory() / "data/cfg")) {
        const fs::path link = root / "cfg" / entry.path().filename();
        fs::remove(link);
        fs::create_symlink("../settings.txt", link);
    }
    fs::create_symlink("../settings.txt", root / "cfg" / "emitter.cfg");
    Platform::ForgetListings();
}

void UseMenus(TestGame& game) {
    for (int menu = MenuManager::Main; menu <= MenuManager::Restart; ++menu) {
        MenuManager::Show(menu);
        MenuManager::OnMouseMove(400, 300);
        game.Frames(1);
        MenuManager::OnMouseDown(400, 300, MouseButton::left);
        MenuManager::OnMouseUp(400, 300, MouseButton::left);
        MenuManager::OnKeyDown(VirtualKey::down);
        MenuManager::OnKeyUp(VirtualKey::down);
        game.Frames(1);
    }
    MenuManager::Show(MenuManager::None);
}

}  // namespace

void Try(std::string_view input) {
    constexpr std::size_t longest = 4096;
    FuzzGame& fuzz = FuzzGame::The();
    static const bool linked = (LinkSettings(fuzz.game.directory.path), true);
    if (input.size() > longest || !linked) {
        return;
    }
    fuzz.game.directory.Write("settings.txt", input);
    Console::Initialise();
    fuzz.Load();
    UseMenus(fuzz.game);
    Camera::SetState(Camera::Following);
    fuzz.game.Frames(20);
    Game::Shutdown();
}
