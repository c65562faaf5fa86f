#pragma once
// A text of many lines, wrapped at the widget's width. Set the size before text or font size,
// since these two wrap the text. Text starts out white.

#include <string>
#include <vector>

#include "menus/GuiTextWidget.h"

class GuiTextBox : public GuiTextWidget {
public:
    GuiTextBox();

    void SetText(const std::string& newText);
    /// A size below `smallestFontSize` becomes that.
    void SetFontSize(float size) override;
    void OnPaint() override;

    std::string text;
    /// As wrapped; a line keeps the space or line break that closes it. A word that is longer
    /// than a line comes out one character to a line.
    std::vector<std::string> lines;
    bool centred = false;

private:
    void Rewrap();
    void DrawLines(float offsetX, float offsetY, const Colour& textColour) const;
};
