#pragma once
// Asks whether to begin the level again.

#include "menus/GuiScreen.h"

class Menu_Restart : public GuiScreen {
public:
    Menu_Restart();
};
