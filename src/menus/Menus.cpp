// What the menus are made of; see Menus.h.

#include "menus/Menus.h"

#include <string>
#include <vector>

#include "audio/MusicPlayer.h"
#include "graphics/GLWindowCursor.h"
#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"
#include "menus/MenuHost.h"
#include "menus/MenuManager.h"
#include "platform/Paths.h"
#include "platform/VirtualKeys.h"

namespace {

// What the main menu and the one over a running level share: a column of buttons whose lower
// part leads to the other menus.

template <int number>
GuiWidget* AddWayTo(MenuBuilder& builder, const char* name) {
    GuiAnimatedButton& button = builder.AddButton(name);
    MenuAction::Bind<MenuAction::Show<number>>(button);
    return &button;
}

/// Adds the buttons that lead on below those that are there already, `buttons` from the top,
/// and maps the keys along the whole column. The first has the keyboard's focus.
void CompleteMenuColumn(GuiScreen& screen, MenuBuilder& builder, std::vector<GuiWidget*> buttons) {
    buttons.push_back(AddWayTo<MenuManager::LoadMap>(builder, "loadButton"));
    buttons.push_back(AddWayTo<MenuManager::Options>(builder, "optionsButton"));
    buttons.push_back(AddWayTo<MenuManager::Instructions>(builder, "instructionsButton"));
    GuiWidget* highScores = AddWayTo<MenuManager::HighScores>(builder, "highScoresButton");
    buttons.push_back(highScores);
    buttons.push_back(AddWayTo<MenuManager::Credits>(builder, "creditsButton"));
    buttons.push_back(AddWayTo<MenuManager::QuitGame>(builder, "quitButton"));

    for (std::size_t i = 0; i + 1 < buttons.size(); ++i) {
        buttons[i]->MapKey(VirtualKey::down, buttons[i + 1]);
        buttons[i]->MapKey(VirtualKey::tab, buttons[i + 1]);
        buttons[i + 1]->MapKey(VirtualKey::up, buttons[i]);
    }
    buttons.back()->MapKey(VirtualKey::tab, buttons.front());
    buttons.back()->MapKey(VirtualKey::up, highScores);  // past the credits
    screen.SetDefaultFocus(buttons.front());
}

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

Menu_InGame::Menu_InGame() {
    MenuBuilder builder(*this, "cfg\\menu_inGame.cfg");
    builder.AddLogo("DEFAULT_FONT");
    GuiAnimatedButton& resume = builder.AddButton("continueButton");
    GuiAnimatedButton& restart = builder.AddButton("restartButton");
    MenuAction::Bind<MenuAction::Show<MenuManager::None>>(resume);
    MenuAction::Bind<MenuAction::Show<MenuManager::Restart>>(restart);
    CompleteMenuColumn(*this, builder, {&resume, &restart});
}

Menu_Instructions::Menu_Instructions() {
    MenuBuilder builder(*this, "cfg\\menu_instructions.cfg");
    builder.AddLogo(nullptr);
    GuiAnimatedButton& back = builder.AddButton("backButton");
    builder.AddTextBox("instructionsText", false);
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}

Menu_HighScores::Menu_HighScores() {
    MenuBuilder builder(*this, "cfg\\menu_highScores.cfg");
    builder.AddHighScores("highScores");
    builder.AddLogo("DEFAULT_FONT");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}

Menu_Credits::Menu_Credits() {
    MenuBuilder builder(*this, "cfg\\menu_credits.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    builder.AddTextBox("creditsText", true);
    MenuAction::Bind<MenuAction::GoBack>(back);
    SetDefaultFocus(&back);
}

namespace {

// What the menus share that ask before they act: the question, a yes on the left, and a no that
// has the keyboard's focus and goes back.

/// Lets a pressed answer look focused again, then acts.
template <void (*effect)(GuiAnimatedButton& button)>
void Answer(GuiAnimatedButton& button) {
    button.SetState(GuiAnimatedButton::InFocus);
    effect(button);
}

template <void (*onYes)(GuiAnimatedButton& button)>
void Ask(GuiScreen& screen, MenuBuilder& builder, const std::string& label, const char* text) {
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel(label, text, label + "_fontSize");
    GuiAnimatedButton& yes = builder.AddButton("yesButton");
    GuiAnimatedButton& no = builder.AddButton("noButton");
    MenuAction::Bind<Answer<onYes>>(yes);
    MenuAction::Bind<Answer<MenuAction::GoBack>>(no);
    no.MapKey(VirtualKey::left, &yes);
    no.MapKey(VirtualKey::tab, &yes);
    yes.MapKey(VirtualKey::right, &no);
    yes.MapKey(VirtualKey::tab, &no);
    screen.SetDefaultFocus(&no);
}

void Quit(GuiAnimatedButton& /*button*/) {
    MenuHost::Current().RequestQuit();
}

void BeginAgain(GuiAnimatedButton& /*button*/) {
    MusicPlayer::Play(MenuHost::Current().MusicName(), true);
    MenuHost::Current().RequestRestart();
    MenuManager::Show(MenuManager::None);
    GLWindow::WarpCursorToCentre();
}

}  // namespace

Menu_QuitGame::Menu_QuitGame() {
    MenuBuilder builder(*this, "cfg\\menu_quitGame.cfg");
    Ask<Quit>(*this, builder, "quitLabel", "Quit game: are you sure?");
}

Menu_Restart::Menu_Restart() {
    MenuBuilder builder(*this, "cfg\\menu_restart.cfg");
    Ask<BeginAgain>(*this, builder, "restartLabel", "Restart game: are you sure?");
}

namespace {

const std::string levelFolder = "lev\\";

GuiOptionChooser* mapChooser = nullptr;  // of the one menu of this kind
std::vector<std::string> levelNames;

/// The menu stays until the level is there. Without levels this asks for the folder, which
/// fails as any missing level does.
void LoadSelected(GuiAnimatedButton& /*button*/) {
    const std::size_t index = mapChooser->selected;
    MenuHost::Current().RequestMap(levelFolder +
                                   (index < levelNames.size() ? levelNames[index] : ""));
}

}  // namespace

Menu_LoadMap::Menu_LoadMap() {
    levelNames = Platform::ListFiles(levelFolder + "*.swah");
    MenuBuilder builder(*this, "cfg\\menu_loadMap.cfg");
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel("mapLabel", "Choose Map to load");
    mapChooser = &builder.AddChooser("mapChooser");
    for (const std::string& name : levelNames) {
        mapChooser->AddOption(name);
    }
    mapChooser->SetSelected(0);
    GuiAnimatedButton& load = builder.AddButton("loadButton");
    GuiAnimatedButton& back = builder.AddButton("backButton");
    MenuAction::Bind<LoadSelected>(load);
    MenuAction::Bind<MenuAction::GoBack>(back);

    back.MapKey(VirtualKey::up, &load);
    back.MapKey(VirtualKey::tab, &load);
    load.MapKey(VirtualKey::tab, &back);
    load.MapKey(VirtualKey::down, &back);
    SetDefaultFocus(&back);
}
