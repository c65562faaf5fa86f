#pragma once
// What triggers tell of in a step and don't do themselves: the course of the level is decided
// above them.

#include <cstdint>
#include <vector>

struct Trigger;

struct TriggerEvents {
    std::uint32_t waterInFinish = 0;            ///< particles, lumps of ice by their members
    std::vector<const Trigger*> checkPoints{};  ///< those that were fired, in order, as often

    /// Keeps the storage.
    void Clear() {
        waterInFinish = 0;
        checkPoints.clear();
    }
};
