// Wrapping of the console's output.

#include "engine/ConsoleLayout.h"

#include "engine/Console.h"

namespace Console {

void TextCursor::Advance(char c, int columns) {
    constexpr int tabStop = 8;
    const int step = c == '\t' ? tabStop - column % tabStop : 1;
    if (c == '\n' || column + step >= columns) {
        ++row;
        column = 0;
    } else {
        column += step;
    }
}

VisibleText FindVisibleText(int rows, int columns) {
    VisibleText text{outputWrite, 0};
    TextCursor cursor;
    // Small cells can show more than the ring holds; then all of it is visible.
    while (cursor.row < rows && text.count < outputSize) {
        text.first = text.first == 0 ? outputSize - 1 : text.first - 1;
        ++text.count;
        cursor.Advance(outputBuffer[text.first], columns);
    }
    // The character that filled the last row is above the area.
    if (cursor.row >= rows && text.count > 0) {
        text.first = (text.first + 1) % outputSize;
        --text.count;
    }
    return text;
}

}  // namespace Console
