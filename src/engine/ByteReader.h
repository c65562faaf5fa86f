#pragma once
// Bounded reading of little-endian binary blocks. A read that would leave the block gives
// zeros and fails the reader; the failure sticks, and the cursor stays where it was, so a
// parser may read a whole record and ask once. Counts and lengths come from the file and
// are to be checked against `Remaining` before anything is made from them.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

class ByteReader {
public:
    explicit ByteReader(std::span<const std::byte> source) : block(source) {}

    std::uint8_t U8() { return static_cast<std::uint8_t>(Unsigned(1)); }
    std::uint16_t U16() { return static_cast<std::uint16_t>(Unsigned(2)); }
    std::uint32_t U32() { return Unsigned(4); }
    std::int32_t I32() { return static_cast<std::int32_t>(Unsigned(4)); }
    /// Any bit pattern: infinities and NaNs come through.
    float F32() { return std::bit_cast<float>(Unsigned(4)); }

    /// The next `count` bytes, in place; empty if there aren't as many.
    std::span<const std::byte> Bytes(std::size_t count) {
        if (failed || count > Remaining()) {
            failed = true;
            return {};
        }
        const auto bytes = block.subspan(position, count);
        position += count;
        return bytes;
    }
    void Skip(std::size_t count) { Bytes(count); }

    std::size_t Position() const { return position; }
    std::size_t Remaining() const { return block.size() - position; }
    /// Whether any read so far would have left the block.
    bool HasFailed() const { return failed; }

private:
    std::uint32_t Unsigned(std::size_t count) {
        std::uint32_t value = 0;
        unsigned shift = 0;
        for (const std::byte b : Bytes(count)) {
            value |= std::to_integer<std::uint32_t>(b) << shift;
            shift += 8;
        }
        return value;
    }

    std::span<const std::byte> block;
    std::size_t position = 0;
    bool failed = false;
};
