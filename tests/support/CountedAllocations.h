#pragma once
// How often and how much this program has allocated with `new`.

#include <atomic>
#include <cstddef>

extern std::atomic<std::size_t> countedAllocations;
/// The largest single allocation since it was zeroed, in bytes.
extern std::atomic<std::size_t> largestAllocation;
