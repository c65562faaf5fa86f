#pragma once
// How to play.

#include "menus/GuiScreen.h"

class Menu_Instructions : public GuiScreen {
public:
    Menu_Instructions();
};
