// The table of high scores; see GuiHighScores.h.

#include "menus/GuiHighScores.h"

#include <cinttypes>
#include <cstdio>

#include "menus/GuiTextWidget.h"
#include "menus/MenuHost.h"

namespace {

// Columns, in title sizes from the widget's left edge.
constexpr float nameColumn = 6.0f;
constexpr float scoreColumn = 18.0f;
/// The first row's distance from the top, in title sizes.
constexpr float firstRow = 2.0f;

}  // namespace

GuiHighScores::GuiHighScores() {
    SetColour(Colours::black);
}

void GuiHighScores::SetEntryFontSize(float size) {
    if (size >= GuiTextWidget::smallestFontSize) {
        entryFontSize = size;
    }
}

void GuiHighScores::SetTitleFontSize(float size) {
    if (size >= GuiTextWidget::smallestFontSize) {
        titleFontSize = size;
    }
}

void GuiHighScores::DrawTable(float left, float top, const Colour& textColour) const {
    GuiPainter& painter = GuiPainter::Current();
    const float nameLeft = left + nameColumn * titleFontSize;
    const float scoreLeft = left + scoreColumn * titleFontSize;
    painter.DrawText(font, "Rank", left, top, titleFontSize, textColour);
    painter.DrawText(font, "Name", nameLeft, top, titleFontSize, textColour);
    painter.DrawText(font, "Score", scoreLeft, top, titleFontSize, textColour);

    float rowTop = top + firstRow * titleFontSize;
    int rank = 1;
    for (const HighScoreRow& row : MenuHost::Current().HighScores()) {
        char number[16];
        std::snprintf(number, sizeof number, "%d", rank);
        painter.DrawText(font, number, left, rowTop, entryFontSize, textColour);
        // Copied, since a name from a foreign file needn't end in a zero.
        char name[HighScoreRow::longestName + 2];
        std::snprintf(name, sizeof name, "%.*s", static_cast<int>(row.name.size()),
                      row.name.data());
        painter.DrawText(font, name, nameLeft, rowTop, entryFontSize, textColour);
        std::snprintf(number, sizeof number, "%" PRIu32, row.score);
        painter.DrawText(font, number, scoreLeft, rowTop, entryFontSize, textColour);
        rowTop += titleFontSize;
        ++rank;
    }
}

void GuiHighScores::OnPaint() {
    const auto left = static_cast<float>(x);
    const auto top = static_cast<float>(y);
    if (dropShadow) {
        DrawTable(left + shadowOffsetX, top + shadowOffsetY, shadowColour);
    }
    DrawTable(left, top, colour);
}
