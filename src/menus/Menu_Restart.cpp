// Asks whether to begin again; see Menu_Restart.h.

#include "menus/Menu_Restart.h"

#include "audio/MusicPlayer.h"
#include "graphics/GLWindow.h"
#include "menus/MenuHost.h"
#include "menus/MenuQuestion.h"

namespace {

void BeginAgain() {
    MusicPlayer::Play(MenuHost::Current().MusicName(), true);
    MenuHost::Current().RequestRestart();
    MenuManager::Show(MenuManager::None);
    GLWindow::WarpCursorToCentre();
}

}  // namespace

Menu_Restart::Menu_Restart() {
    MenuBuilder builder(*this, "cfg\\menu_restart.cfg");
    MenuQuestion::Ask<BeginAgain>(*this, builder, "restartLabel", "Restart game: are you sure?");
}
