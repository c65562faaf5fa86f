// The level's time; see GuiLevelTimeDisplay.h.

#include "menus/GuiLevelTimeDisplay.h"

#include <algorithm>
#include <cinttypes>
#include <cstdint>
#include <cstdio>

#include "menus/GuiScoreLabel.h"
#include "menus/MenuHost.h"

void GuiLevelTimeDisplay::SetRampTime(float seconds) {
    ramp.rampTime = std::max(seconds, 0.01f);
    ramp.remaining = ramp.rampTime;
}

void GuiLevelTimeDisplay::OnPaint() {
    ramp.Tick();
    std::uint32_t shown = 0;  // milliseconds
    if (predecessor && predecessor->ramp.IsDone()) {
        const auto share = static_cast<double>(ramp.Advance());
        shown = static_cast<std::uint32_t>(MenuHost::Current().Result().elapsedMs * share);
    }
    // Hours are dropped: there is room for two digits each.
    char text[16];
    std::snprintf(text, sizeof text, "%02" PRIu32 ":%02" PRIu32 ":%02" PRIu32,
                  shown % 3600000 / 60000, shown % 60000 / 1000, shown % 1000 / 10);

    GuiPainter& painter = GuiPainter::Current();
    const GuiRect box{static_cast<float>(x), static_cast<float>(y), static_cast<float>(x + width),
                      static_cast<float>(y + height)};
    if (dropShadow) {
        const GuiRect shifted{box.left + shadowOffsetX, box.top + shadowOffsetY,
                              box.right + shadowOffsetX, box.bottom + shadowOffsetY};
        painter.DrawTextCentred(font, text, shifted, fontSize, shadowColour);
    }
    painter.DrawTextCentred(font, text, box, fontSize, colour);
}
