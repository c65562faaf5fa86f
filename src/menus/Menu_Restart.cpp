// Asks whether to begin again; see Menu_Restart.h.

#include "menus/Menu_Restart.h"

#include "audio/MusicPlayer.h"
#include "game/Game.h"
#include "graphics/GLWindow.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

namespace {

void BeginAgain(GuiAnimatedButton& button) {
    MenuAction::Release(button);
    MusicPlayer::Play(Game::MusicName(), true);
    Game::RequestRestart();
    MenuManager::Show(MenuManager::None);
    GLWindow::WarpCursorToCentre();
}

void GoOn(GuiAnimatedButton& button) {
    MenuAction::Release(button);
    MenuAction::GoBack(button);
}

}  // namespace

Menu_Restart::Menu_Restart() {
    MenuBuilder builder(*this, "cfg\\menu_restart.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel("restartLabel", "Restart game: are you sure?", "restartLabel_fontSize");
    GuiAnimatedButton& yes = builder.AddButton("yesButton");
    GuiAnimatedButton& no = builder.AddButton("noButton");
    MenuAction::Bind<BeginAgain>(yes);
    MenuAction::Bind<GoOn>(no);
    MenuAction::MapAnswerKeys(yes, no);
    SetDefaultFocus(&no);
}
