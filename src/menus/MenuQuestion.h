#pragma once
// What the menus share that ask before they act: the question, a yes on the left, and a no that
// has the keyboard's focus and goes back.

#include "menus/MenuAction.h"
#include "menus/MenuBuilder.h"
#include "platform/VirtualKeys.h"

namespace MenuQuestion {

/// Lets a pressed answer look focused again, then acts.
template <void (*effect)()>
void Answer(GuiAnimatedButton& button) {
    button.SetState(GuiAnimatedButton::InFocus);
    effect();
}

inline void GoBack() {
    MenuManager::Show(MenuManager::Previous());
}

template <void (*onYes)()>
void Ask(GuiScreen& screen, MenuBuilder& builder, const std::string& label, const char* text) {
    builder.AddLogo("DEFAULT_SPRITE");
    builder.AddLabel(label, text, label + "_fontSize");
    GuiAnimatedButton& yes = builder.AddButton("yesButton");
    GuiAnimatedButton& no = builder.AddButton("noButton");
    MenuAction::Bind<Answer<onYes>>(yes);
    MenuAction::Bind<Answer<GoBack>>(no);
    no.MapKey(VirtualKey::left, &yes);
    no.MapKey(VirtualKey::tab, &yes);
    yes.MapKey(VirtualKey::right, &no);
    yes.MapKey(VirtualKey::tab, &no);
    screen.SetDefaultFocus(&no);
}

}  // namespace MenuQuestion
