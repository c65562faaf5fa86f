// Means of pixels, two channels of a word at a time.

#include "graphics/Mipmaps.h"

#include <bit>
#include <cstddef>

#include "platform/Assert.h"

namespace {

/// Every other channel of a pixel, with room for sums between them.
constexpr std::uint32_t channels = 0x00FF00FF;

/// Rounded to the nearest, halves upwards.
std::uint32_t MeanOfFour(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    constexpr std::uint32_t half = 0x00020002;
    const std::uint32_t low = (a & channels) + (b & channels) + (c & channels) + (d & channels);
    const std::uint32_t high =
        (a >> 8 & channels) + (b >> 8 & channels) + (c >> 8 & channels) + (d >> 8 & channels);
    return ((low + half) >> 2 & channels) | ((high + half) >> 2 & channels) << 8;
}

/// Rounded down: along a line GLU does so.
std::uint32_t MeanOfTwo(std::uint32_t a, std::uint32_t b) {
    const std::uint32_t low = (a & channels) + (b & channels);
    const std::uint32_t high = (a >> 8 & channels) + (b >> 8 & channels);
    return (low >> 1 & channels) | (high >> 1 & channels) << 8;
}

}  // namespace

namespace Mipmaps {

bool CanHalve(std::uint32_t width, std::uint32_t height) {
    return std::has_single_bit(width) && std::has_single_bit(height);
}

std::vector<std::uint32_t> Halved(std::span<const std::uint32_t> pixels, std::uint32_t width,
                                  std::uint32_t height) {
    VANTREL_ASSERT(CanHalve(width, height) && pixels.size() == std::size_t{width} * height &&
                   pixels.size() > 1);
    if (width == 1 || height == 1) {
        std::vector<std::uint32_t> line(pixels.size() / 2);
        for (std::size_t i = 0; i < line.size(); ++i) {
            line[i] = MeanOfTwo(pixels[2 * i], pixels[2 * i + 1]);
        }
        return line;
    }
    std::vector<std::uint32_t> half(pixels.size() / 4);
    std::uint32_t* out = half.data();
    for (std::size_t y = 0; y < height; y += 2) {
        const std::uint32_t* upper = &pixels[y * width];
        const std::uint32_t* lower = upper + width;
        for (std::size_t x = 0; x < width; x += 2) {
            *out++ = MeanOfFour(upper[x], upper[x + 1], lower[x], lower[x + 1]);
        }
    }
    return half;
}

}  // namespace Mipmaps
