// What all widgets share; see GuiWidget.h.

#include "menus/GuiWidget.h"

#include <algorithm>

#include "platform/Assert.h"

void GuiWidget::SetColour(const Colour& newColour) {
    colour = {std::clamp(newColour.r, 0.0f, 1.0f), std::clamp(newColour.g, 0.0f, 1.0f),
              std::clamp(newColour.b, 0.0f, 1.0f), std::clamp(newColour.a, 0.0f, 1.0f)};
}

void GuiWidget::SetSize(int w, int h) {
    width = std::max(w, 0);
    height = std::max(h, 0);
}

void GuiWidget::SetPosition(int left, int top) {
    x = left;
    y = top;
}

void GuiWidget::MapKey(int virtualKey, GuiWidget* target) {
    VANTREL_ASSERT(target != nullptr);
    keyNavigation[virtualKey] = target;
}

bool GuiWidget::Contains(int logicalX, int logicalY) const {
    return logicalX >= x && logicalX < x + width && logicalY >= y && logicalY < y + height;
}
