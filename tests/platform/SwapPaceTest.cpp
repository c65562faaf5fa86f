#include "platform/SwapPace.h"

#include <gtest/gtest.h>

namespace {

using Platform::SwapPace;

constexpr std::uint64_t ms = 1'000'000;

/// Time as a loop sees it that draws for `drawing` and whose swap waits for nothing.
std::uint64_t FreeFrames(SwapPace& pace, std::uint64_t start, std::uint64_t drawing, int count) {
    std::uint64_t now = start;
    for (int i = 0; i < count; ++i) {
        now += drawing;
        now += pace.AfterSwap(now);
    }
    return now - start;
}

TEST(SwapPace, HoldsFramesToTheDisplaysRateWhereSwappingDoesNotWait) {
    for (const int rate : {0, 60, 144}) {
        SwapPace pace;
        pace.Begin(rate, false);
        const std::uint64_t settled = FreeFrames(pace, 1000 * ms, 2 * ms, 20);
        EXPECT_TRUE(pace.IsFree());
        const std::uint64_t passed = FreeFrames(pace, 1000 * ms + settled, 2 * ms, 100);
        const auto hertz = static_cast<std::uint64_t>(rate > 0 ? rate : 60);
        EXPECT_NEAR(static_cast<double>(passed), 100.0e9 / static_cast<double>(hertz), 1.0e4);
    }
}

TEST(SwapPace, NeverHoldsUpFramesThatWaitForARetrace) {
    SwapPace pace;
    pace.Begin(60, false);
    std::uint64_t now = 1000 * ms;
    for (int i = 0; i < 1000; ++i) {
        // Some are late, and what follows them is short.
        const int place = i % 10;
        now += place == 3 ? 25 * ms : place == 4 || place == 5 ? 9 * ms : 17 * ms;
        EXPECT_EQ(pace.AfterSwap(now), 0u) << i;
    }
    EXPECT_FALSE(pace.IsFree());
}

TEST(SwapPace, DoesNotRushAfterALateFrame) {
    SwapPace pace;
    pace.Begin(60, false);
    std::uint64_t now = 1000 * ms + FreeFrames(pace, 1000 * ms, ms, 20);
    now += 500 * ms;
    EXPECT_EQ(pace.AfterSwap(now), 0u);
    now += ms;
    EXPECT_GT(pace.AfterSwap(now), 14 * ms);
}

TEST(SwapPace, NeedNotLearnWhatIsKnown) {
    SwapPace pace;
    pace.Begin(60, true);
    EXPECT_TRUE(pace.IsFree());
    // The first frame comes at once, and one that takes long is no retrace.
    EXPECT_EQ(pace.AfterSwap(1000 * ms), 0u);
    EXPECT_EQ(pace.AfterSwap(1030 * ms), 0u);
    EXPECT_GT(pace.AfterSwap(1032 * ms), 14 * ms);
}

TEST(SwapPace, LearnsAnewWhenTheDisplayChanges) {
    SwapPace pace;
    pace.Begin(60, false);
    FreeFrames(pace, 1000 * ms, ms, 20);
    pace.Begin(75, false);
    EXPECT_FALSE(pace.IsFree());
}

}  // namespace
