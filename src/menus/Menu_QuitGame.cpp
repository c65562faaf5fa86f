// Asks whether to leave; see Menu_QuitGame.h.

#include "menus/Menu_QuitGame.h"

#include "menus/MenuHost.h"
#include "menus/MenuQuestion.h"

namespace {

void Quit() {
    MenuHost::Current().RequestQuit();
}

}  // namespace

Menu_QuitGame::Menu_QuitGame() {
    MenuBuilder builder(*this, "cfg\\menu_quitGame.cfg");
    MenuQuestion::Ask<Quit>(*this, builder, "quitLabel", "Quit game: are you sure?");
}
