#pragma once
// The game without a screen, on a level, for as long as the object lives, played
// by arrow keys and recorded. Each frame is one module step but for the first sixteen, in which
// the game measures its frame time.

#include <string>

#include "platform/Clock.h"
#include "platform/HeadlessWindow.h"

class Headless {
public:
    /// Milliseconds of a frame; the steps are as long.
    static constexpr std::uint32_t frameMs = 16;

    /// The view has the shape of a window of this size.
    Headless(const std::string& levelName, int width, int height);
    ~Headless();
    Headless(const Headless&) = delete;
    Headless& operator=(const Headless&) = delete;

    bool IsLoaded() const;
    /// Why not, as the console says it.
    static std::string LastReason();
    /// One frame with the arrow keys held: above 0 left, below 0 right, 0 none.
    void Frame(int keys);

private:
    Platform::ScriptedClock clock;
    Platform::HeadlessWindow window;
};
