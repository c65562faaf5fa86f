// Conversion of palette, 16, 24 and 32-bit pixels to 32-bit BGRA.

#include "graphics/ImageReader.h"

#include <new>

namespace {

using Channel = Platform::ImageFile::Channel;

constexpr std::uint32_t opaque = 0xFF000000;

std::uint32_t Pick(std::uint32_t pixel, const Channel& channel, unsigned outputShift) {
    // Channels wider than 8 bits don't occur; shifts beyond the word do, for missing ones.
    const unsigned left = channel.loss + outputShift;
    return left > 31 ? 0 : (pixel & channel.mask) >> channel.shift << left;
}

std::uint32_t LittleEndian(const std::byte* bytes, std::uint32_t count) {
    std::uint32_t value = 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        value |= std::to_integer<std::uint32_t>(bytes[i]) << (8 * i);
    }
    return value;
}

std::uint32_t ConvertPixel(const Platform::ImageFile& image, std::uint32_t pixel) {
    if (image.bitsPerPixel == 8) {
        const std::uint32_t colour = image.palette[pixel];
        return image.hasColourKey && pixel == image.colourKey ? colour & ~opaque : colour;
    }
    const std::uint32_t colour =
        Pick(pixel, image.red, 16) | Pick(pixel, image.green, 8) | Pick(pixel, image.blue, 0);
    return colour | (image.bitsPerPixel == 32 ? Pick(pixel, image.alpha, 24) : opaque);
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
        result.pixels.reserve(std::size_t{image.width} * image.height);
    } catch (const std::bad_alloc&) {
        return result;
    }
    for (std::size_t y = 0; y < image.height; ++y) {
        const std::byte* row = image.pixels.data() + y * image.pitch;
        for (std::size_t x = 0; x < image.width; ++x) {
            result.pixels.push_back(ConvertPixel(image, LittleEndian(row + x * depth, depth)));
        }
    }
    return result;
}
