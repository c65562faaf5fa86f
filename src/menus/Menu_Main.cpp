// The main menu; see Menu_Main.h.

#include "menus/Menu_Main.h"

#include "audio/MusicPlayer.h"
#include "graphics/GLWindow.h"
#include "menus/MenuAction.h"
#include "menus/MenuColumn.h"
#include "menus/MenuHost.h"

namespace {

void StartGame(GuiAnimatedButton& /*button*/) {
    MenuManager::Show(MenuManager::None);
    MusicPlayer::Play(MenuHost::Current().MusicName(), true);
    GLWindow::WarpCursorToCentre();
}

}  // namespace

Menu_Main::Menu_Main() {
    MenuBuilder builder(*this, "cfg\\menu_main.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    GuiAnimatedButton& start = builder.AddButton("startButton");
    MenuAction::Bind<StartGame>(start);
    CompleteMenuColumn(*this, builder, {&start});
}
