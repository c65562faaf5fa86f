#pragma once
// How often this program has allocated with `new`.

#include <atomic>
#include <cstddef>

extern std::atomic<std::size_t> countedAllocations;
