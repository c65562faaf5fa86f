// Which menu shows; see MenuManager.h.

#include "menus/MenuManager.h"

#include <algorithm>
#include <array>
#include <iterator>
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
std::unique_ptr<GuiScreen> New() {
    return std::make_unique<Menu>();
}

struct Maker {
    Number number;
    std::unique_ptr<GuiScreen> (*make)();
};

/// In the order in which they are built.
constexpr Maker makers[menuCount] = {
    {Main, New<Menu_Main>},
    {InGame, New<Menu_InGame>},
    {Options, New<Menu_Options>},
    {Instructions, New<Menu_Instructions>},
    {HighScores, New<Menu_HighScores>},
    {LoadMap, New<Menu_LoadMap>},
    {QuitGame, New<Menu_QuitGame>},
    {Credits, New<Menu_Credits>},
    {LevelFinished, New<Menu_LevelFinished>},
    {Restart, New<Menu_Restart>},
};

/// False if the menu was there already.
bool Build(const Maker& maker) {
    auto& menu = menus[static_cast<std::size_t>(maker.number)];
    if (menu) {
        return false;
    }
    menu = maker.make();
    return true;
}

GuiScreen* Built(int number) {
    for (const Maker& maker : makers) {
        if (maker.number == number) {
            Build(maker);
        }
    }
    return menus[static_cast<std::size_t>(number)].get();
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
    if (!backgroundSound) {
        const ConfigFile general("cfg\\menu_general.cfg");
        backgroundSound = std::make_unique<Sound>(general.GetString("menuBgSound"));
    }
}

bool BuildNext() {
    return std::any_of(std::begin(makers), std::end(makers), Build);
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
        current = Built(number);
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
