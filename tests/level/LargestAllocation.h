#pragma once
// How large the program's allocations get, for tests of what a parser lets a file claim.

#include <atomic>
#include <cstddef>

/// The largest single allocation since it was zeroed, in bytes, over the whole program.
extern std::atomic<std::size_t> largestAllocation;
