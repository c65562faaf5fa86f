#pragma once
// One number for everything that a computation gave, down to the last bit.

#include <bit>
#include <cstdint>

#include "engine/Vector2.h"

class Fingerprint {
public:
    void Add(std::uint32_t word) {
        for (int shift = 0; shift < 32; shift += 8) {
            value = (value ^ ((word >> shift) & 255)) * 1099511628211u;
        }
    }
    void Add(float number) { Add(std::bit_cast<std::uint32_t>(number)); }
    void Add(Vector2 vector) {
        Add(vector.x);
        Add(vector.y);
    }

    std::uint64_t value = 14695981039346656037u;
};
