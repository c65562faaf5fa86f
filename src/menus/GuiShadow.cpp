// The drop shadow; see GuiShadow.h.

#include "menus/GuiShadow.h"

void GuiShadow::SetShadowColour(const Colour& newColour) {
    shadowColour = newColour;
}

void GuiShadow::SetShadowOffset(float offsetX, float offsetY) {
    shadowOffsetX = offsetX;
    shadowOffsetY = offsetY;
}
