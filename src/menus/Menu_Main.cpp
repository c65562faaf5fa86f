// The main menu; see Menu_Main.h.

#include "menus/Menu_Main.h"

#include "audio/MusicPlayer.h"
#include "game/Game.h"
#include "graphics/GLWindow.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"

namespace {

void StartGame(GuiAnimatedButton& /*button*/) {
    MenuManager::Show(MenuManager::None);
    MusicPlayer::Play(Game::MusicName(), true);
    GLWindow::WarpCursorToCentre();
}

}  // namespace

Menu_Main::Menu_Main() {
    MenuBuilder builder(*this, "cfg\\menu_main.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    GuiAnimatedButton& start = builder.AddButton("startButton");
    GuiAnimatedButton& load = builder.AddButton("loadButton");
    GuiAnimatedButton& options = builder.AddButton("optionsButton");
    GuiAnimatedButton& instructions = builder.AddButton("instructionsButton");
    GuiAnimatedButton& highScores = builder.AddButton("highScoresButton");
    GuiAnimatedButton& credits = builder.AddButton("creditsButton");
    GuiAnimatedButton& quit = builder.AddButton("quitButton");

    MenuAction::Bind<StartGame>(start);
    MenuAction::Bind<MenuAction::Show<MenuManager::LoadMap>>(load);
    MenuAction::Bind<MenuAction::Show<MenuManager::Options>>(options);
    MenuAction::Bind<MenuAction::Show<MenuManager::Instructions>>(instructions);
    MenuAction::Bind<MenuAction::Show<MenuManager::HighScores>>(highScores);
    MenuAction::Bind<MenuAction::Show<MenuManager::Credits>>(credits);
    MenuAction::Bind<MenuAction::Show<MenuManager::QuitGame>>(quit);

    MapKeyAlong(VirtualKey::down,
                {&start, &load, &options, &instructions, &highScores, &credits, &quit});
    MapKeyAlong(VirtualKey::tab,
                {&start, &load, &options, &instructions, &highScores, &credits, &quit, &start});
    MapKeyAlong(VirtualKey::up, {&credits, &highScores, &instructions, &options, &load, &start});
    quit.MapKey(VirtualKey::up, &highScores);
    SetDefaultFocus(&start);
}
