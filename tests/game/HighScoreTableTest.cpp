#include "game/HighScoreTable.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace {

constexpr std::size_t fileSize = 284;
const std::string magic = "\x0F\x23\x31\x12";

class HighScoreTableTest : public testing::Test {
protected:
    HighScoreTableTest() { Reload(); }
    ~HighScoreTableTest() override { Platform::ForgetListings(); }

    static void Reload() {
        Platform::ForgetListings();
        HighScoreTable::Load();
    }
    void Write(const std::string& bytes) const { directory.Write("sav/scores.sav", bytes); }
    std::string Saved() const {
        Platform::ForgetListings();
        HighScoreTable::Save();
        std::ifstream file(directory.path / "sav/scores.sav", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void ExpectDefaults() {
        for (const HighScoreRow& row : HighScoreTable::Rows()) {
            EXPECT_EQ(row.Name(), "NO NAME");
            EXPECT_EQ(row.score, 0u);
        }
    }
    static std::string RandomBytes(std::size_t count, std::mt19937& random) {
        std::string bytes(count, '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random()); });
        return bytes;
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard here{directory.path};
};

TEST_F(HighScoreTableTest, RanksAboveLowerScoresAndBelowEqualOnes) {
    ExpectDefaults();
    EXPECT_FALSE(HighScoreTable::Ranks(0));
    EXPECT_TRUE(HighScoreTable::Ranks(1));
    for (const std::uint32_t score : {50u, 100u, 70u, 70u, 90u, 80u, 60u, 40u, 30u, 20u, 10u}) {
        HighScoreTable::Insert({"first", score});
    }
    const auto rows = HighScoreTable::Rows();
    EXPECT_EQ(rows[0].score, 100u);
    EXPECT_EQ(rows[9].score, 20u) << "the eleventh drops out";
    EXPECT_FALSE(HighScoreTable::Ranks(20));
    HighScoreTable::Insert({"second", 70});
    EXPECT_EQ(rows[4].Name(), "first");
    EXPECT_EQ(rows[5].Name(), "second");
    EXPECT_EQ(rows[5].score, 70u);
    EXPECT_EQ(rows[9].score, 30u);
}

TEST_F(HighScoreTableTest, SavesBytesAsTold) {
    HighScoreTable::Insert({"Ada L 1815", 0x01020304});
    HighScoreTable::Insert({std::string(30, 'x'), 0x01020303});
    HighScoreTable::Insert({"", 7});
    std::string expected = magic;
    const auto row = [&](std::string name, const std::string& score) {
        name.resize(24, '\0');
        expected += name + score;
    };
    row("Ada L 1815", {"\x04\x03\x02\x01", 4});
    row(std::string(20, 'x'), {"\x03\x03\x02\x01", 4});
    row("", {"\x07\0\0\0", 4});
    for (int i = 0; i < 7; ++i) {
        row("NO NAME", std::string(4, '\0'));
    }
    EXPECT_EQ(Saved(), expected);
    Reload();
    EXPECT_EQ(HighScoreTable::Rows()[0].Name(), "Ada L 1815");
    EXPECT_EQ(Saved(), expected);
}

TEST_F(HighScoreTableTest, KeepsDefaultsOnFilesThatArentItsOwn) {
    const std::string rows(280, 'A');
    for (const std::string& bytes :
         {std::string(), magic.substr(0, 3), magic, magic + rows.substr(1), "XXXX" + rows}) {
        Write(bytes);
        Reload();
        ExpectDefaults();
    }
    std::filesystem::remove(directory.path / "sav/scores.sav");
    std::filesystem::create_directory(directory.path / "sav/scores.sav");
    Reload();
    ExpectDefaults();
}

TEST_F(HighScoreTableTest, TakesAnyBytesForNamesAndGivesThemBack) {
    std::mt19937 random(1);
    for (int i = 0; i < 1000; ++i) {
        const std::string bytes = magic + RandomBytes(280, random);
        Write(bytes + std::string(static_cast<std::size_t>(i) % 3, '!'));  // what follows is let be
        Reload();
        for (const HighScoreRow& row : HighScoreTable::Rows()) {
            ASSERT_LE(row.Name().size(), 21u);
        }
        if (i % 50 == 0) {  // saving waits for the disk
            ASSERT_EQ(Saved(), bytes);
        }
        HighScoreTable::Insert({RandomBytes(random() % 40, random), 0xFFFFFFFF});
    }
    EXPECT_EQ(Saved().size(), fileSize);
}

TEST_F(HighScoreTableTest, ASaveThatFailsCostsNothing) {
    HighScoreTable::Insert({"kept", 5});
    const std::string before = Saved();
    HighScoreTable::Insert({"lost", 6});
    if (geteuid() != 0) {
        chmod((directory.path / "sav").c_str(), 0500);
        EXPECT_EQ(Saved(), before);
        chmod((directory.path / "sav").c_str(), 0700);
    }
    // A file where the directory ought to be.
    std::filesystem::remove_all(directory.path / "sav");
    directory.Write("sav", "no directory");
    EXPECT_EQ(Saved(), "");
    EXPECT_EQ(std::filesystem::file_size(directory.path / "sav"), 12u);
}

}  // namespace
