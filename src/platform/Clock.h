#pragma once
// The process clock. Programs run on the steady clock; headless runs and tests on one that
// advances when told.

#include <cstdint>

namespace Platform {

class Clock {
public:
    virtual ~Clock() = default;
    /// Milliseconds; wraps after 49 days.
    virtual std::uint32_t Milliseconds() = 0;
    /// A monotonic high-resolution counter, in nanoseconds.
    virtual std::uint64_t Counter() = 0;
    virtual void Sleep(std::uint32_t milliseconds) = 0;
};

/// Real time; Milliseconds starts at 0 with the program.
class SteadyClock : public Clock {
public:
    std::uint32_t Milliseconds() override;
    std::uint64_t Counter() override;
    void Sleep(std::uint32_t milliseconds) override;
};

/// Stands still until it is advanced; Sleep advances it.
class ScriptedClock : public Clock {
public:
    void Advance(std::uint32_t milliseconds) { now += milliseconds; }
    std::uint32_t Milliseconds() override { return now; }
    std::uint64_t Counter() override { return std::uint64_t{now} * 1000000; }
    void Sleep(std::uint32_t milliseconds) override { now += milliseconds; }

private:
    std::uint32_t now = 0;
};

/// The clock in force; a steady one unless another was set.
Clock& TheClock();
/// Sets the clock, not owned; null goes back to the steady one.
void UseClock(Clock* clock);

}  // namespace Platform
