#pragma once
// The run of a counter or a level from nothing to its final value. It advances while it is
// painted, by its own clock.

#include "engine/Timer.h"

class GuiRamp {
public:
    explicit GuiRamp(float seconds) : rampTime(seconds) {}

    /// The whole way is to go again.
    void Restart();
    /// Takes the time since the last call; to be done at each paint, running or not.
    void Tick() { timer.Tick(); }
    /// Goes on by the time of the last tick and returns how far the run is, 0..1.
    float Advance();
    bool IsDone() const { return remaining <= 0.0f; }

    Timer timer;
    float rampTime;          ///< seconds
    float remaining = 0.0f;  ///< seconds; below 0 once the run is over
};
