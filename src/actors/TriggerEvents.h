#pragma once
// What triggers tell of in a step and don't do themselves: the course of the level is decided
// above them, and sounds play for the world that is heard.

#include <cstdint>
#include <vector>

struct Trigger;

/// Placed sounds of an id that a trigger starts or stops.
struct SoundCue {
    std::uint32_t id = 0;
    bool plays = false;
};

struct TriggerEvents {
    std::uint32_t waterInFinish = 0;            ///< particles, lumps of ice by their members
    std::vector<const Trigger*> checkPoints{};  ///< those that were fired, in order, as often
    std::vector<SoundCue> sounds{};             ///< in order

    /// Keeps the storage.
    void Clear() {
        waterInFinish = 0;
        checkPoints.clear();
        sounds.clear();
    }
};
