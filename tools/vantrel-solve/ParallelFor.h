#pragma once
// A loop on several threads.

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

/// Calls work(index, thread) for each index below `count`, on this thread and on others, in all on
/// `threads`, at least 1, which have the numbers below that. Indices begin in ascending order.
template <class Work>
void ParallelFor(std::size_t count, unsigned threads, Work work) {
    std::atomic<std::size_t> next{0};
    const auto workOn = [&](unsigned thread) {
        for (std::size_t index = next++; index < count; index = next++) {
            work(index, thread);
        }
    };
    std::vector<std::jthread> others;
    for (unsigned thread = 1; thread < threads && thread < count; ++thread) {
        others.emplace_back(workOn, thread);
    }
    workOn(0);
}
