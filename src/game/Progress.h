#pragma once
// All that changes about a level's course while it is played.

#include <cstdint>

#include "engine/FullBody.h"
#include "engine/Timer.h"

struct ProgressState {
    bool finishing = false;           ///< the finish was reached
    float finishTimer = 0.001f;       ///< seconds left of the finish animation
    std::uint32_t waterInFinish = 0;  ///< counted during this step
    bool countsSteps = false;         ///< the level's time is the sum of its steps, not the clock's
    Stopwatch stopwatch;              ///< holds the level's time
    double stepSeconds = 0.0;         ///< sum of the level's steps, where those are counted
    float respawnX = 0.0f;            ///< where lost water comes back, world units
    float respawnY = 0.0f;
    std::uint32_t respawnAmount = fullBody;  ///< particles that come back

    /// The finish was reached and its animation is over.
    bool IsFinished() const { return finishing && finishTimer <= 0.0f; }
    /// Lets the time since the last tick go by uncounted.
    void SkipTime() {
        if (!countsSteps) {
            stopwatch.Skip();
        }
    }
};
