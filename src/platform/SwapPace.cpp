// Frames told by the times of their swaps; see SwapPace.h.

#include "platform/SwapPace.h"

#include <algorithm>

namespace Platform {

void SwapPace::Begin(int refreshRate, bool isFree) {
    constexpr std::uint64_t second = 1'000'000'000;
    constexpr int usualRate = 60;
    *this = {};
    period = second / static_cast<std::uint64_t>(refreshRate > 0 ? refreshRate : usualRate);
    shortFrames = isFree ? enough : 0;
}

std::uint64_t SwapPace::AfterSwap(std::uint64_t now) {
    const std::uint64_t frame = now - last;
    last = now;
    if (!IsFree()) {
        // A frame that waited may be a little short when the one before it was late.
        shortFrames = frame < period / 4 * 3 ? shortFrames + 1 : 0;
        next = now;
        return 0;
    }
    // A late frame isn't made up for.
    next = std::max(next + period, now);
    return next - now;
}

}  // namespace Platform
