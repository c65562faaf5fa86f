#pragma once
// Who made the game.

#include "menus/GuiScreen.h"

class Menu_Credits : public GuiScreen {
public:
    Menu_Credits();
};
