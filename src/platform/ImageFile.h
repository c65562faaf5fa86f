#pragma once
// PNG, GIF, JPEG, BMP and TGA files, given as the file holds them: depth, masks, palette and
// colour key. Turning them into pixels for the screen is the caller's work
// (graphics/ImageReader.h). What platform/ImageHeader.h refuses or can't be decoded gives nothing;
// no message is printed.

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace Platform {

struct ImageFile {
    /// Where a channel lies in a pixel of 16, 24 or 32 bits. A channel that the file lacks has
    /// mask 0.
    struct Channel {
        std::uint32_t mask = 0;
        std::uint8_t shift = 0;  ///< bits below the channel
        std::uint8_t loss = 8;   ///< bits that it lacks to 8
    };

    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bitsPerPixel = 0;  ///< 8, 16, 24 or 32
    std::uint32_t pitch = 0;         ///< bytes from row to row, padding included
    Channel red, green, blue, alpha;
    bool hasColourKey = false;
    std::uint32_t colourKey = 0;  ///< palette index of the pixels that don't show
    /// Words of blue in bits 0-7, green, red, and 255 in bits 24-31. Entries that the file
    /// doesn't define are black.
    std::array<std::uint32_t, 256> palette{};
    std::vector<std::byte> pixels;  ///< `height` rows of `pitch` bytes, the top row first
};

std::optional<ImageFile> ReadImageFile(const std::filesystem::path& path);
/// The same from a file's bytes and the extension of its name, without the point.
std::optional<ImageFile> DecodeImage(std::span<const std::byte> file, std::string_view extension);

}  // namespace Platform
