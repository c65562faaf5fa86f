// The menu over a running level; see Menu_InGame.h.

#include "menus/Menu_InGame.h"

#include "menus/MenuAction.h"
#include "menus/MenuColumn.h"

Menu_InGame::Menu_InGame() {
    MenuBuilder builder(*this, "cfg\\menu_inGame.cfg");
    builder.AddLogo("DEFAULT_FONT");
    GuiAnimatedButton& resume = builder.AddButton("continueButton");
    GuiAnimatedButton& restart = builder.AddButton("restartButton");
    MenuAction::Bind<MenuAction::Show<MenuManager::None>>(resume);
    MenuAction::Bind<MenuAction::Show<MenuManager::Restart>>(restart);
    CompleteMenuColumn(*this, builder, {&resume, &restart});
}
