#pragma once
// What all harnesses are made of: each defines `Try` for one input, and ends the program where
// something doesn't hold, for the input to be kept.

#include <cstddef>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>

/// Tries one input, from the fuzzer or a file.
void Try(std::string_view input);

inline void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline std::span<const std::byte> BytesOf(std::string_view input) {
    return std::as_bytes(std::span(input));
}
