// Decoding of 32-bit TGA images from a block in memory.

#include "graphics/TgaReader.h"

#include <algorithm>
#include <array>
#include <new>
#include <span>

#include "platform/ImageBounds.h"

namespace {

constexpr std::size_t bytesPerPixel = 4;
constexpr std::uint32_t smallestSide = 4;

struct Header {
    std::size_t idLength;
    bool runLength;
    bool topFirst;
};

std::uint32_t Word(const std::array<std::uint8_t, 18>& bytes, std::size_t at) {
    return static_cast<std::uint32_t>(bytes[at] | bytes[at + 1] << 8);
}

bool ReadHeader(BufferedFile& file, TgaImage& image, Header& header) {
    std::array<std::uint8_t, 18> bytes{};
    file.Read(bytes.data(), bytes.size());
    if (file.HasFailed()) {
        return false;
    }
    const int type = bytes[2];
    const int descriptor = bytes[17];
    image.width = Word(bytes, 12);
    image.height = Word(bytes, 14);
    header.idLength = bytes[0];
    header.runLength = type == 10;
    header.topFirst = (descriptor & 0x20) != 0;
    return bytes[1] == 0 && (type == 2 || type == 10) && image.width >= smallestSide &&
           image.height >= smallestSide && Platform::IsBearableImage(image.width, image.height) &&
           bytes[16] == 32 && (descriptor & 1) == 0;
}

/// Goes over one row's packets; false if the file ends before the row does.
bool SkipRow(BufferedFile& file, std::size_t width) {
    for (std::size_t x = 0; x < width;) {
        std::uint8_t packet = 0;
        file.Read(&packet, 1);
        const std::size_t length = (packet & 0x7Fu) + 1u;
        const std::size_t stored = packet & 0x80u ? 1 : length;
        file.Seek(static_cast<std::ptrdiff_t>(stored * bytesPerPixel), BufferedFile::FromHere);
        if (file.HasFailed()) {
            return false;
        }
        x += length;
    }
    return true;
}

/// Whether all rows are there, told before any memory is taken for them: a few bytes announce
/// megabytes. Leaves the cursor where it was.
bool HoldsPicture(BufferedFile& file, const TgaImage& image, bool runLength) {
    const std::size_t before = file.Remaining();
    if (!runLength) {
        return before / bytesPerPixel >= std::size_t{image.width} * image.height;
    }
    for (std::uint32_t y = 0; y < image.height; ++y) {
        if (!SkipRow(file, image.width)) {
            return false;
        }
    }
    file.Seek(static_cast<std::ptrdiff_t>(before), BufferedFile::BackFromEnd);
    return !file.HasFailed();
}

/// Decodes one row that is there. A run that goes on beyond the row is cut there: the format
/// forbids it, and the rows below must stay in place.
void DecodeRow(BufferedFile& file, std::span<std::uint32_t> row) {
    std::size_t x = 0;
    while (x < row.size()) {
        std::uint8_t packet = 0;
        file.Read(&packet, 1);
        const std::size_t length = (packet & 0x7Fu) + 1u;
        const std::size_t shown = std::min(length, row.size() - x);
        if (packet & 0x80u) {
            std::uint32_t pixel = 0;
            file.Read(&pixel, bytesPerPixel);
            std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(x), shown, pixel);
        } else {
            file.Read(&row[x], shown * bytesPerPixel);
            file.Seek(static_cast<std::ptrdiff_t>((length - shown) * bytesPerPixel),
                      BufferedFile::FromHere);
        }
        x += shown;
    }
}

}  // namespace

bool ReadTga(BufferedFile& file, TgaImage& image) {
    image = {};
    Header header{};
    if (!file.IsOpen() || !ReadHeader(file, image, header)) {
        return false;
    }
    file.Seek(static_cast<std::ptrdiff_t>(header.idLength), BufferedFile::FromHere);
    if (file.HasFailed() || !HoldsPicture(file, image, header.runLength)) {
        return false;
    }
    try {
        image.pixels.resize(std::size_t{image.width} * image.height);
    } catch (const std::bad_alloc&) {
        return false;
    }
    for (std::size_t y = 0; y < image.height; ++y) {
        const std::size_t place = header.topFirst ? y : image.height - 1 - y;
        const std::span row(image.pixels.data() + place * image.width, image.width);
        if (header.runLength) {
            DecodeRow(file, row);
        } else {
            file.Read(row.data(), row.size() * bytesPerPixel);
        }
    }
    return true;
}
