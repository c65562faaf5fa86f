// What the widgets that draw text share; see GuiTextWidget.h.

#include "menus/GuiTextWidget.h"

GuiTextWidget::GuiTextWidget() {
    SetColour(Colours::black);
}

void GuiTextWidget::SetFontSize(float size) {
    if (size >= smallestFontSize) {
        fontSize = size;
    }
}

void GuiTextWidget::DrawShadowedText(const char* text, float left, float top) const {
    GuiPainter& painter = GuiPainter::Current();
    if (dropShadow) {
        painter.DrawText(font, text, left + shadowOffsetX, top + shadowOffsetY, fontSize,
                         shadowColour);
    }
    painter.DrawText(font, text, left, top, fontSize, colour);
}
