#include "engine/Crc32.h"

std::uint32_t Crc32(std::span<const std::byte> bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const std::byte b : bytes) {
        crc ^= std::to_integer<std::uint32_t>(b);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ ((crc & 1u) != 0 ? 0xEDB88320 : 0u);
        }
    }
    return ~crc;
}
