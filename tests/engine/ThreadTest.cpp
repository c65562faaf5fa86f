#include "engine/Thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

using std::chrono::milliseconds;

std::atomic<int> runs = 0;
std::atomic<int> rounds = 0;
std::atomic<bool> goOn = false;

std::uint32_t CountRun(void* argument) {
    runs += argument == nullptr ? 1 : 100;
    return 0;
}

std::uint32_t CountRounds(void*) {
    while (goOn) {
        Thread::HoldPoint();
        ++rounds;
        std::this_thread::sleep_for(milliseconds(1));
    }
    return 0;
}

/// Whether the routine gets on within a second.
bool Advances() {
    const int before = rounds;
    for (int i = 0; i < 1000 && rounds == before; ++i) {
        std::this_thread::sleep_for(milliseconds(1));
    }
    return rounds > before;
}

TEST(Thread, IsHeldUntilItIsReleasedAndRunsOnce) {
    runs = 0;
    {
        Thread thread(CountRun);
        EXPECT_TRUE(thread.IsValid());
        EXPECT_NE(thread.Id(), 0u);
        EXPECT_TRUE(thread.IsSuspended());
        std::this_thread::sleep_for(milliseconds(20));
        EXPECT_EQ(runs, 0);
        thread.Resume();
        thread.Resume();
        EXPECT_FALSE(thread.IsSuspended());
    }
    EXPECT_EQ(runs, 1);
    { const Thread neverReleased(CountRun); }
    EXPECT_EQ(runs, 2);
}

TEST(Thread, StopsAtItsHoldPoints) {
    rounds = 0;
    goOn = true;
    {
        Thread thread(CountRounds);
        thread.Resume();
        EXPECT_TRUE(Advances());
        for (int i = 0; i < 3; ++i) {
            thread.Suspend();
            std::this_thread::sleep_for(milliseconds(30));
            const int held = rounds;
            std::this_thread::sleep_for(milliseconds(30));
            EXPECT_EQ(rounds, held);
            thread.Resume();
            EXPECT_TRUE(Advances());
        }
        thread.Suspend();
        goOn = false;
    }                     // released by its end
    Thread::HoldPoint();  // of no effect here
}

}  // namespace
