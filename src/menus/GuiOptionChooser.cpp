// Choice and arrows; see GuiOptionChooser.h.

#include "menus/GuiOptionChooser.h"

#include <algorithm>

#include "audio/Sound.h"
#include "menus/WidgetSound.h"
#include "platform/VirtualKeys.h"

namespace {

constexpr float faint = 0.25f;  // alpha of an arrow that leads nowhere

}  // namespace

GuiOptionChooser::GuiOptionChooser() = default;
GuiOptionChooser::~GuiOptionChooser() = default;

void GuiOptionChooser::SetSelected(unsigned index) {
    const auto count = static_cast<unsigned>(options.size());
    selected = count == 0 ? 0 : std::min(index, count - 1);
}

void GuiOptionChooser::SetShadowColour(const Colour& newColour) {
    GuiShadow::SetShadowColour(newColour);
    leftButton.SetShadowColour(newColour);
    rightButton.SetShadowColour(newColour);
}

void GuiOptionChooser::SetShadowOffset(float offsetX, float offsetY) {
    GuiShadow::SetShadowOffset(offsetX, offsetY);
    leftButton.SetShadowOffset(offsetX, offsetY);
    rightButton.SetShadowOffset(offsetX, offsetY);
}

void GuiOptionChooser::SetOverSound(const std::string& file) {
    overSound = MakeWidgetSound(file);
}

void GuiOptionChooser::SetClickSound(const std::string& file) {
    clickSound = MakeWidgetSound(file);
}

bool GuiOptionChooser::SelectPrevious() {
    if (selected == 0) {
        return false;
    }
    --selected;
    return true;
}

bool GuiOptionChooser::SelectNext() {
    if (selected + 1 >= options.size()) {
        return false;
    }
    ++selected;
    return true;
}

void GuiOptionChooser::OnMouseDown(int mouseX, int /*mouseY*/, int /*button*/) {
    const float centre = static_cast<float>(x) + static_cast<float>(width) / 2.0f;
    const bool changed = static_cast<float>(mouseX) > centre ? SelectNext() : SelectPrevious();
    if (changed) {
        PlayWidgetSound(clickSound.get());
    }
}

void GuiOptionChooser::OnKeyDown(int virtualKey) {
    if (virtualKey == VirtualKey::left) {
        SelectPrevious();
    } else if (virtualKey == VirtualKey::right) {
        SelectNext();
    }
}

void GuiOptionChooser::OnGainFocus() {
    for (GuiAnimatedButton* arrow : {&leftButton, &rightButton}) {
        arrow->hasFocus = true;
        arrow->OnGainFocus();
    }
    PlayWidgetSound(overSound.get());
}

void GuiOptionChooser::OnLoseFocus() {
    for (GuiAnimatedButton* arrow : {&leftButton, &rightButton}) {
        arrow->hasFocus = false;
        arrow->OnLoseFocus();
    }
}

void GuiOptionChooser::Reset() {
    leftButton.Reset();
    rightButton.Reset();
}

void GuiOptionChooser::PaintArrow(GuiAnimatedButton& arrow, float edge, bool leftOfEdge,
                                  bool leadsOn) {
    const Texture* picture = arrow.CurrentFrame();
    if (!picture) {
        return;
    }
    const auto w = static_cast<float>(picture->width);
    const auto h = static_cast<float>(picture->height);
    const float centreY = static_cast<float>(y) + static_cast<float>(height) / 2.0f;
    arrow.SetPosition(static_cast<int>(leftOfEdge ? edge - w : edge),
                      static_cast<int>(centreY - h / 2.0f));
    arrow.SetSize(static_cast<int>(picture->width), static_cast<int>(picture->height));
    arrow.SetColour({1.0f, 1.0f, 1.0f, leadsOn ? 1.0f : faint});
    arrow.OnPaint();
}

void GuiOptionChooser::OnPaint() {
    const char* text = selected < options.size() ? options[selected].c_str() : "";
    const std::size_t length = selected < options.size() ? options[selected].size() : 0;
    const float textWidth = static_cast<float>(length) * fontSize;
    const float centreX = static_cast<float>(x) + static_cast<float>(width) / 2.0f;
    const float centreY = static_cast<float>(y) + static_cast<float>(height) / 2.0f;
    DrawShadowedText(text, centreX - textWidth / 2.0f, centreY - fontSize / 2.0f);
    PaintArrow(leftButton, centreX - textWidth / 2.0f, true, selected > 0);
    PaintArrow(rightButton, centreX + textWidth / 2.0f, false, selected + 1 < options.size());
}
