#pragma once
// The table of high scores.

#include "menus/GuiScreen.h"

class Menu_HighScores : public GuiScreen {
public:
    Menu_HighScores();
};
