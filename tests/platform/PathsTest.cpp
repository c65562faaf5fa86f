#include "platform/Paths.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>

#include "platform/DataRoot.h"
#include "platform/FileUpdate.h"
#include "platform/WholeFile.h"
#include "support/TemporaryDirectory.h"

namespace {

namespace fs = std::filesystem;
using Platform::NameSource;

/// A working directory and a data root, both empty.
class Paths : public testing::Test {
protected:
    Paths() : guard(work.path) { Platform::UseDataRoot(data.path); }
    ~Paths() override { Platform::UseDataRoot({}); }

    /// The file behind a name, relative to the directory it was found in.
    std::string Found(std::string_view name, NameSource source = NameSource::Data) const {
        const auto path = Platform::FindFile(name, source);
        if (!path) {
            return "none";
        }
        const bool inData = path->string().starts_with(data.path.string());
        return (inData ? "data:" : "work:") +
               path->lexically_relative(inData ? data.path : work.path).string();
    }

    static std::string Contents(const fs::path& path) {
        const auto bytes = Platform::ReadWholeFile(path);
        return bytes ? std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size())
                     : "unreadable";
    }

    TemporaryDirectory work;
    TemporaryDirectory data;
    WorkingDirectoryGuard guard;
};

TEST_F(Paths, FindNamesInAnySpelling) {
    data.Write("cfg/game.cfg", "");
    EXPECT_EQ(Found("cfg/game.cfg"), "data:cfg/game.cfg");
    EXPECT_EQ(Found("CFG\\GAME.CFG"), "data:cfg/game.cfg");
    EXPECT_EQ(Found("cfg//Game.cfg"), "data:cfg/game.cfg");
    EXPECT_EQ(Found(".\\cfg\\.\\game.cfg"), "data:cfg/game.cfg");
    EXPECT_EQ(Found("cfg"), "none") << "a directory is no file";
    EXPECT_EQ(Found("cfg/game.cfg/x"), "none");
    EXPECT_EQ(Found(""), "none");
    EXPECT_EQ(Found(std::string_view("cfg/game.cfg\0", 13)), "none");
}

TEST_F(Paths, PreferTheExactSpellingButTryTheOthers) {
    data.Write("a/IMAGE.png", "");
    data.Write("a/image.png", "");
    data.Write("A/only.png", "");
    EXPECT_EQ(Found("a/image.png"), "data:a/image.png");
    EXPECT_EQ(Found("a/IMAGE.png"), "data:a/IMAGE.png");
    EXPECT_EQ(Found("a/iMAGE.png"), "data:a/IMAGE.png") << "the first in order";
    EXPECT_EQ(Found("a/only.png"), "data:A/only.png") << "another directory of that name";
}

TEST_F(Paths, PutTheWorkingDirectoryBeforeTheData) {
    data.Write("lev/one.swah", "");
    data.Write("lev/two.swah", "");
    work.Write("LEV/ONE.SWAH", "");
    EXPECT_EQ(Found("lev/one.swah"), "work:LEV/ONE.SWAH");
    EXPECT_EQ(Found("lev/two.swah"), "data:lev/two.swah");
    Platform::UseDataRoot(data.path, true);
    EXPECT_EQ(Found("lev/one.swah"), "data:lev/one.swah");
}

TEST_F(Paths, LetDataNeitherClimbNorNameAbsolutePaths) {
    const fs::path file = data.Write("secret.txt", "");
    work.Write("sub/x.txt", "");
    const std::string absolute = file.string();
    const std::string climbing = "sub/../../" + data.path.filename().string() + "/secret.txt";
    for (const std::string& name : {absolute, climbing, std::string("..\\x"), std::string("C:\\x"),
                                    std::string("\\etc\\passwd")}) {
        EXPECT_EQ(Found(name), "none") << name;
        EXPECT_FALSE(Platform::WritablePath(name)) << name;
        EXPECT_TRUE(Platform::ListFiles(name).empty()) << name;
    }
    EXPECT_EQ(Found(absolute, NameSource::Person), "data:secret.txt");
    EXPECT_NE(Found(climbing, NameSource::Person), "none");
}

TEST_F(Paths, ListFilesOfBothRootsOnceAndInOrder) {
    for (const char* name : {"b_frame10.PNG", "B_Frame02.png", "b_frame01.png", "c.png"}) {
        data.Write(std::string("img/") + name, "");
    }
    work.Write("IMG/B_FRAME01.PNG", "");
    work.Write("IMG/b_frame99.tga", "");
    fs::create_directory(work.path / "IMG" / "b_frame03.png");
    const std::vector<std::string> expected{"B_FRAME01.PNG", "B_Frame02.png", "b_frame10.PNG"};
    EXPECT_EQ(Platform::ListFiles("img\\B_FRAME*.PNG"), expected);
    EXPECT_EQ(Platform::ListFiles("img\\*").size(), 5u);
    EXPECT_EQ(Platform::ListFiles("img\\*1*.*").size(), 2u);
    EXPECT_TRUE(Platform::ListFiles("nowhere\\*").empty());
}

TEST_F(Paths, SeeFilesThatComeLater) {
    EXPECT_EQ(Found("NEW.TXT"), "none");
    work.Write("new.txt", "");
    EXPECT_EQ(Found("NEW.TXT"), "work:new.txt");
    fs::remove(work.path / "new.txt");
    EXPECT_EQ(Found("NEW.TXT"), "none");
}

TEST_F(Paths, WriteIntoTheWorkingDirectoryOnly) {
    data.Write("sav/scores.sav", "old");
    const auto made = Platform::WritablePath("SAV\\scores.sav");
    ASSERT_TRUE(made);
    EXPECT_EQ(*made, fs::current_path() / "SAV" / "scores.sav");
    EXPECT_TRUE(fs::is_directory("SAV"));
    ASSERT_TRUE(Platform::WriteWholeFile(*made, "new", 3));
    EXPECT_EQ(Platform::WritablePath("sav/SCORES.SAV"), made) << "the file that is there";
    EXPECT_EQ(Contents(data.path / "sav/scores.sav"), "old");

    work.Write("plain", "");
    EXPECT_FALSE(Platform::WritablePath("plain/x"));
}

TEST_F(Paths, LeaveNothingBehindWhenAWriteFails) {
    fs::create_directories(work.path / "taken" / "inside");
    EXPECT_FALSE(Platform::WriteWholeFile(work.path / "taken", "x", 1));
    EXPECT_FALSE(Platform::WriteWholeFile(work.path / "missing" / "file", "x", 1));
    EXPECT_FALSE(Platform::WriteWholeFile("/proc/vantrel", "x", 1));
    for (const char* const refused : {"taken", "missing/file", "/proc/vantrel", "/dev/null"}) {
        EXPECT_FALSE(Platform::CanWriteFile(refused)) << refused;
    }
    EXPECT_TRUE(Platform::CanWriteFile("new"));
    EXPECT_EQ(Platform::ListFiles("*").size(), 0u) << "no temporary files";
    EXPECT_TRUE(fs::is_directory(work.path / "taken" / "inside"));
}

TEST_F(Paths, KeepAFilesModeAndTheLinkThatLeadsToIt) {
    const fs::path file = work.Write("kept/file", "old");
    fs::permissions(file, fs::perms(0640));
    fs::create_symlink("kept/file", work.path / "link");
    fs::create_symlink("link", work.path / "linkToLink");
    ASSERT_TRUE(Platform::WriteWholeFile(work.path / "linkToLink", "new", 3));
    EXPECT_EQ(Contents(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_EQ(fs::read_symlink(work.path / "linkToLink"), "link");

    fs::create_symlink("kept/later", work.path / "dangling");
    ASSERT_TRUE(Platform::WriteWholeFile(work.path / "dangling", "made", 4));
    EXPECT_EQ(Contents(work.path / "kept/later"), "made");
    fs::create_symlink("endless", work.path / "endless");
    EXPECT_FALSE(Platform::WriteWholeFile(work.path / "endless", "x", 1));

    // Nothing but a file is replaced.
    ASSERT_EQ(mkfifo((work.path / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Platform::WriteWholeFile(work.path / "pipe", "x", 1));
    EXPECT_TRUE(fs::is_fifo(work.path / "pipe"));
}

TEST_F(Paths, SweepWhatKilledProgramsLeft) {
    const std::string ours = ".vantrel-" + std::to_string(getpid()) + "-";
    for (int serial = 0; serial < 50; ++serial) {
        work.Write(ours + std::to_string(serial) + ".tmp", "half");
    }
    work.Write(".vantrel-notes.txt", "a player's own");
    ASSERT_TRUE(Platform::WriteWholeFile(work.path / "file", "new", 3));
    EXPECT_EQ(Contents(work.path / "file"), "new");
    EXPECT_EQ(Platform::ListFiles("*").size(), 2u);

    // Also where another program holds the directory for ever; then nothing is swept.
    work.Write(ours + "1000.tmp", "in use");
    const int held = open(work.path.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    ASSERT_TRUE(Platform::WriteWholeFile(work.path / "file", "newer", 5));
    close(held);
    EXPECT_EQ(Contents(work.path / "file"), "newer");
    EXPECT_EQ(Contents(work.path / (ours + "1000.tmp")), "in use");
}

TEST_F(Paths, UpdateOneAfterTheOther) {
    work.Write("count", "");
    const auto countUp = [&] {
        for (int i = 0; i < 20; ++i) {
            Platform::FileUpdate update(work.path / "count");
            std::vector<std::byte> bytes;
            EXPECT_EQ(update.Read(bytes), Platform::FileUpdate::State::Read);
            bytes.push_back(std::byte{'x'});
            EXPECT_TRUE(update.Write(bytes.data(), bytes.size()));
        }
    };
    std::thread other(countUp);
    countUp();
    other.join();
    EXPECT_EQ(Contents(work.path / "count").size(), 40u);
}

TEST_F(Paths, ReadOnlyWhatIsAFile) {
    work.Write("big", std::string(200000, 'x'));
    EXPECT_EQ(Contents(work.path / "big").size(), 200000u);
    fs::resize_file(work.path / "big", Platform::largestWholeFile + 1);
    EXPECT_FALSE(Platform::ReadWholeFile(work.path / "big"));
    EXPECT_EQ(Contents("/proc/self/pagemap"), "") << "a file that says so and never ends";
    EXPECT_FALSE(Platform::ReadWholeFile(work.path));
    EXPECT_FALSE(Platform::ReadWholeFile(work.path / "missing"));
    ASSERT_EQ(mkfifo((work.path / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(Platform::ReadWholeFile(work.path / "pipe"));
    EXPECT_EQ(Found("pipe"), "none");
}

/// Programs in the places they may be run from.
class DataRootChoice : public Paths {
protected:
    DataRootChoice() { unsetenv("VANTREL_DATA"); }
    ~DataRootChoice() override {
        unsetenv("VANTREL_DATA");
        unsetenv("XDG_DATA_HOME");
    }
};

TEST_F(DataRootChoice, TakesTheFirstThatIsThere) {
    const fs::path installed = work.Write("usr/bin/vantrel", "");
    work.Write("usr/share/vantrel/cfg/game.cfg", "");
    Platform::FindDataRoot(installed);
    EXPECT_EQ(Platform::DataRoot(), work.path / "usr/share/vantrel");

    const fs::path built = work.Write("tree/build/release/src/game/vantrel", "");
    work.Write("tree/data/cfg/game.cfg", "");
    work.Write("tree/src/platform/Paths.h", "");
    Platform::FindDataRoot(built);
    EXPECT_EQ(Platform::DataRoot(), work.path / "tree/data");

    work.Write("usr/bin/data/x", "");
    Platform::FindDataRoot(installed);
    EXPECT_EQ(Platform::DataRoot(), work.path / "usr/bin/data");

    setenv("VANTREL_DATA", "tree", 1);
    Platform::FindDataRoot(installed);
    EXPECT_EQ(Platform::DataRoot(), work.path / "tree") << "absolute, whatever was given";
}

TEST_F(DataRootChoice, SendsAnInstalledProgramToTheUsersDirectory) {
    const fs::path installed = work.Write("usr/bin/vantrel", "");
    work.Write("usr/share/vantrel/cfg/game.cfg", "");
    setenv("XDG_DATA_HOME", (work.path / "home/share").c_str(), 1);
    Platform::UseDataRoot(data.path);
    Platform::EnterUserDirectory();
    EXPECT_EQ(fs::current_path(), work.path) << "it isn't installed";
    Platform::FindDataRoot(installed);
    Platform::EnterUserDirectory();
    EXPECT_EQ(fs::current_path(), work.path / "home/share/vantrel");
    EXPECT_EQ(Found("cfg/game.cfg"), "work:usr/share/vantrel/cfg/game.cfg");
}

}  // namespace
