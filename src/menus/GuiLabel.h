#pragma once
// A line of text, its top left corner at the widget's position.

#include <string>

#include "menus/GuiTextWidget.h"

class GuiLabel : public GuiTextWidget {
public:
    void SetText(const std::string& newText) { text = newText; }
    void OnPaint() override;

    std::string text;
};
