// The painter in force; see GuiPainter.h.

#include "menus/GuiPainter.h"

namespace {

GuiPainter* currentPainter = nullptr;

}  // namespace

GuiPainter& GuiPainter::Current() {
    static GuiPainter none;
    return currentPainter ? *currentPainter : none;
}

void GuiPainter::Use(GuiPainter* painter) {
    currentPainter = painter;
}
