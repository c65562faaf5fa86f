// Recorded runs as files.

#include "game/RunFile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Paths.h"
#include "platform/WholeFile.h"
#include "support/TemporaryDirectory.h"

namespace {

Run SampleRun() {
    Run run{"lev\\a.swah", 0xCBF43926, 77, {}, 1066.6666f, 600.0f, 0, 0, {}};
    run.steps.assign(5000, {0.016f, 0.0f});
    run.steps.insert(run.steps.end(), 300, {0.017f, -130.25f});
    run.steps.insert(run.steps.end(), 2, {0.017f, -0.0f, RunStep::Menu | RunStep::Unsteered});
    return run;
}

/// As it was played from end to end.
Run PlayedRun() {
    Run run = SampleRun();
    run.settings = 0x12345678;
    run.hashKind = 7;
    for (std::uint64_t i = 0; i < run.HashCount(); ++i) {
        run.hashes.push_back(0x0123456789ABCDEF * i);
    }
    return run;
}

struct RunFileTest : testing::Test {
    std::string Path() const { return (directory.path / "a.run").string(); }
    std::vector<std::byte> Written(const ::Run& run) const {
        EXPECT_TRUE(WriteRun(Path(), run));
        return Platform::ReadWholeFile(Path()).value();
    }
    TemporaryDirectory directory;
    std::string reason;
};

TEST_F(RunFileTest, ComesBackAsItWasAndIsSmall) {
    const ::Run run = SampleRun();
    EXPECT_LT(Written(run).size(), 100u);
    const auto read = ReadRun(Path(), reason);
    ASSERT_TRUE(read) << reason;
    EXPECT_EQ(*read, run);
    EXPECT_TRUE(std::signbit(read->steps.back().turn));
    EXPECT_LT(Written(PlayedRun()).size(), 300u);
    EXPECT_EQ(ReadRun(Path(), reason), PlayedRun()) << reason;
}

TEST_F(RunFileTest, IsRefusedWhenCutOffOrContinued) {
    for (const ::Run& run : {SampleRun(), PlayedRun()}) {
        auto bytes = Written(run);
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            EXPECT_FALSE(ParseRun(std::span(bytes).first(size), reason)) << size;
            EXPECT_FALSE(reason.empty());
        }
        bytes.push_back({});
        EXPECT_FALSE(ParseRun(bytes, reason));
        EXPECT_EQ(reason, "something follows its end");
    }
}

TEST_F(RunFileTest, IsRefusedWhenItsContentIsBad) {
    const auto bytes = Written(SampleRun());
    const std::size_t count = 4 + 2 + 1 + 10 + 16;  // of the steps; the first block follows it
    const std::size_t block = count + 4;
    const auto isRefused = [&](std::size_t offset, std::uint32_t value, std::size_t size) {
        auto changed = bytes;
        for (std::size_t i = 0; i < size; ++i) {
            changed[offset + i] = static_cast<std::byte>(value >> (8 * i));
        }
        return !ParseRun(changed, reason);
    };
    EXPECT_TRUE(isRefused(0, 0, 4)) << "foreign";
    EXPECT_TRUE(isRefused(4, 3, 2)) << "another version";
    EXPECT_TRUE(isRefused(7, 10, 1)) << "a line break in the name";
    EXPECT_TRUE(isRefused(count - 8, 0x7FC00000, 4)) << "no number as width";
    EXPECT_TRUE(isRefused(count, 0xFFFFFFFF, 4)) << "more steps than can be";
    EXPECT_TRUE(isRefused(count, 5303, 4)) << "a step more than there are";
    EXPECT_TRUE(isRefused(count, 5301, 4)) << "a step fewer";
    EXPECT_TRUE(isRefused(block, 0x7F800000, 4)) << "an endless step";
    EXPECT_TRUE(isRefused(block, 0x7FC00000, 4)) << "no number as step";
    EXPECT_TRUE(isRefused(block, 0x3F800001, 4)) << "a step just above a second";
    EXPECT_FALSE(isRefused(block, 0x3F800000, 4)) << "a second";
    EXPECT_TRUE(isRefused(block, 0, 4)) << "a step without time";
    EXPECT_TRUE(isRefused(block + 4, 0xFFC00000, 4)) << "no number as turn";
    EXPECT_TRUE(isRefused(block + 8, 8, 1)) << "an unknown flag";
    EXPECT_TRUE(isRefused(block + 9, 0, 4)) << "a block of no steps";

    ::Run bad = SampleRun();
    bad.steps[3].turn = std::numeric_limits<float>::infinity();
    EXPECT_FALSE(WriteRun(Path(), bad));
    EXPECT_TRUE(ReadRun(Path(), reason)) << "the old file stays";
}

TEST_F(RunFileTest, IsRefusedWhenItsHashesAreGarbledOrTooFew) {
    const auto bytes = Written(PlayedRun());
    const std::size_t begin = Written(SampleRun()).size();
    for (std::size_t i = begin; i < bytes.size(); ++i) {
        auto changed = bytes;
        changed[i] ^= std::byte{1};
        EXPECT_FALSE(ParseRun(changed, reason)) << i;
        EXPECT_EQ(reason, "its state hashes are damaged");
    }
    ::Run bad = PlayedRun();
    bad.hashes.pop_back();
    EXPECT_FALSE(WriteRun(Path(), bad));
}

TEST_F(RunFileTest, FitsOnlyTheLevelItWasPlayedOn) {
    const WorkingDirectoryGuard inDirectory(directory.path);
    directory.Write("lev/a.swah", "123456789");
    Platform::ForgetListings();
    ::Run run = SampleRun();
    EXPECT_TRUE(FitsLevel(run, reason)) << "the check value of this CRC is well known";
    directory.Write("lev/a.swah", "123456780");
    EXPECT_FALSE(FitsLevel(run, reason));
    EXPECT_EQ(reason, "its level 'lev\\a.swah' has changed since");
    run.level = "lev\\b.swah";
    EXPECT_FALSE(FitsLevel(run, reason));
    const std::string missing = "is missing";
    for (const std::string& outside :
         {(directory.path / "lev/a.swah").string(), std::string("lev\\..\\lev\\a.swah"),
          std::string("/proc/self/pagemap")}) {
        run.level = outside;
        EXPECT_FALSE(FitsLevel(run, reason));
        EXPECT_TRUE(reason.ends_with(missing)) << "or the run would tell of files: " << reason;
    }
}

}  // namespace
