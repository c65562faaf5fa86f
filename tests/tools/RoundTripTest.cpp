// A level that is decompiled and compiled again has the same bytes, whatever it holds.

#include <bit>
#include <limits>
#include <random>

#include "ToolRun.h"

namespace {

class RandomLevel {
public:
    explicit RandomLevel(unsigned seed) : engine(seed) {}

    LevelFile Make() {
        LevelFile level;
        level.polygons.resize(Below(12));
        for (auto& polygon : level.polygons) {
            polygon = {U32(),   Name(),   1 + Below(5), Below(3) == 0 ? U32() : Below(5),
                       Layer(), Outline()};
        }
        level.objects.resize(Below(5));
        for (auto& object : level.objects) {
            object = {U32(), Name(), Layer(), Point(), Byte()};
        }
        level.forces.resize(Below(5));
        for (auto& force : level.forces) {
            force = {U32(), Point(), {Float(), Float()}, Float()};
        }
        level.movers.resize(Below(5));
        for (auto& mover : level.movers) {
            mover = {U32(), Float(), Point(), Point()};
        }
        level.triggers.resize(Below(9));
        for (auto& trigger : level.triggers) {
            const auto type = static_cast<std::uint32_t>(static_cast<int>(Below(903)) - 1);
            trigger = {U32(), Below(4) == 0 ? U32() : type, Float(), {}};
            for (auto& corner : trigger.corners) {
                corner = Point();
            }
            if (Below(2) == 0) {
                trigger.corners[1] = {trigger.corners[2].x, trigger.corners[0].y};
                trigger.corners[3] = {trigger.corners[0].x, trigger.corners[2].y};
            }
        }
        level.sounds.resize(Below(5));
        for (auto& sound : level.sounds) {
            const auto strength = static_cast<std::int32_t>(U32() & 0x7FFFFFFFu);
            sound = {U32(), Point(), strength, Byte(), Name()};
        }
        level.emitters.resize(Below(5));
        for (auto& emitter : level.emitters) {
            emitter = {U32(), Point(), {Float(), Float()}, Name()};
        }
        level.waterStart = Point();
        level.cameraStart = Point();
        return level;
    }

private:
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(engine() % limit);
    }
    std::uint32_t U32() {
        const std::uint32_t word = static_cast<std::uint32_t>(engine());
        return Below(2) == 0 ? word : word % 10;
    }
    /// Small numbers, so that points meet and lie in line; the whole range now and then.
    std::int32_t Coordinate() {
        return Below(8) == 0 ? static_cast<std::int32_t>(engine())
                             : static_cast<std::int32_t>(Below(41)) - 20;
    }
    LevelFile::Point Point() {
        const std::int32_t x = Coordinate();
        return {x, Coordinate()};
    }
    std::vector<LevelFile::Point> Outline() {
        std::vector<LevelFile::Point> points(Below(9));
        for (auto& point : points) {
            point = Point();
        }
        return points;
    }
    std::int32_t Layer() {
        // Ascending and mixed layers are laid out differently.
        static std::int32_t last = 0;
        last = Below(3) == 0 ? static_cast<std::int32_t>(Below(5)) : std::min(last + 1, 4);
        return last;
    }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(2) == 0 ? Below(2) : Below(256)); }
    float Float() {
        switch (Below(4)) {
            case 0:
                return static_cast<float>(static_cast<int>(Below(200)) - 100);
            case 1:
                return -0.0f;
            case 2:
                return std::numeric_limits<float>::denorm_min() * static_cast<float>(Below(9));
            default:
                const float any = std::bit_cast<float>(static_cast<std::uint32_t>(engine()));
                return any - any == 0.0f ? any : 0.1f;
        }
    }
    std::string Name() {
        std::string name = Below(2) == 0 ? "img\\50%/\xC3\xA4.png" : "";
        for (std::uint32_t length = Below(12); length > 0; --length) {
            name += static_cast<char>(Below(256));
        }
        return name;
    }

    std::mt19937 engine;
};

using RoundTrip = ToolTest;

TEST_F(RoundTrip, GivesTheSameBytesForAnyLevel) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        WriteLevel("a.swah", RandomLevel(seed).Make());
        ASSERT_EQ(Run("decompile a.swah -o a.tmj").error, "") << seed;
        ASSERT_EQ(Run("compile a.tmj -o b.swah").error, "") << seed;
        ASSERT_EQ(Read("a.swah"), Read("b.swah")) << seed;
    }
}

TEST_F(RoundTrip, MarksOnlyOutlinesThatTidyingWouldChange) {
    LevelFile level;
    level.polygons = {Box(0, 0, 10, 10), Box(20, 0, 30, 10)};
    std::swap(level.polygons[1].points[1], level.polygons[1].points[3]);
    WriteLevel("a.swah", level);
    Run("decompile a.swah -o a.tmj");
    const std::string map = Read("a.tmj");
    EXPECT_NE(map.find("\"exact\""), std::string::npos);
    EXPECT_EQ(map.find("\"exact\""), map.rfind("\"exact\""));
}

}  // namespace
