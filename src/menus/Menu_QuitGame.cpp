// Asks whether to leave; see Menu_QuitGame.h.

#include "menus/Menu_QuitGame.h"

#include "game/Game.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

namespace {

void Quit(GuiAnimatedButton& button) {
    MenuAction::Release(button);
    Game::RequestQuit();
}

void Stay(GuiAnimatedButton& button) {
    MenuAction::Release(button);
    MenuAction::GoBack(button);
}

}  // namespace

Menu_QuitGame::Menu_QuitGame() {
    MenuBuilder builder(*this, "cfg\\menu_quitGame.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel("quitLabel", "Quit game: are you sure?", "quitLabel_fontSize");
    GuiAnimatedButton& yes = builder.AddButton("yesButton");
    GuiAnimatedButton& no = builder.AddButton("noButton");
    MenuAction::Bind<Quit>(yes);
    MenuAction::Bind<Stay>(no);
    MenuAction::MapAnswerKeys(yes, no);
    SetDefaultFocus(&no);
}
