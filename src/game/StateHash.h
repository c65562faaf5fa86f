#pragma once
// A hash of all that the next step depends on, to compare two runs' ends by.

#include <cstdint>

/// Equal for states that are equal to the last bit.
std::uint64_t StateHash();
