// The table of high scores; see Menu_HighScores.h.

#include "menus/Menu_HighScores.h"

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

Menu_HighScores::Menu_HighScores() {
    MenuBuilder builder(*this, "cfg\\menu_highScores.cfg");
    builder.AddHighScores("highScores");
    builder.AddLogo("DEFAULT_FONT");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}
