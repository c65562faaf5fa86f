// Timer and Stopwatch over the process clock. Unsigned differences stay right when it wraps.

#include "engine/Timer.h"

#include "platform/Clock.h"

void Timer::Reset() {
    lastClock = Platform::TheClock().Milliseconds();
    deltaMs = 0;
    deltaSeconds = 0.0f;
}

void Timer::Tick() {
    const std::uint32_t now = Platform::TheClock().Milliseconds();
    deltaMs = now - lastClock;
    lastClock = now;
    deltaSeconds = static_cast<float>(deltaMs * 0.001);
    if (deltaSeconds < 0.00000001f) {
        deltaSeconds = 0.00000001f;
    }
}

void Stopwatch::Reset() {
    elapsedMs = 0;
    Skip();
}

void Stopwatch::Tick() {
    const std::uint32_t now = Platform::TheClock().Milliseconds();
    elapsedMs += now - lastClock;
    lastClock = now;
}

void Stopwatch::Skip() {
    lastClock = Platform::TheClock().Milliseconds();
}
