#pragma once
// Shows the level time when a check point is reached, or the difference to the earlier pass
// of the same check point. Times are kept until the next level load; a restart keeps them.

#include <cstdint>

struct Trigger;

namespace CheckPointTimesManager {

/// Once per level load: forgets all times and reads cfg\checkPoints.cfg.
void Initialise();
void Shutdown();
/// The check point was passed at `time` milliseconds of level time.
void Reached(const Trigger& trigger, std::uint32_t time);
/// Once a frame; advances the fades too (CheckPointTimesManagerDraw.cpp).
void Draw();

}  // namespace CheckPointTimesManager
