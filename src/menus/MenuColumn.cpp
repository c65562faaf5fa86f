// A column of buttons; see MenuColumn.h.

#include "menus/MenuColumn.h"

#include "menus/MenuAction.h"
#include "platform/VirtualKeys.h"

namespace {

template <int number>
GuiWidget* AddWayTo(MenuBuilder& builder, const char* name) {
    GuiAnimatedButton& button = builder.AddButton(name);
    MenuAction::Bind<MenuAction::Show<number>>(button);
    return &button;
}

}  // namespace

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
