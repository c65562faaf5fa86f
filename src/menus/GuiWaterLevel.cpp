// The rising column of water; see GuiWaterLevel.h.

#include "menus/GuiWaterLevel.h"

#include <algorithm>

#include "menus/MenuHost.h"

namespace {

constexpr Colour surface{0.8f, 0.85f, 1.0f};
constexpr Colour ground{0.7f, 0.75f, 1.0f};

}  // namespace

void GuiWaterLevel::SetRampTime(float seconds) {
    ramp.rampTime = std::max(seconds, 0.0001f);
    ramp.remaining = 0.0f;
}

void GuiWaterLevel::OnPaint() {
    ramp.Tick();
    const float t = ramp.Advance();
    const float share = MenuHost::Current().Result().WaterShare();
    const auto left = static_cast<float>(x);
    const auto h = static_cast<float>(height);
    const float top = static_cast<float>(y) + (1.0f - share * t) * h;
    const GuiRect column{left, top, left + static_cast<float>(width), static_cast<float>(y) + h};
    GuiPainter::Current().FillRect(column, surface, ground);
}
