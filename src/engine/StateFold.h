#pragma once
// Folds values into one number that tells states apart: the same values in the same order give
// the same number on every machine, and one bit of difference gives another. Each room has a
// function that hands all of its records over, field by field.
//
// Such a function takes its record apart by a structured binding, so that it no longer compiles
// when a field comes or goes, and says of each field whether it is state.

#include <bit>
#include <concepts>
#include <cstdint>
#include <type_traits>

#include "engine/Vector2.h"

class StateFold {
public:
    /// Takes numbers, truth values, enumerators and vectors; floats bit by bit.
    template <class... Values>
    void Add(const Values&... values) {
        (Take(values), ...);
    }
    std::uint64_t Value() const { return value; }

private:
    /// FNV-1a over words; the shift brings what the upper bits hold down to where the next
    /// multiplication spreads it.
    void TakeWord(std::uint64_t word) {
        value = (value ^ word) * 0x100000001B3u;
        value ^= value >> 32;
    }
    template <class Number>
    requires std::integral<Number> || std::is_enum_v<Number>
    void Take(Number number) { TakeWord(static_cast<std::uint64_t>(number)); }
    void Take(float number) { TakeWord(std::bit_cast<std::uint32_t>(number)); }
    void Take(double number) { TakeWord(std::bit_cast<std::uint64_t>(number)); }
    void Take(Vector2 v) { Add(v.x, v.y); }

    std::uint64_t value = 0xCBF29CE484222325u;
};
