#pragma once
// The common CRC-32, to tell whether bytes are still the same.

#include <cstddef>
#include <cstdint>
#include <span>

std::uint32_t Crc32(std::span<const std::byte> bytes);
