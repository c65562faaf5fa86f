#pragma once
// A choice among texts, shown between two arrows. Clicks right of the centre go to the next
// option, others to the previous one; so do the arrow keys. An arrow that leads nowhere is
// faint.

#include <memory>
#include <string>
#include <vector>

#include "menus/GuiAnimatedButton.h"
#include "menus/GuiTextWidget.h"

class Sound;

class GuiOptionChooser : public GuiTextWidget {
public:
    GuiOptionChooser();
    ~GuiOptionChooser() override;

    void AddOption(const std::string& text) { options.push_back(text); }
    /// Held within the options; 0 if there are none.
    void SetSelected(unsigned index);

    // Both also reach the arrows; their `dropShadow` is their own.

    void SetShadowColour(const Colour& newColour) override;
    void SetShadowOffset(float offsetX, float offsetY) override;

    void SetOverSound(const std::string& file);
    void SetClickSound(const std::string& file);
    void SetLeftFramesOutOfFocus(const std::string& name) { leftButton.SetFramesOutOfFocus(name); }
    void SetLeftFramesInFocus(const std::string& name) { leftButton.SetFramesInFocus(name); }
    void SetLeftFramesClicked(const std::string& name) { leftButton.SetFramesClicked(name); }
    void SetRightFramesOutOfFocus(const std::string& name) {
        rightButton.SetFramesOutOfFocus(name);
    }
    void SetRightFramesInFocus(const std::string& name) { rightButton.SetFramesInFocus(name); }
    void SetRightFramesClicked(const std::string& name) { rightButton.SetFramesClicked(name); }

    void OnMouseDown(int mouseX, int mouseY, int button) override;
    void OnKeyDown(int virtualKey) override;
    void OnPaint() override;
    void OnGainFocus() override;
    void OnLoseFocus() override;
    void Reset() override;

    unsigned selected = 0;  ///< index of the option
    std::vector<std::string> options;
    GuiAnimatedButton leftButton;  ///< on no screen of its own; takes no events
    GuiAnimatedButton rightButton;
    std::unique_ptr<Sound> overSound;  ///< may be null
    std::unique_ptr<Sound> clickSound;

private:
    /// Each returns whether the option changed.
    bool SelectPrevious();
    bool SelectNext();
    void PaintArrow(GuiAnimatedButton& arrow, float edge, bool leftOfEdge, bool leadsOn);
};
