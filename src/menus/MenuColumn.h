#pragma once
// What the main menu and the one over a running level share: a column of buttons whose lower
// part leads to the other menus.

#include <vector>

#include "menus/MenuBuilder.h"

/// Adds the buttons that lead on below those that are there already, `buttons` from the top,
/// and maps the keys along the whole column. The first has the keyboard's focus.
void CompleteMenuColumn(GuiScreen& screen, MenuBuilder& builder, std::vector<GuiWidget*> buttons);
