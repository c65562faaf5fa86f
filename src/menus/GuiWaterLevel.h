#pragma once
// A column of water that rises to the share of a full body of water that was saved.

#include "menus/GuiRamp.h"
#include "menus/GuiWidget.h"

class GuiWaterLevel : public GuiWidget {
public:
    /// At least 0.0001 seconds; the column stands at its full height until the next reset.
    void SetRampTime(float seconds);
    void OnPaint() override;
    void Reset() override { ramp.Restart(); }

    GuiRamp ramp{1.0f};
};
