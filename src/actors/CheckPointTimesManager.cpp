// Times of check points, and the fades of what is shown of them.

#include "actors/CheckPointTimesManager.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>

#include "engine/ConfigFile.h"
#include "engine/Console.h"

namespace CheckPointTimesManager {

State state = State::Hidden;
std::optional<Texture> font;
Timer frameTimer;

namespace {

/// Level time of the last pass of each check point, milliseconds.
std::map<const Trigger*, std::uint32_t> times;
std::uint32_t previousTime = 0;
std::uint32_t newTime = 0;
float fadeTimer = 0.0f;  // seconds left of the present fade

float fontSize = 0.0f;
float top = 0.0f;
float fadeTime = 0.01f;  // seconds, at least 0.01
Colour timeColour;
Colour slowerColour;  // of a difference; also for equal times
Colour fasterColour;

void ReadSettings() {
    const ConfigFile file("cfg\\checkPoints.cfg");
    if (!font) {
        font.emplace(file.GetString("font"), "");
    }
    fontSize = file.GetFloat("fontSize");
    timeColour = file.GetColour("fontColor");
    slowerColour = file.GetColour("slowerFontColor");
    fasterColour = file.GetColour("fasterFontColor");
    top = file.GetFloat("y_position");
    constexpr float shortest = 0.01f;
    fadeTime = file.GetFloat("fadeTime");
    if (!std::isfinite(fadeTime) || fadeTime < shortest) {
        fadeTime = shortest;
    }
}

/// Minutes, seconds and hundredths of the milliseconds behind a prefix; hours are dropped.
void Write(std::array<char, 16>& text, const char* prefix, std::uint32_t time) {
    const unsigned minutes = time % 3600000u / 60000u;
    const unsigned seconds = time % 60000u / 1000u;
    const unsigned hundredths = time % 1000u / 10u;
    std::snprintf(text.data(), text.size(), "%s%02u:%02u:%02u", prefix, minutes, seconds,
                  hundredths);
}

/// The text of the present state, and the colour it goes in.
Colour WriteText(std::array<char, 16>& text, std::uint32_t time) {
    if (state == State::FadingInTime || state == State::FadingOutTime) {
        Write(text, "", time);
        return timeColour;
    }
    const auto difference = static_cast<std::int32_t>(newTime - previousTime);
    const bool faster = difference < 0;
    const std::uint32_t size = faster ? previousTime - newTime : newTime - previousTime;
    Write(text, faster ? "- " : "+ ", size);
    return faster ? fasterColour : slowerColour;
}

/// Share of the colour's alpha, steep where a fade begins from nothing.
float FadeFactor() {
    const float left = fadeTimer / fadeTime;
    const bool fadingIn = state == State::FadingInTime || state == State::FadingInDifference;
    const float factor = fadingIn ? 1.0f - left : left;
    return factor > 0.0f ? std::sqrt(factor) : factor;
}

}  // namespace

void Initialise() {
    Shutdown();
    Console::Print("\nInitialising check point times manager..");
    ReadSettings();
    previousTime = 0;
    newTime = 0;
    state = State::Hidden;
    fadeTimer = 0.0f;
    frameTimer.Reset();
}

void Shutdown() {
    Console::Print("\nShutting down check point times manager..");
    times.clear();
    font.reset();
}

void Reached(const Trigger& trigger, std::uint32_t time) {
    const auto [pass, isFirst] = times.try_emplace(&trigger, time);
    if (isFirst) {
        state = State::FadingInTime;
    } else {
        previousTime = pass->second;
        newTime = time;
        state = State::FadingInDifference;
        pass->second = time;
    }
    fadeTimer = fadeTime;
}

std::optional<Display> Current(std::uint32_t time) {
    if (!font || state == State::Hidden) {
        return std::nullopt;
    }
    Display display;
    display.colour = WriteText(display.text, time);
    display.colour.a *= FadeFactor();
    display.top = top;
    display.size = fontSize;
    return display;
}

void AdvanceFade(float seconds) {
    if (!font || state == State::Hidden) {
        return;
    }
    fadeTimer -= seconds;
    if (fadeTimer > 0.0f) {
        return;
    }
    if (state == State::FadingInTime || state == State::FadingInDifference) {
        state = state == State::FadingInTime ? State::FadingOutTime : State::FadingOutDifference;
        fadeTimer = fadeTime;
    } else {
        state = State::Hidden;
    }
}

}  // namespace CheckPointTimesManager
