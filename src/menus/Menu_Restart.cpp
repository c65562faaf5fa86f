// Asks whether to begin again; see Menu_Restart.h.

#include "menus/Menu_Restart.h"

#include "audio/MusicPlayer.h"
#include "game/Game.h"
#include "graphics/GLWindow.h"
#include "menus/MenuQuestion.h"

namespace {

void BeginAgain() {
    MusicPlayer::Play(Game::MusicName(), true);
    Game::RequestRestart();
    MenuManager::Show(MenuManager::None);
    GLWindow::WarpCursorToCentre();
}

}  // namespace

Menu_Restart::Menu_Restart() {
    MenuBuilder builder(*this, "cfg\\menu_restart.cfg");
    MenuQuestion::Ask<BeginAgain>(*this, builder, "restartLabel", "Restart game: are you sure?");
}
