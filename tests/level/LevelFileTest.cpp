// The parser of level files: what it takes, why it refuses, and that it trusts nothing.

#include "level/LevelFile.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "support/CountedAllocations.h"
#include "support/TestLevelFile.h"

namespace {

constexpr const char* shortRead = "Unable to read file";

std::string ReasonFor(std::span<const std::byte> bytes) {
    std::string reason = "none";
    std::uint32_t version = 0;
    const auto file = LevelFile::Parse(bytes, reason, version);
    EXPECT_EQ(file.has_value(), reason == "none");
    return reason;
}

std::string ReasonFor(const LevelFile& file) {
    return ReasonFor(file.Serialise());
}

/// The rich file with one thing changed.
template <typename Change>
std::string ReasonAfter(Change change) {
    LevelFile file = TestLevelFile::Rich();
    change(file);
    return ReasonFor(file);
}

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

}  // namespace

TEST(LevelFile, ComesBackFromItsBytesWhole) {
    const auto bytes = TestLevelFile::Rich().Serialise();
    std::string reason;
    std::uint32_t version = 0;
    const auto file = LevelFile::Parse(bytes, reason, version);
    ASSERT_TRUE(file.has_value()) << reason;
    EXPECT_EQ(version, 12u);
    EXPECT_EQ(file->Serialise(), bytes);
    ASSERT_EQ(file->polygons.size(), 3u);
    EXPECT_EQ(file->polygons[0].texture, "tex\\stone.tga");
    EXPECT_EQ(file->polygons[0].points[2], (LevelFile::Point{100, 50}));
    EXPECT_EQ(file->triggers[0].type, 300u);
    EXPECT_EQ(file->triggers[0].corners[2], (LevelFile::Point{1, 1}));
    EXPECT_EQ(file->sounds[0].strength, 300);
    EXPECT_EQ(file->emitters[1].direction, (Vector2{1.0f, 0.0f}));
    EXPECT_EQ(file->cameraStart, (LevelFile::Point{13, -14}));
}

TEST(LevelFile, TakesTheSmallestFileAndIgnoresTrailingBytes) {
    auto bytes = LevelFile().Serialise();
    EXPECT_EQ(bytes.size(), 52u);
    EXPECT_EQ(bytes[0], std::byte{0x97});
    EXPECT_EQ(bytes[3], std::byte{0x00});
    EXPECT_EQ(ReasonFor(bytes), "none");
    bytes.resize(bytes.size() + 100, std::byte{0xFF});
    EXPECT_EQ(ReasonFor(bytes), "none");
}

TEST(LevelFile, RefusesAFileThatEndsAnywhereTooEarly) {
    const auto bytes = TestLevelFile::Rich().Serialise();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        // A copy of that size, so that a read behind its end is seen by sanitizers.
        const std::vector<std::byte> part(bytes.begin(),
                                          bytes.begin() + static_cast<std::ptrdiff_t>(size));
        ASSERT_EQ(ReasonFor(part), shortRead) << size;
    }
}

TEST(LevelFile, RefusesValuesOutOfRangeWithTheirReason) {
    const auto surface = [](std::uint32_t value) {
        return ReasonAfter([&](LevelFile& file) { file.polygons[1].surface = value; });
    };
    EXPECT_EQ(surface(0), "Invalid surface type encountered.");
    EXPECT_EQ(surface(6), "Invalid surface type encountered.");
    EXPECT_EQ(surface(0x80000001), "Invalid surface type encountered.");
    EXPECT_EQ(surface(1), "none");
    for (const std::int32_t layer : {-1, 5}) {
        EXPECT_EQ(ReasonAfter([&](LevelFile& file) { file.polygons[0].layer = layer; }),
                  "Invalid polygon layer.");
        EXPECT_EQ(ReasonAfter([&](LevelFile& file) { file.objects[1].layer = layer; }),
                  "Invalid polygon layer.");
    }
    EXPECT_EQ(ReasonAfter([](LevelFile& file) { file.sounds[1].strength = -1; }),
              "Invalid sound source strenght.");
    EXPECT_EQ(ReasonAfter([](LevelFile& file) { file.polygons[0].flags = 0xFFFFFFFF; }), "none");
}

TEST(LevelFile, RefusesFloatsThatAreNotFiniteAndNamesTheRecord) {
    const auto expect = [](const std::string& record, auto change) {
        EXPECT_EQ(ReasonAfter(change), record + " holds a number that is not finite.");
    };
    expect("Force 0", [](LevelFile& f) { f.forces[0].direction.x = notANumber; });
    expect("Force 0", [](LevelFile& f) { f.forces[0].direction.y = infinity; });
    expect("Force 0", [](LevelFile& f) { f.forces[0].strength = -infinity; });
    expect("Mover 1", [](LevelFile& f) { f.movers[1].speed = notANumber; });
    expect("Trigger 1", [](LevelFile& f) { f.triggers[1].delay = infinity; });
    expect("Emitter 1", [](LevelFile& f) { f.emitters[1].direction.y = notANumber; });
}

TEST(LevelFile, BoundsWhatItsTriggersActOn) {
    const auto reason = [](std::uint32_t type, std::size_t triggers, std::size_t forces) {
        return ReasonAfter([&](LevelFile& f) {
            f.triggers.assign(triggers, {3, type, 0.0f, {}});
            f.forces.assign(forces, {3, {}, {1.0f, 0.0f}, 1.0f});
        });
    };
    EXPECT_EQ(reason(200, 1000, 100), "none");
    EXPECT_EQ(reason(200, 1000, 101), "Too many targets of triggers in level.");
    EXPECT_EQ(reason(200, 65535, 65535), "Too many targets of triggers in level.");
    EXPECT_EQ(reason(401, 65535, 65535), "none") << "movers only";
    EXPECT_EQ(reason(777, 65535, 65535), "none") << "a type without effect";
}

TEST(LevelFile, HoldsNamesToTheirLimits) {
    LevelFile file = TestLevelFile::Rich();
    const auto expect = [&](std::string& name, std::size_t most, const char* reason) {
        name.assign(most, 'x');
        EXPECT_EQ(ReasonFor(file), "none") << reason;
        name += 'x';
        EXPECT_EQ(ReasonFor(file), reason);
        name.clear();
    };
    expect(file.polygons[1].texture, 65535, "\nPolygon texture name too long.");
    expect(file.objects[0].texture, 65534, "Object texture name too long.");
    expect(file.sounds[0].sound, 65535, "Sound source sound name too long.");
    expect(file.emitters[0].settings, 65535, "Emitter settings file name too long.");
}

TEST(LevelFile, TakesSectionsUpToTheirLimit) {
    LevelFile file;
    file.polygons.resize(65535);
    file.objects.resize(65535);
    file.forces.resize(65535);
    file.movers.resize(65535);
    file.triggers.resize(65535);
    file.sounds.resize(65535);
    file.emitters.resize(65535);
    file.polygons[65534].points.resize(65535);
    EXPECT_EQ(ReasonFor(file), "none");
    file.polygons[65534].points.resize(65536);
    EXPECT_EQ(ReasonFor(file), "Too many polygon points.");
}

TEST(LevelFile, TakesNoRoomForCountsThatLie) {
    const std::array<const char*, 7> tooMany{
        "Too many polygons in level.", "Too many objects in level",   "Too many forces in level.",
        "Too many movers in level.",   "Too many triggers in level.", "Too many sounds in level.",
        "Too many emitters in level."};
    for (std::size_t section = 0; section < tooMany.size(); ++section) {
        auto bytes = LevelFile().Serialise();
        bytes.resize(12 + 4 * section);
        TestLevelFile::Patch(bytes, 8 + 4 * section, 65535);
        largestAllocation = 0;
        EXPECT_EQ(ReasonFor(bytes), shortRead);
        for (const std::uint32_t count : {65536u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
            TestLevelFile::Patch(bytes, 8 + 4 * section, count);
            EXPECT_EQ(ReasonFor(bytes), tooMany[section]);
        }
        EXPECT_LT(largestAllocation, 1000u) << section;
    }
}

TEST(LevelFile, TakesNoRoomForLengthsThatLie) {
    LevelFile file;
    file.polygons.push_back(TestLevelFile::Box(0, 0, 1, 1));
    const auto bytes = file.Serialise();
    constexpr std::size_t nameLength = 16;
    constexpr std::size_t pointCount = 32;
    largestAllocation = 0;
    for (const std::size_t field : {nameLength, pointCount}) {
        auto lying = bytes;
        TestLevelFile::Patch(lying, field, 65535);
        EXPECT_EQ(ReasonFor(lying), shortRead);
    }
    EXPECT_LT(largestAllocation, 1000u);
}
