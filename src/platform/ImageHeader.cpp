// Announced sizes and forms of the kinds of image files that go to a decoder. The walks below
// step through a file as the decoders do, so that both come upon the same picture.

#include "platform/ImageHeader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <optional>

#include "platform/ImageBounds.h"

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

/// Pixels announced, and how many of them a byte of the file can stand for at best. Sizes of 0
/// are what a header gives that isn't whole or that no decoder should see.
struct Announced {
    std::uint64_t width = 0;
    std::uint64_t height = 0;
    std::uint64_t perByte = 1;
};

/// Whether chunk follows chunk up to the last one. The decoder doesn't notice that a file ends,
/// and may take its last chunk again and again.
bool HoldsPngChunks(const Bytes& file) {
    constexpr std::uint64_t lastMark = 0x49454E44;  // "IEND"
    constexpr std::size_t around = 12;              // length, mark and checksum
    std::size_t at = 8;
    while (at + around <= file.Size()) {
        const bool isLast = file.Big(at + 4, 4) == lastMark;
        at += around + static_cast<std::size_t>(file.Big(at, 4));
        if (isLast) {
            return at <= file.Size();
        }
    }
    return false;
}

/// The header comes first of all, whole.
Announced Png(const Bytes& file) {
    constexpr std::uint64_t headerMark = 0x0000000D49484452;  // 13 bytes, "IHDR"
    if (file.Big(8, 8) != headerMark || !HoldsPngChunks(file)) {
        return {};
    }
    // Deflate reaches 1,032 to 1, with 8 pixels to a byte at best.
    return Announced{file.Big(16, 4), file.Big(20, 4), std::uint64_t{1032} * 8};
}

/// The bits of a GIF picture: codes that lie across blocks of up to 255 bytes.
class GifBits {
public:
    GifBits(const Bytes& bytes, std::size_t start) : file(bytes), at(start) {}

    /// The next code of that many bits; none behind the last block.
    std::optional<std::uint32_t> Take(unsigned width) {
        while (count < width) {
            if (left == 0) {
                left = file.At(at++);
            }
            if (left == 0 || at >= file.Size()) {
                return std::nullopt;
            }
            bits |= static_cast<std::uint32_t>(file.At(at++)) << count;
            count += 8;
            --left;
        }
        const std::uint32_t code = bits & ((1u << width) - 1);
        bits >>= width;
        count -= width;
        return code;
    }

private:
    const Bytes& file;
    std::size_t at;
    std::uint64_t left = 0;  // bytes of the block
    std::uint32_t bits = 0;  // taken from the file, and how many
    unsigned count = 0;
};

/// Whether the codes of a GIF picture make sense, up to its last pixel or its end. The decoder
/// follows a code that isn't defined yet wherever it leads, and never ends where blocks are cut
/// off.
bool AreGifCodesSound(const Bytes& file, std::size_t at, std::uint64_t pixels) {
    constexpr std::uint32_t mostCodes = 4096;
    const auto colourBits = static_cast<unsigned>(file.At(at));
    if (colourBits < 1 || colourBits > 8) {
        return false;
    }
    const std::uint32_t clear = 1u << colourBits;
    const std::uint32_t end = clear + 1;
    std::array<std::uint32_t, mostCodes> lengths;  // in pixels
    lengths.fill(1);
    GifBits bits(file, at + 1);
    unsigned width = colourBits + 1;
    std::uint32_t next = clear + 2;
    std::uint32_t previous = 0;
    bool fresh = true;   // no code since the last clearing
    bool begun = false;  // any colour came
    while (pixels > 0) {
        const auto code = bits.Take(width);
        if (!code) {
            return false;
        }
        if (*code == clear) {
            if (begun && fresh) {
                return false;  // the decoder would take the second of two for a colour
            }
            width = colourBits + 1;
            next = clear + 2;
            fresh = true;
            continue;
        }
        if (fresh ? *code >= clear : *code > next) {
            return false;
        }
        if (*code == end) {
            return true;
        }
        const std::uint32_t length = *code == next ? lengths[previous] + 1 : lengths[*code];
        pixels -= std::min<std::uint64_t>(pixels, length);
        if (!fresh && next < mostCodes) {
            lengths[next] = lengths[previous] + 1;
            ++next;
            width += next == (1u << width) && width < 12 ? 1 : 0;
        }
        previous = *code;
        fresh = false;
        begun = true;
    }
    return true;
}

/// The size stands with the first image, behind any number of extension blocks.
Announced Gif(const Bytes& file) {
    constexpr std::uint64_t perByte = 4096;  // LZW: one code for as many pixels
    constexpr std::uint64_t timingLabel = 0xF9;
    const auto tableSize = [&file](std::size_t place) {
        const std::uint64_t flags = file.At(place);
        return flags & 0x80 ? std::size_t{3} << ((flags & 7) + 1) : std::size_t{0};
    };
    std::size_t at = 13 + tableSize(10);
    while (at < file.Size()) {
        if (file.At(at) == 0x2C) {
            const Announced result{file.Little(at + 5, 2), file.Little(at + 7, 2), perByte};
            const std::size_t codes = at + 10 + tableSize(at + 9);
            return AreGifCodesSound(file, codes, result.width * result.height) ? result
                                                                               : Announced{};
        }
        if (file.At(at) != 0x21) {
            ++at;  // the decoder skips what it doesn't know, byte by byte
            continue;
        }
        const bool emptyTiming = file.At(at + 1) == timingLabel && file.At(at + 2) == 0;
        if (emptyTiming) {
            return {};  // the decoder doesn't take this for the block's end
        }
        at += 2;
        while (at < file.Size() && file.At(at) != 0) {
            at += 1 + static_cast<std::size_t>(file.At(at));
        }
        ++at;
    }
    return {};
}

/// How often the file's pixels are gone over: 1, or more when they are coded in steps. Within
/// coded pixels the mark of a scan can't occur.
std::uint64_t Scans(const Bytes& file, std::size_t at) {
    std::uint64_t scans = 0;
    for (; at + 1 < file.Size(); ++at) {
        scans += file.Big(at, 2) == 0xFFDA;
    }
    return scans;
}

/// The size stands in the frame header, one of the segments behind the start.
Announced Jpeg(const Bytes& file) {
    // A block of 64 pixels takes a bit or two at least, and half of that when coded in steps.
    constexpr std::uint64_t perByte = 4096;
    constexpr std::uint64_t mostWork = 16 * mostImagePixels;  // some seconds
    std::size_t at = 2;
    while (at + 4 <= file.Size()) {
        const std::uint64_t marker = file.At(at + 1);
        if (file.At(at) != 0xFF || marker == 0xFF) {
            ++at;
            continue;
        }
        const bool lone = marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD7);
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) {
            const Announced result{file.Big(at + 7, 2), file.Big(at + 5, 2), perByte};
            // Four components are printing colours, whose meaning the decoder doesn't tell.
            const std::uint64_t components = file.At(at + 9);
            const bool fine = (components == 1 || components == 3) &&
                              IsBearableImage(result.width, result.height) &&
                              Scans(file, at) * result.width * result.height <= mostWork;
            return fine ? result : Announced{};
        }
        if (marker >= 0xD8 && marker <= 0xDA) {
            return {};  // no picture may start, end or go on before the frame header
        }
        at += lone ? 2 : 2 + std::max<std::size_t>(2, file.Big(at + 2, 2));
    }
    return {};
}

Announced Bitmap(const Bytes& file) {
    constexpr std::size_t oldHeader = 12;
    constexpr std::size_t newHeader = 40;  // or more
    const std::uint64_t headerSize = file.Little(14, 4);
    const std::uint64_t pixelsAt = file.Little(10, 4);
    const std::uint64_t depth = file.Little(headerSize == oldHeader ? 24 : 28, 2);
    constexpr std::array<std::uint64_t, 6> depths{1, 4, 8, 16, 24, 32};
    if (file.Size() < 26 || (headerSize != oldHeader && headerSize < newHeader) ||
        headerSize > file.Size() - 14 || pixelsAt >= file.Size() ||
        std::ranges::find(depths, depth) == depths.end()) {
        return {};
    }
    if (headerSize == oldHeader) {
        return Announced{file.Little(18, 2), file.Little(20, 2), 8};
    }
    // Heights below 0 mean rows from the top.
    const auto height = static_cast<std::int32_t>(file.Little(22, 4));
    const std::int64_t rows = height;
    return Announced{file.Little(18, 4), static_cast<std::uint64_t>(rows < 0 ? -rows : rows), 128};
}

/// Whether run-length packets from `at` on stand for that many pixels. Runs may go on into the
/// next row.
bool PacketsFill(const Bytes& file, std::size_t at, std::uint64_t pixels, std::size_t pixelBytes) {
    while (pixels > 0) {
        const std::uint64_t packet = file.At(at);
        const std::uint64_t length = std::min((packet & 0x7F) + 1, pixels);
        at += 1 + (packet & 0x80 ? pixelBytes : static_cast<std::size_t>(length) * pixelBytes);
        if (at > file.Size()) {
            return false;
        }
        pixels -= length;
    }
    return true;
}

/// Nothing checks a read while the pixels are decoded, so all of them must be there.
Announced Targa(const Bytes& file) {
    constexpr std::size_t headerSize = 18;
    const bool hasTable = file.At(1) != 0;
    const std::uint64_t type = file.At(2);
    const std::uint64_t plainType = type & ~std::uint64_t{8};
    const std::uint64_t entries = file.Little(5, 2);
    const std::size_t tableSize = hasTable ? entries * ((file.At(7) + 7) / 8) : 0;
    const std::uint64_t depth = file.At(16);
    const Announced result{file.Little(12, 2), file.Little(14, 2), 128};
    const bool indexed = plainType == 1 && hasTable && entries <= 256 && depth == 8;
    const bool coloured =
        plainType == 2 && (depth == 15 || depth == 16 || depth == 24 || depth == 32);
    const bool grey = plainType == 3 && depth == 8;
    if (!(indexed || coloured || grey) || !IsBearableImage(result.width, result.height)) {
        return {};
    }
    const std::size_t pixelBytes = (depth + 7) / 8;
    const std::size_t start = headerSize + file.At(0) + tableSize;
    const std::uint64_t pixels = result.width * result.height;
    const bool whole = type == plainType ? start + pixels * pixelBytes <= file.Size()
                                         : PacketsFill(file, start, pixels, pixelBytes);
    return whole ? result : Announced{};
}

bool IsTga(std::string_view extension) {
    constexpr std::string_view tga = "tga";
    return std::equal(extension.begin(), extension.end(), tga.begin(), tga.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == b; });
}

std::optional<ImageKind> KindOf(const Bytes& file, std::string_view extension) {
    if (IsTga(extension)) {
        return ImageKind::Tga;
    }
    if (file.StartsWith("\x89PNG\r\n\x1A\n")) {
        return ImageKind::Png;
    }
    if (file.StartsWith("GIF87a") || file.StartsWith("GIF89a")) {
        return ImageKind::Gif;
    }
    if (file.StartsWith("\xFF\xD8")) {
        return ImageKind::Jpeg;
    }
    if (file.StartsWith("BM")) {
        return ImageKind::Bmp;
    }
    return std::nullopt;
}

Announced Announcement(const Bytes& file, ImageKind kind) {
    switch (kind) {
        case ImageKind::Png:
            return Png(file);
        case ImageKind::Gif:
            return Gif(file);
        case ImageKind::Jpeg:
            return Jpeg(file);
        case ImageKind::Bmp:
            return Bitmap(file);
        case ImageKind::Tga:
            return Targa(file);
    }
    return {};
}

}  // namespace

std::optional<ImageKind> CheckedImageKind(std::span<const std::byte> file,
                                          std::string_view extension) {
    const Bytes bytes(file);
    const auto kind = KindOf(bytes, extension);
    const Announced announced = kind ? Announcement(bytes, *kind) : Announced{};
    const bool fine = IsBearableImage(announced.width, announced.height) &&
                      announced.height <= file.size() * announced.perByte / announced.width;
    return fine ? kind : std::nullopt;
}

}  // namespace Platform
