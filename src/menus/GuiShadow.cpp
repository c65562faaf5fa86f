// The drop shadow; see GuiShadow.h.

#include "menus/GuiShadow.h"

void GuiShadow::SetShadowColour(float r, float g, float b, float a) {
    shadowRed = r;
    shadowGreen = g;
    shadowBlue = b;
    shadowAlpha = a;
}

void GuiShadow::SetShadowOffset(float offsetX, float offsetY) {
    shadowOffsetX = offsetX;
    shadowOffsetY = offsetY;
}
