#pragma once
// The table of high scores: a line of titles and ten rows of rank, name and score. Text starts
// out black.

#include "graphics/Texture.h"
#include "menus/GuiShadow.h"
#include "menus/GuiWidget.h"

class GuiHighScores : public GuiWidget, public GuiShadow {
public:
    GuiHighScores();

    void SetFont(const Texture& texture) { font.AssignIfDifferent(texture); }
    // Sizes in logical units; one below 4 is ignored. The title's also spaces rows and columns.
    void SetEntryFontSize(float size);
    void SetTitleFontSize(float size);
    void OnPaint() override;

    Texture font;
    float entryFontSize = 16.0f;
    float titleFontSize = 32.0f;

private:
    void DrawTable(float left, float top, const Colour& textColour) const;
};
