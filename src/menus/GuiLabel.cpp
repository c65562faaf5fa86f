// A line of text; see GuiLabel.h.

#include "menus/GuiLabel.h"

void GuiLabel::OnPaint() {
    DrawShadowedText(text.c_str(), static_cast<float>(x), static_cast<float>(y));
}
