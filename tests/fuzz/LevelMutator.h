#pragma once
// Changes of level files that keep them level files: half of all mutations are made to the
// records of a parsed file, which bytes alone would seldom get past the counts. Included by the
// harnesses that take level files.

#include "level/LevelFile.h"

#ifdef VANTREL_LIBFUZZER

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

class LevelMutator {
public:
    LevelMutator(LevelFile& level, unsigned seed) : file(level), dice(seed) {}

    void Change() {
        switch (Below(9)) {
            case 0:
                return ChangeOne(file.polygons);
            case 1:
                return ChangeOne(file.objects);
            case 2:
                return ChangeOne(file.forces);
            case 3:
                return ChangeOne(file.movers);
            case 4:
                return ChangeOne(file.triggers);
            case 5:
                return ChangeOne(file.sounds);
            case 6:
                return ChangeOne(file.emitters);
            case 7:
                return Move(file.waterStart);
            default:
                return Move(file.cameraStart);
        }
    }

private:
    std::size_t Below(std::size_t count) { return dice() % count; }

    template <typename Record>
    void ChangeOne(std::vector<Record>& records) {
        const std::size_t action = Below(8);
        if (action == 0 || records.empty()) {
            records.insert(records.begin() + static_cast<std::ptrdiff_t>(Below(records.size() + 1)),
                           records.empty() ? Record{} : records[Below(records.size())]);
        } else if (action == 1) {
            records.erase(records.begin() + static_cast<std::ptrdiff_t>(Below(records.size())));
        } else {
            Fields(records[Below(records.size())]);
        }
    }

    void Fields(LevelFile::Polygon& p) {
        switch (Below(5)) {
            case 0:
                p.surface = static_cast<std::uint32_t>(1 + Below(5));
                break;
            case 1:
                p.flags = static_cast<std::uint32_t>(Below(4));
                break;
            case 2:
                Id(p.id);
                break;
            case 3:
                p.layer = static_cast<std::int32_t>(Below(5));
                break;
            default:
                return ChangeOne(p.points);
        }
    }
    void Fields(LevelFile::Point& p) { Move(p); }
    void Fields(LevelFile::Object& o) { Below(2) ? Id(o.id) : Move(o.position); }
    void Fields(LevelFile::Force& f) {
        switch (Below(4)) {
            case 0:
                return Id(f.id);
            case 1:
                return Move(f.position);
            case 2:
                return Number(Below(2) ? f.direction.x : f.direction.y);
            default:
                return Number(f.strength);
        }
    }
    void Fields(LevelFile::Mover& m) {
        switch (Below(4)) {
            case 0:
                return Id(m.id);
            case 1:
                return Move(m.start);
            case 2:
                return Move(m.end);
            default:
                return Number(m.speed);
        }
    }
    void Fields(LevelFile::Trigger& t) {
        switch (Below(4)) {
            case 0:
                return Id(t.targetId);
            case 1:
                t.type = static_cast<std::uint32_t>(Below(12) * 100 + Below(8));
                break;
            case 2:
                return Number(t.delay);
            default:
                return Move(t.corners[Below(4)]);
        }
    }
    void Fields(LevelFile::Sound& s) { Below(2) ? Id(s.id) : Move(s.position); }
    void Fields(LevelFile::Emitter& e) { Below(2) ? Id(e.id) : Move(e.position); }

    void Id(std::uint32_t& id) { id = static_cast<std::uint32_t>(Below(6)); }
    void Move(LevelFile::Point& p) { Coordinate(Below(2) ? p.x : p.y); }
    void Coordinate(std::int32_t& c) {
        switch (Below(4)) {
            case 0:
                c = static_cast<std::int32_t>(dice());
                break;
            case 1:
                c = static_cast<std::int32_t>(Below(1000));
                break;
            case 2:
                c = file.waterStart.x;
                break;
            default:
                c = static_cast<std::int32_t>(static_cast<std::uint32_t>(c) + Below(65) - 32);
        }
    }
    void Number(float& value) {
        constexpr float odd[] = {0.0f, 1.0f, -1.0f, 0.001f, 1e9f, -1e30f, 3e38f};
        value = Below(4) == 0 ? std::bit_cast<float>(static_cast<std::uint32_t>(dice()))
                              : odd[Below(std::size(odd))];
    }

    LevelFile& file;
    std::mt19937 dice;
};

extern "C" inline std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                                      std::size_t most, unsigned seed) {
    std::string reason;
    std::uint32_t version = 0;
    auto file = seed % 2 == 0
                    ? LevelFile::Parse(std::as_bytes(std::span(data, size)), reason, version)
                    : std::nullopt;
    if (file) {
        LevelMutator(*file, seed).Change();
        const auto bytes = file->Serialise();
        if (bytes.size() <= most) {
            std::memcpy(data, bytes.data(), bytes.size());
            return bytes.size();
        }
    }
    return LLVMFuzzerMutate(data, size, most);
}

#endif
