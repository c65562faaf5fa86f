#include "game/HighScoreTable.h"

#include <gtest/gtest.h>

#include "engine/Console.h"
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

TEST_F(HighScoreTableTest, ASaveThatFailsCostsNothing) {
    HighScoreTable::Insert({"kept", 5});
    const std::string before = Saved();
    // A file where the directory ought to be.
    std::filesystem::rename(directory.path / "sav", directory.path / "hidden");
    directory.Write("sav", "no directory");
    HighScoreTable::Insert({"late", 6});
    EXPECT_EQ(Saved(), "");
    EXPECT_NE(Console::OutputText().find("\nUnable to save high scores"), std::string::npos);
    EXPECT_EQ(std::filesystem::file_size(directory.path / "sav"), 12u);
    std::filesystem::remove(directory.path / "sav");
    std::filesystem::rename(directory.path / "hidden", directory.path / "sav");
    EXPECT_EQ(Saved().substr(4, 4), "late") << "tried again";
}

TEST_F(HighScoreTableTest, KeepsAsideWhatItCouldNotRead) {
    const std::filesystem::path file = directory.path / "sav/scores.sav";
    const auto aside = [&](const char* ending) {
        std::ifstream kept(file.string() + ending, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(kept), {});
    };
    Write("another game's");
    Reload();
    EXPECT_EQ(Saved(), "another game's") << "nothing to save yet";
    HighScoreTable::Insert({"a", 5});
    EXPECT_EQ(Saved().size(), fileSize);
    EXPECT_EQ(aside(".bad"), "another game's");
    EXPECT_NE(Console::OutputText().find("scores.sav.bad'"), std::string::npos);

    // It went bad while the game ran: what is in memory stays.
    Write(magic);
    HighScoreTable::Insert({"b", 6});
    EXPECT_EQ(Saved().substr(4 + 28, 1), "a");
    EXPECT_EQ(aside(".bad2"), magic);

    // It was only out of reach at the start.
    const std::string before = Saved();
    std::filesystem::rename(file, file.string() + ".away");
    std::filesystem::create_directory(file);
    Reload();
    std::filesystem::remove(file);
    std::filesystem::rename(file.string() + ".away", file);
    HighScoreTable::Insert({"c", 1});
    EXPECT_EQ(Saved(), before.substr(0, 4 + 2 * 28) + "c" + std::string(23, '\0') +
                           std::string("\1\0\0\0", 4) + before.substr(4 + 2 * 28, 7 * 28));
}

TEST_F(HighScoreTableTest, TakesInWhatAnotherGameSaved) {
    for (const std::uint32_t score : {90u, 70u, 50u}) {
        HighScoreTable::Insert({"both", score});
    }
    const std::string start = Saved();
    for (const std::uint32_t score : {80u, 60u, 40u, 30u}) {
        HighScoreTable::Insert({"other", score});
    }
    const std::string others = Saved();
    Write(start);
    Reload();
    Write(others);  // by the other game, meanwhile
    for (const std::uint32_t score : {85u, 70u, 65u, 20u}) {
        HighScoreTable::Insert({"own", score});
    }
    Saved();
    std::string names;
    for (const HighScoreRow& row : HighScoreTable::Rows()) {
        names += row.Name() + " " + std::to_string(row.score) + " ";
    }
    EXPECT_EQ(names,
              "both 90 own 85 other 80 both 70 own 70 own 65 other 60 both 50 other 40 other 30 ");
}

}  // namespace
