// Announced sizes of the common kinds of image files.

#include "platform/ImageHeader.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <optional>

namespace Platform {

namespace {

/// A reader of numbers that gives 0 beyond the end.
class Bytes {
public:
    explicit Bytes(std::span<const std::byte> block) : file(block) {}

    std::size_t Size() const { return file.size(); }
    std::uint64_t At(std::size_t place) const {
        return place < file.size() ? std::to_integer<std::uint64_t>(file[place]) : 0;
    }
    std::uint64_t Little(std::size_t place, std::size_t count) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            value |= At(place + i) << (8 * i);
        }
        return value;
    }
    std::uint64_t Big(std::size_t place, std::size_t count) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < count; ++i) {
            value = value << 8 | At(place + i);
        }
        return value;
    }
    bool StartsWith(std::string_view text) const {
        return file.size() >= text.size() &&
               std::equal(text.begin(), text.end(), file.begin(),
                          [](char c, std::byte b) { return static_cast<std::byte>(c) == b; });
    }

private:
    std::span<const std::byte> file;
};

/// Pixels announced, and how many of them a byte of the file can stand for at best. Without a
/// width or a height the header isn't whole: decoders would go on with whatever lies in memory.
struct Announced {
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t perByte = 1;
};

/// The size stands with the first image, behind any number of extension blocks.
Announced Gif(const Bytes& file) {
    constexpr std::uint64_t perByte = 4096;  // LZW: one code for as many pixels
    const auto tableSize = [&file](std::size_t place) {
        const std::uint64_t flags = file.At(place);
        return flags & 0x80 ? std::size_t{3} << ((flags & 7) + 1) : std::size_t{0};
    };
    std::size_t at = 13 + tableSize(10);
    while (at < file.Size()) {
        if (file.At(at) == 0x2C) {
            return Announced{file.Little(at + 5, 2), file.Little(at + 7, 2), perByte};
        }
        if (file.At(at) != 0x21) {
            ++at;  // the decoder skips what it doesn't know, byte by byte
            continue;
        }
        at += 2;
        while (at < file.Size() && file.At(at) != 0) {
            at += 1 + static_cast<std::size_t>(file.At(at));
        }
        ++at;
    }
    return {};
}

/// The size stands in the frame header, one of the segments behind the start.
Announced Jpeg(const Bytes& file) {
    // A block of 64 pixels takes a bit or two at least, and half of that when coded in steps.
    constexpr std::uint64_t perByte = 4096;
    std::size_t at = 2;
    while (at + 4 <= file.Size()) {
        const std::uint64_t marker = file.At(at + 1);
        if (file.At(at) != 0xFF || marker == 0xFF) {
            ++at;
            continue;
        }
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) {
            return Announced{file.Big(at + 7, 2), file.Big(at + 5, 2), perByte};
        }
        at += 2 + static_cast<std::size_t>(file.Big(at + 2, 2));
    }
    return {};
}

Announced Bitmap(const Bytes& file) {
    const std::uint64_t headerSize = file.Little(14, 4);
    const std::uint64_t pixelsAt = file.Little(10, 4);
    if (file.Size() < 26 || headerSize > file.Size() - 14 || pixelsAt >= file.Size()) {
        return {};
    }
    if (headerSize == 12) {
        return Announced{file.Little(18, 2), file.Little(20, 2), 8};
    }
    // Heights below 0 mean rows from the top.
    const auto height = static_cast<std::int32_t>(file.Little(22, 4));
    const std::int64_t rows = height;
    return Announced{file.Little(18, 4), static_cast<std::uint64_t>(rows < 0 ? -rows : rows), 128};
}

bool IsTga(std::string_view extension) {
    constexpr std::string_view tga = "tga";
    return std::equal(extension.begin(), extension.end(), tga.begin(), tga.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == b; });
}

std::optional<Announced> Announcement(const Bytes& file, std::string_view extension) {
    if (file.StartsWith("\x89PNG")) {
        // Deflate reaches 1,032 to 1, with 8 pixels to a byte at best.
        return Announced{file.Big(16, 4), file.Big(20, 4), 1032 * 8};
    }
    if (file.StartsWith("GIF8")) {
        return Gif(file);
    }
    if (file.StartsWith("\xFF\xD8")) {
        return Jpeg(file);
    }
    if (file.StartsWith("BM")) {
        return Bitmap(file);
    }
    if (IsTga(extension)) {
        if (file.Size() <= 18) {
            return Announced{};
        }
        return Announced{file.Little(12, 2), file.Little(14, 2), 128};
    }
    return std::nullopt;
}

}  // namespace

bool CouldHoldItsPicture(std::span<const std::byte> file, std::string_view extension) {
    const auto announced = Announcement(Bytes(file), extension);
    if (!announced) {
        return true;  // for the decoder to judge
    }
    return announced->width > 0 && announced->height > 0 &&
           announced->height <= file.size() * announced->perByte / announced->width;
}

}  // namespace Platform
