// Asks whether to leave; see Menu_QuitGame.h.

#include "menus/Menu_QuitGame.h"

#include "game/Game.h"
#include "menus/MenuQuestion.h"

Menu_QuitGame::Menu_QuitGame() {
    MenuBuilder builder(*this, "cfg\\menu_quitGame.cfg");
    MenuQuestion::Ask<Game::RequestQuit>(*this, builder, "quitLabel", "Quit game: are you sure?");
}
