// The steady clock and the choice of the clock in force.

#include "platform/Clock.h"

#include <chrono>
#include <thread>

namespace Platform {

namespace {

using Steady = std::chrono::steady_clock;

const Steady::time_point programStart = Steady::now();

SteadyClock steadyClock;
Clock* clockInForce = &steadyClock;

}  // namespace

std::uint32_t SteadyClock::Milliseconds() {
    const auto since =
        std::chrono::duration_cast<std::chrono::milliseconds>(Steady::now() - programStart);
    return static_cast<std::uint32_t>(since.count());
}

std::uint64_t SteadyClock::Counter() {
    const auto since =
        std::chrono::duration_cast<std::chrono::nanoseconds>(Steady::now() - programStart);
    return static_cast<std::uint64_t>(since.count());
}

void SteadyClock::Sleep(std::uint32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

Clock& TheClock() {
    return *clockInForce;
}

void UseClock(Clock* clock) {
    clockInForce = clock != nullptr ? clock : &steadyClock;
}

}  // namespace Platform
