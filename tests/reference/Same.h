#pragma once
// Compares what a fast form gives with what its plain form gives, bit for bit, and says where
// the two part.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <vector>

/// The numbers of one element of a result.
template <std::size_t Count>
using Row = std::array<float, Count>;

/// Names the first element that differs, and which of its fields do, with both values.
template <std::size_t Count>
testing::AssertionResult Same(const char* element, const char* const (&fields)[Count],
                              const std::vector<Row<Count>>& fast,
                              const std::vector<Row<Count>>& plain) {
    testing::AssertionResult failure = testing::AssertionFailure();
    bool differs = false;
    for (std::size_t i = 0; i < std::min(fast.size(), plain.size()) && !differs; ++i) {
        for (std::size_t f = 0; f < Count; ++f) {
            if (std::bit_cast<std::uint32_t>(fast[i][f]) ==
                std::bit_cast<std::uint32_t>(plain[i][f])) {
                continue;
            }
            char text[200];
            std::snprintf(text, sizeof text, "\n  %s %zu: %s is %.9g, plainly %.9g", element, i,
                          fields[f], fast[i][f], plain[i][f]);
            failure << text;
            differs = true;
        }
    }
    if (fast.size() != plain.size()) {
        failure << "\n  " << element << "s: " << fast.size() << ", plainly " << plain.size();
        differs = true;
    }
    return differs ? failure : testing::AssertionSuccess();
}
