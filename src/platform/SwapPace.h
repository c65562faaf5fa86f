#pragma once
// Keeps the frames of a window apart where the display has no retrace to wait for, or a driver
// doesn't wait for it although it was told to. Without that a screen that stands still would take
// all processors, and more where a software renderer draws it.
//
// Whether swapping waits is learnt from the frames alone: a run of frames that are much shorter
// than the display's period can't have waited. Where it does wait nothing is ever held up.

#include <cstdint>

namespace Platform {

class SwapPace {
public:
    /// `refreshRate` is the display's, in hertz; 0 if it isn't known. `isFree`: it is known that
    /// swapping doesn't wait.
    void Begin(int refreshRate, bool isFree);
    /// A swap has just returned, at `now`, in nanoseconds. The time to wait before the next frame,
    /// in nanoseconds; 0 for none.
    std::uint64_t AfterSwap(std::uint64_t now);
    /// Whether swapping was found not to wait.
    bool IsFree() const { return shortFrames >= enough; }

private:
    static constexpr int enough = 8;  ///< frames in a row; fewer are short by chance

    std::uint64_t period = 0;
    std::uint64_t next = 0;  ///< when the next frame may begin
    std::uint64_t last = 0;  ///< swap
    int shortFrames = 0;
};

}  // namespace Platform
