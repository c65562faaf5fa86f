#pragma once
// What the widgets that draw text share: a font sheet, a size and a shadow. Text starts out
// black.

#include "graphics/Texture.h"
#include "menus/GuiShadow.h"
#include "menus/GuiWidget.h"

class GuiTextWidget : public GuiWidget, public GuiShadow {
public:
    void SetFont(const Texture& texture) { font.AssignIfDifferent(texture); }
    /// In logical units; a size below `smallestFontSize` is ignored.
    virtual void SetFontSize(float size);

    static constexpr float smallestFontSize = 4.0f;

    Texture font;
    float fontSize = 16.0f;

protected:
    GuiTextWidget();
    /// Text at a position, its shadow first.
    void DrawShadowedText(const char* text, float left, float top) const;
};
