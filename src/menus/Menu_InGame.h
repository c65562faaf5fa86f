#pragma once
// The menu that Escape brings while a level is played.

#include "menus/GuiScreen.h"

class Menu_InGame : public GuiScreen {
public:
    Menu_InGame();
};
