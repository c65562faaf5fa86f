#pragma once
// Time kept in milliseconds of the process clock.

#include <cstdint>

/// Measures the time between ticks. The clock may wrap; differences stay right.
class Timer {
public:
    Timer() { Reset(); }

    /// Takes the clock and zeroes both deltas.
    void Reset();

    /// Takes the time since the last tick or reset. `deltaSeconds` is at least 1e-8, so that
    /// a division by it is safe.
    void Tick();

    std::uint32_t lastClock = 0;
    std::uint32_t deltaMs = 0;
    float deltaSeconds = 0.0f;
};

/// Counts only the stretches that the caller wants.
class Stopwatch {
public:
    Stopwatch() { Reset(); }

    void Reset();
    /// Adds the time since the last tick, skip or reset.
    void Tick();
    /// Lets the time since the last tick, skip or reset go by uncounted.
    void Skip();

    std::uint32_t elapsedMs = 0;
    std::uint32_t lastClock = 0;
};
