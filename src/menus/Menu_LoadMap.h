#pragma once
// The choice of a level. The list is read once, when the menu is made.

#include "menus/GuiScreen.h"

class Menu_LoadMap : public GuiScreen {
public:
    Menu_LoadMap();
};
