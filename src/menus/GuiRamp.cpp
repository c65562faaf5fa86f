// The run of a counter; see GuiRamp.h.

#include "menus/GuiRamp.h"

#include <algorithm>

void GuiRamp::Restart() {
    timer.Reset();
    remaining = rampTime;
}

float GuiRamp::Advance() {
    remaining -= timer.deltaSeconds;
    return std::clamp(1.0f - remaining / rampTime, 0.0f, 1.0f);
}
