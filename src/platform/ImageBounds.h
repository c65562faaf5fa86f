#pragma once
// How large a picture may be, for every reader.

#include <cstdint>

namespace Platform {

/// What graphics cards take at most as one texture, pixels.
constexpr std::uint64_t longestImageSide = 16384;
/// A quarter of a gigabyte of memory.
constexpr std::uint64_t mostImagePixels = 64'000'000;

/// At least one pixel, and no more than the bounds.
constexpr bool IsBearableImage(std::uint64_t width, std::uint64_t height) {
    return width >= 1 && height >= 1 && width <= longestImageSide && height <= longestImageSide &&
           width * height <= mostImagePixels;
}

}  // namespace Platform
