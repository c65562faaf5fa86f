#pragma once
// What buttons of menus do, and how they are bound: by click and by key, late enough for the
// click to be seen and heard.

#include "menus/GuiAnimatedButton.h"
#include "menus/MenuManager.h"

namespace MenuAction {

/// Seconds between a press and its effect.
inline constexpr float delay = 0.8f;

/// Binds an effect that leaves the screen, or ends what it was shown for.
template <void (*effect)(GuiAnimatedButton& button)>
void Bind(GuiAnimatedButton& button) {
    button.onMouseDown = [](GuiWidget* widget, int, int, int) {
        effect(static_cast<GuiAnimatedButton&>(*widget));
        return true;
    };
    button.onKeyDown = [](GuiWidget* widget, int virtualKey) {
        if (!GuiAnimatedButton::IsPressedBy(virtualKey)) {
            return false;
        }
        effect(static_cast<GuiAnimatedButton&>(*widget));
        return true;
    };
    button.delayMouseDown = delay;
    button.delayKeyDown = delay;
}

template <int number>
void Show(GuiAnimatedButton& /*button*/) {
    MenuManager::Show(number);
}

inline void GoBack(GuiAnimatedButton& /*button*/) {
    MenuManager::Show(MenuManager::Previous());
}

}  // namespace MenuAction
