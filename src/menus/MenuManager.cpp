// Which menu shows; see MenuManager.h.

#include "menus/MenuManager.h"

#include <array>
#include <memory>

#include "audio/Sound.h"
#include "engine/ConfigFile.h"
#include "menus/MenuHost.h"
#include "menus/Menu_LevelFinished.h"
#include "menus/Menu_Options.h"
#include "menus/Menus.h"

namespace MenuManager {

namespace {

constexpr int menuCount = 10;

std::array<std::unique_ptr<GuiScreen>, menuCount + 1> menus;  // by number; the first is none
GuiScreen* current = nullptr;
GuiScreen* previous = nullptr;
std::unique_ptr<Sound> backgroundSound;  // loops while a menu shows

template <class Menu>
void Make(Number number) {
    auto& menu = menus[static_cast<std::size_t>(number)];
    if (!menu) {
        menu = std::make_unique<Menu>();
    }
}

int NumberOf(const GuiScreen* screen) {
    for (int number = 1; number <= menuCount; ++number) {
        if (screen && menus[static_cast<std::size_t>(number)].get() == screen) {
            return number;
        }
    }
    return None;
}

void StartCurrent() {
    current->Reset();
    if (backgroundSound) {
        backgroundSound->SetVolume(1.0f);
        backgroundSound->PlayLooped();
    }
}

void BackToGame() {
    if (backgroundSound) {
        backgroundSound->Stop();
    }
    MenuHost::Current().MenusClosed();
}

}  // namespace

void Initialise() {
    current = nullptr;
    previous = nullptr;
    Make<Menu_Main>(Main);
    Make<Menu_InGame>(InGame);
    Make<Menu_Options>(Options);
    Make<Menu_Instructions>(Instructions);
    Make<Menu_HighScores>(HighScores);
    Make<Menu_LoadMap>(LoadMap);
    Make<Menu_QuitGame>(QuitGame);
    Make<Menu_Credits>(Credits);
    Make<Menu_LevelFinished>(LevelFinished);
    Make<Menu_Restart>(Restart);
    if (!backgroundSound) {
        const ConfigFile general("cfg\\menu_general.cfg");
        backgroundSound = std::make_unique<Sound>(general.GetString("menuBgSound"));
    }
}

void Shutdown() {
    current = nullptr;
    previous = nullptr;
    for (auto& menu : menus) {
        menu.reset();
    }
    backgroundSound.reset();
}

void Show(int number) {
    previous = current;
    if (number >= None && number <= menuCount) {
        current = menus[static_cast<std::size_t>(number)].get();
    }
    if (current) {
        StartCurrent();
    } else {
        BackToGame();
    }
}

int Current() {
    return NumberOf(current);
}

int Previous() {
    return NumberOf(previous);
}

void Draw() {
    if (current) {
        current->OnPaint();
    }
}

void OnMouseMove(int x, int y) {
    if (current) {
        current->OnMouseMove(x, y);
    }
}

void OnMouseDown(int x, int y, int button) {
    if (current) {
        current->OnMouseDown(x, y, button);
    }
}

void OnMouseUp(int x, int y, int button) {
    if (current) {
        current->OnMouseUp(x, y, button);
    }
}

void OnKeyDown(int virtualKey) {
    if (current) {
        current->OnKeyDown(virtualKey);
    }
}

void OnKeyUp(int virtualKey) {
    if (current) {
        current->OnKeyUp(virtualKey);
    }
}

}  // namespace MenuManager
