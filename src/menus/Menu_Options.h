#pragma once
// Sound and music on or off. The choice counts, and is kept for later starts, when the menu is
// left by its button; Escape leaves things as they were.

#include "menus/GuiScreen.h"

class Menu_Options : public GuiScreen {
public:
    Menu_Options();
    /// Also lets the choosers show what is in force.
    void Reset() override;
};
