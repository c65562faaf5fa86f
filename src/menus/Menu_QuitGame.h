#pragma once
// Asks whether to leave the program.

#include "menus/GuiScreen.h"

class Menu_QuitGame : public GuiScreen {
public:
    Menu_QuitGame();
};
