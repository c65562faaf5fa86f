// A number that counts up; see GuiScoreLabel.h.

#include "menus/GuiScoreLabel.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "audio/Sound.h"
#include "menus/WidgetSound.h"

GuiScoreLabel::GuiScoreLabel() : sound(std::make_unique<Sound>()) {}
GuiScoreLabel::~GuiScoreLabel() = default;

void GuiScoreLabel::SetRampTime(float seconds) {
    ramp.rampTime = std::max(seconds, 0.01f);
    ramp.remaining = ramp.rampTime;
}

void GuiScoreLabel::SetSound(const std::string& file) {
    sound = MakeWidgetSound(file);
}

void GuiScoreLabel::Reset() {
    ramp.Restart();
    sound->Stop();
}

std::uint32_t GuiScoreLabel::AdvanceValue() {
    if (ramp.remaining == ramp.rampTime) {
        PlayWidgetSound(sound.get());
    }
    if (ramp.IsDone()) {
        sound->Stop();
    }
    const std::uint32_t value = valueSource ? valueSource() : 0;
    // In double, so that the end of the run shows the value itself, however large.
    const auto share = static_cast<double>(ramp.Advance());
    return static_cast<std::uint32_t>(static_cast<double>(value) * share);
}

void GuiScoreLabel::OnPaint() {
    ramp.Tick();
    std::uint32_t shown = 0;
    if (!predecessor || predecessor->ramp.IsDone()) {
        shown = AdvanceValue();
    }
    char text[16];
    std::snprintf(text, sizeof text, "%" PRIu32, shown);
    DrawShadowedText(text, static_cast<float>(x), static_cast<float>(y));
}
