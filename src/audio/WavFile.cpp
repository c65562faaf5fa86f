// Walking a RIFF file to its data.

#include "audio/WavFile.h"

#include <cstdint>

#include "engine/ByteReader.h"

namespace {

// Four-character marks as they read in little-endian order.
constexpr std::uint32_t Mark(const char (&text)[5]) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i) {
        value = value << 8 | static_cast<unsigned char>(text[i]);
    }
    return value;
}

constexpr std::uint16_t pcmTag = 1;
constexpr std::uint32_t plainFormatSize = 16;

/// The header and the format chunk; leaves the reader behind it.
std::optional<Platform::PcmFormat> ReadFormat(ByteReader& reader) {
    const bool riff = reader.U32() == Mark("RIFF");
    reader.U32();  // The file's size, which many writers get wrong.
    const bool wave = reader.U32() == Mark("WAVE") && reader.U32() == Mark("fmt ");
    const std::uint32_t formatSize = reader.U32();
    const std::uint16_t tag = reader.U16();
    Platform::PcmFormat format;
    format.channels = reader.U16();
    format.rate = reader.U32();
    const std::uint32_t bytesPerSecond = reader.U32();
    const std::uint16_t blockAlignment = reader.U16();
    format.bits = reader.U16();
    if (formatSize > plainFormatSize) {
        reader.Skip(formatSize - plainFormatSize);
    }
    const bool whole = format.rate != 0 && bytesPerSecond != 0 && blockAlignment != 0 &&
                       format.bits != 0 && (format.channels == 1 || format.channels == 2);
    if (reader.HasFailed() || !riff || !wave || tag != pcmTag || !whole) {
        return std::nullopt;
    }
    return format;
}

}  // namespace

std::optional<WavFile> WavFile::Parse(std::span<const std::byte> file) {
    ByteReader reader(file);
    const auto format = ReadFormat(reader);
    while (format && !reader.HasFailed()) {
        const std::uint32_t id = reader.U32();
        const std::uint32_t size = reader.U32();
        const auto bytes = reader.Bytes(size);
        if (id == Mark("data")) {
            return bytes.empty() ? std::nullopt : std::optional(WavFile{*format, bytes});
        }
    }
    return std::nullopt;
}
