// Wrapping and drawing of a text; see GuiTextBox.h.

#include "menus/GuiTextBox.h"

#include <algorithm>
#include <cstddef>

namespace {

bool BreaksLine(char c) {
    return c == '\r' || c == '\n';
}

bool ClosesWord(char c) {
    return BreaksLine(c) || c == ' ';
}

/// Where the line that starts at `start` ends; `longest` is at least 1.
std::size_t EndOfLine(const std::string& text, std::size_t start, std::size_t longest) {
    std::size_t end = start;
    while (end < text.size() && !BreaksLine(text[end]) && end - start < longest) {
        ++end;
    }
    if (end == text.size()) {
        return end;
    }
    while (end > start && !ClosesWord(text[end])) {
        --end;
    }
    return end + 1;
}

}  // namespace

GuiTextBox::GuiTextBox() {
    SetColour(Colours::white);
    fontSize = 8.0f;
}

void GuiTextBox::SetText(const std::string& newText) {
    text = newText;
    Rewrap();
}

void GuiTextBox::SetFontSize(float size) {
    // Written so that a NaN becomes the smallest too.
    fontSize = size > smallestFontSize ? size : smallestFontSize;
    Rewrap();
}

void GuiTextBox::Rewrap() {
    lines.clear();
    const auto longest = static_cast<std::size_t>(
        std::max(static_cast<float>(width) / fontSize, 1.0f));  // characters
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = EndOfLine(text, start, longest);
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
}

void GuiTextBox::DrawLines(float offsetX, float offsetY, const Colour& textColour) const {
    GuiPainter& painter = GuiPainter::Current();
    const float left = static_cast<float>(x) + offsetX;
    float top = static_cast<float>(y) + offsetY;
    for (const std::string& line : lines) {
        float start = left;
        if (centred) {
            const float lineWidth = static_cast<float>(line.size()) * fontSize;
            start += static_cast<float>(width) / 2.0f - lineWidth / 2.0f;
        }
        painter.DrawText(font, line.c_str(), start, top, fontSize, textColour);
        top += fontSize;
    }
}

void GuiTextBox::OnPaint() {
    if (dropShadow) {
        DrawLines(shadowOffsetX, shadowOffsetY, shadowColour);
    }
    DrawLines(0.0f, 0.0f, colour);
}
