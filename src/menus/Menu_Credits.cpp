// Who made the game; see Menu_Credits.h.

#include "menus/Menu_Credits.h"

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

Menu_Credits::Menu_Credits() {
    MenuBuilder builder(*this, "cfg\\menu_credits.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    builder.AddTextBox("creditsText", true);
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}
