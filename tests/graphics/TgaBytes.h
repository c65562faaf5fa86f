#pragma once
// TGA images put together byte by byte, for tests of reading them.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/BufferedFile.h"

namespace TgaBytes {

/// Fields of the header; what isn't named here is 0.
struct Header {
    int type = 2;
    int width = 4;
    int height = 4;
    int depth = 32;
    int descriptor = 8;
    int idLength = 0;
    int colourMap = 0;
};

inline std::string HeaderBytes(const Header& header) {
    std::string bytes(18, '\0');
    const auto set = [&bytes](std::size_t at, int value) { bytes[at] = static_cast<char>(value); };
    set(0, header.idLength);
    set(1, header.colourMap);
    set(2, header.type);
    set(12, header.width & 255);
    set(13, header.width >> 8);
    set(14, header.height & 255);
    set(15, header.height >> 8);
    set(16, header.depth);
    set(17, header.descriptor);
    return bytes + std::string(static_cast<std::size_t>(header.idLength), 'i');
}

inline std::string Pixel(std::uint32_t word, int bytes = 4) {
    std::string result;
    for (int i = 0; i < bytes; ++i) {
        result += static_cast<char>(word >> (8 * i));
    }
    return result;
}

inline std::string Repeated(int count, std::uint32_t word) {
    return static_cast<char>(127 + count) + Pixel(word);
}

inline std::string Raw(const std::vector<std::uint32_t>& words) {
    std::string result(1, static_cast<char>(words.size() - 1));
    for (const std::uint32_t word : words) {
        result += Pixel(word);
    }
    return result;
}

/// A block in memory as an open file.
class MemoryFile : public BufferedFile {
public:
    explicit MemoryFile(const std::string& bytes) { MemoryFile::Open(bytes); }
    void Open(const std::string& bytes) override {
        const auto* first = reinterpret_cast<const std::byte*>(bytes.data());
        Adopt(std::vector<std::byte>(first, first + bytes.size()));
    }
};

}  // namespace TgaBytes
