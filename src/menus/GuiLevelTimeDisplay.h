#pragma once
// The level's time as minutes, seconds and hundredths, centred in the widget's rectangle. It
// counts up from 0 once its predecessor is done; without one it stays at 0.

#include "menus/GuiRamp.h"
#include "menus/GuiTextWidget.h"

class GuiScoreLabel;

class GuiLevelTimeDisplay : public GuiTextWidget {
public:
    /// At least 0.01 seconds; the whole way is to go again.
    void SetRampTime(float seconds);
    void OnPaint() override;
    void Reset() override { ramp.Restart(); }

    GuiRamp ramp{5.0f};
    GuiScoreLabel* predecessor = nullptr;  ///< not owned; of the same screen
};
