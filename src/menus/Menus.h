#pragma once
// The menus that are nothing but their widgets and what those do. The end of a level and the
// options have more to them: menus/Menu_LevelFinished.h, menus/Menu_Options.h.

#include "menus/GuiScreen.h"

/// The main menu, over the level that waits to be played.
class Menu_Main : public GuiScreen {
public:
    Menu_Main();
};

/// The menu that Escape brings while a level is played.
class Menu_InGame : public GuiScreen {
public:
    Menu_InGame();
};

/// How to play.
class Menu_Instructions : public GuiScreen {
public:
    Menu_Instructions();
};

/// The table of high scores.
class Menu_HighScores : public GuiScreen {
public:
    Menu_HighScores();
};

/// Who made the game.
class Menu_Credits : public GuiScreen {
public:
    Menu_Credits();
};

/// Asks whether to leave the program.
class Menu_QuitGame : public GuiScreen {
public:
    Menu_QuitGame();
};

/// Asks whether to begin the level again.
class Menu_Restart : public GuiScreen {
public:
    Menu_Restart();
};

/// The choice of a level. The list is read once, when the menu is made.
class Menu_LoadMap : public GuiScreen {
public:
    Menu_LoadMap();
};
