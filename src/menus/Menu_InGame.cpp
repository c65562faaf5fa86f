// The menu over a running level; see Menu_InGame.h.

#include "menus/Menu_InGame.h"

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

Menu_InGame::Menu_InGame() {
    MenuBuilder builder(*this, "cfg\\menu_inGame.cfg");
    builder.AddLogo("DEFAULT_FONT");
    GuiAnimatedButton& resume = builder.AddButton("continueButton");
    GuiAnimatedButton& restart = builder.AddButton("restartButton");
    GuiAnimatedButton& load = builder.AddButton("loadButton");
    GuiAnimatedButton& options = builder.AddButton("optionsButton");
    GuiAnimatedButton& instructions = builder.AddButton("instructionsButton");
    GuiAnimatedButton& highScores = builder.AddButton("highScoresButton");
    GuiAnimatedButton& credits = builder.AddButton("creditsButton");
    GuiAnimatedButton& quit = builder.AddButton("quitButton");

    MenuAction::Bind<MenuAction::Show<MenuManager::None>>(resume);
    MenuAction::Bind<MenuAction::Show<MenuManager::Restart>>(restart);
    MenuAction::Bind<MenuAction::Show<MenuManager::LoadMap>>(load);
    MenuAction::Bind<MenuAction::Show<MenuManager::Options>>(options);
    MenuAction::Bind<MenuAction::Show<MenuManager::Instructions>>(instructions);
    MenuAction::Bind<MenuAction::Show<MenuManager::HighScores>>(highScores);
    MenuAction::Bind<MenuAction::Show<MenuManager::Credits>>(credits);
    MenuAction::Bind<MenuAction::Show<MenuManager::QuitGame>>(quit);

    MapKeyAlong(VirtualKey::down,
                {&resume, &restart, &load, &options, &instructions, &highScores, &credits, &quit});
    MapKeyAlong(VirtualKey::tab, {&resume, &restart, &load, &options, &instructions, &highScores,
                                  &credits, &quit, &resume});
    MapKeyAlong(VirtualKey::up,
                {&credits, &highScores, &instructions, &options, &load, &restart, &resume});
    quit.MapKey(VirtualKey::up, &highScores);
    SetDefaultFocus(&resume);
}
