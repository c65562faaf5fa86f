// Conversion of palette, 16, 24 and 32-bit pixels to 32-bit BGRA.

#include "graphics/ImageReader.h"

#include <cstddef>
#include <new>

namespace {

using Channel = Platform::ImageFile::Channel;

constexpr std::uint32_t opaque = 0xFF000000;

/// How a channel of a pixel gets to its place in the result.
struct Move {
    std::uint32_t mask;
    unsigned right;
    unsigned left;

    Move(const Channel& channel, unsigned outputShift)
        : mask(channel.mask), right(channel.shift), left(channel.loss + outputShift) {
        // Channels wider than 8 bits don't occur; shifts beyond the word do, for missing ones.
        if (left > 31) {
            mask = 0;
            left = 0;
        }
    }
    std::uint32_t Of(std::uint32_t pixel) const { return (pixel & mask) >> right << left; }
};

template <std::size_t depth>
std::uint32_t LittleEndian(const std::byte* bytes) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < depth; ++i) {
        value |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
    }
    return value;
}

/// Pixels of whole bytes; `convert` turns each into one of the result.
template <std::size_t depth, class Convert>
void ConvertRows(const Platform::ImageFile& image, std::uint32_t* out, const Convert& convert) {
    for (std::size_t y = 0; y < image.height; ++y) {
        const std::byte* const row = image.pixels.data() + y * image.pitch;
        for (std::size_t x = 0; x < image.width; ++x) {
            *out++ = convert(LittleEndian<depth>(row + x * depth));
        }
    }
}

void ConvertPixels(const Platform::ImageFile& image, std::uint32_t depth, std::uint32_t* out) {
    const Move red(image.red, 16);
    const Move green(image.green, 8);
    const Move blue(image.blue, 0);
    const Move alpha(image.alpha, 24);
    const auto solid = [=](std::uint32_t pixel) {
        return red.Of(pixel) | green.Of(pixel) | blue.Of(pixel) | opaque;
    };
    switch (depth) {
        case 1:
            ConvertRows<1>(image, out, [&](std::uint32_t pixel) {
                const std::uint32_t colour = image.palette[pixel];
                return image.hasColourKey && pixel == image.colourKey ? colour & ~opaque : colour;
            });
            break;
        case 2:
            ConvertRows<2>(image, out, solid);
            break;
        case 3:
            ConvertRows<3>(image, out, solid);
            break;
        default:
            ConvertRows<4>(image, out, [=](std::uint32_t pixel) {
                return red.Of(pixel) | green.Of(pixel) | blue.Of(pixel) | alpha.Of(pixel);
            });
    }
}

}  // namespace

ConvertedImage ConvertImage(const Platform::ImageFile& image) {
    ConvertedImage result;
    const std::uint32_t depth = image.bitsPerPixel / 8;
    if (image.bitsPerPixel % 8 != 0 || depth < 1 || depth > 4 ||
        image.pitch < std::uint64_t{image.width} * depth ||
        image.pixels.size() < std::size_t{image.pitch} * image.height) {
        return result;
    }
    result.bytesPerPixel = depth;
    result.hasAlpha = depth == 4 || (depth == 1 && image.hasColourKey);
    try {
        result.pixels.resize(std::size_t{image.width} * image.height);
    } catch (const std::bad_alloc&) {
        return result;
    }
    ConvertPixels(image, depth, result.pixels.data());
    return result;
}
