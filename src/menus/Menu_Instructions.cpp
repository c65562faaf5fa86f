// How to play; see Menu_Instructions.h.

#include "menus/Menu_Instructions.h"

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

Menu_Instructions::Menu_Instructions() {
    MenuBuilder builder(*this, "cfg\\menu_instructions.cfg");
    builder.AddLogo(nullptr);
    GuiAnimatedButton& back = builder.AddButton("backButton");
    builder.AddTextBox("instructionsText", false);
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}
