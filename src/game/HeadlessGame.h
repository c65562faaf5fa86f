#pragma once
// The game with nothing to show it on, for as long as the object lives: services up, a window
// that exists in name, and a clock that goes on by frames. One at a time.

#include <cstdint>
#include <string>

#include "game/Services.h"
#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"

class HeadlessGame {
public:
    /// The view has the shape of a window of this size.
    HeadlessGame(int width, int height);

    /// Loads the level and dismisses the menu; false if it can't be loaded.
    bool Start(const std::string& levelName);
    /// Arrow keys, from the next frame on.
    void Hold(bool left, bool right);
    /// One frame of the game, that many milliseconds after the last.
    void Frame(std::uint32_t ms);

private:
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
    Services services;
};
