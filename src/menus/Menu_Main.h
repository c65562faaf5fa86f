#pragma once
// The main menu, over the level that waits to be played.

#include "menus/GuiScreen.h"

class Menu_Main : public GuiScreen {
public:
    Menu_Main();
};
