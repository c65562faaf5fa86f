#pragma once
// Changes of level files that keep them level files: half of all mutations double records or take
// them out, which bytes alone would seldom get past the counts. Included by the harnesses that
// take level files.

#include "fuzz/Harness.h"
#include "level/LevelFile.h"

#ifdef VANTREL_LIBFUZZER

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

/// Doubles a record, or takes one out.
template <typename Record>
void ChangeCount(std::vector<Record>& records, std::mt19937& dice) {
    const auto place = [&](std::size_t count) {
        return records.begin() + static_cast<std::ptrdiff_t>(dice() % count);
    };
    if (records.empty()) {
        records.emplace_back();
    } else if (dice() % 2 == 0) {
        records.insert(place(records.size() + 1), Record(*place(records.size())));
    } else {
        records.erase(place(records.size()));
    }
}

inline void ChangeRecords(LevelFile& level, std::mt19937& dice) {
    switch (dice() % 8) {
        case 0:
            return ChangeCount(level.polygons, dice);
        case 1:
            return ChangeCount(level.objects, dice);
        case 2:
            return ChangeCount(level.forces, dice);
        case 3:
            return ChangeCount(level.movers, dice);
        case 4:
            return ChangeCount(level.triggers, dice);
        case 5:
            return ChangeCount(level.sounds, dice);
        case 6:
            return ChangeCount(level.emitters, dice);
        default:
            if (!level.polygons.empty()) {
                ChangeCount(level.polygons[dice() % level.polygons.size()].points, dice);
            }
    }
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    std::string reason;
    std::uint32_t version = 0;
    auto file = seed % 2 == 0
                    ? LevelFile::Parse(std::as_bytes(std::span(data, size)), reason, version)
                    : std::nullopt;
    if (file) {
        std::mt19937 dice(seed);
        ChangeRecords(*file, dice);
        const auto bytes = file->Serialise();
        if (bytes.size() <= most) {
            std::memcpy(data, bytes.data(), bytes.size());
            return bytes.size();
        }
    }
    return LLVMFuzzerMutate(data, size, most);
}

#endif
