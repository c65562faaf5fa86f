#pragma once
// Draws that are the same on every machine.

#include <cstdint>

class Dice {
public:
    explicit Dice(std::uint32_t seed) : state(seed * 2654435761u + 88172645463325252u) {}
    std::uint32_t Next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return static_cast<std::uint32_t>(state >> 32);
    }
    /// 0 to n - 1; n above 0.
    std::uint32_t Below(std::uint32_t n) { return Next() % n; }
    /// 0 to 1, 1 excluded.
    double Unit() { return Next() * (1.0 / 4294967296.0); }

private:
    std::uint64_t state;
};
