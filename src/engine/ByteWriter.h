#pragma once
// Builds a little-endian binary block, the counterpart of ByteReader.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class ByteWriter {
public:
    void U8(std::uint8_t value) { Unsigned(value, 1); }
    void U16(std::uint16_t value) { Unsigned(value, 2); }
    void U32(std::uint32_t value) { Unsigned(value, 4); }
    void I32(std::int32_t value) { Unsigned(static_cast<std::uint32_t>(value), 4); }
    void F32(float value) { Unsigned(std::bit_cast<std::uint32_t>(value), 4); }
    void Bytes(std::span<const std::byte> bytes) {
        block.insert(block.end(), bytes.begin(), bytes.end());
    }

    /// What was written so far.
    const std::vector<std::byte>& Block() const { return block; }

private:
    void Unsigned(std::uint32_t value, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            block.push_back(static_cast<std::byte>(value >> (8 * i)));
        }
    }

    std::vector<std::byte> block;
};
