// The real program on small levels: what it finds, says and leaves behind.

#include <unistd.h>

#include <csignal>
#include <cstdio>

#include "SolveRun.h"
#include "support/Places.h"

namespace {

using TestLevelFile::Area;
using TestLevelFile::Box;

constexpr std::uint32_t levelEnd = 801;

/// Two ledges, one above the other; the finish is below the lower one's closed end.
LevelFile TwoLedges() {
    LevelFile level = TestLevelFile::Room();
    level.polygons.push_back(Box(-200, -60, 100, -50));
    level.polygons.push_back(Box(-100, 40, 200, 50));
    level.waterStart = {-120, -100};
    level.cameraStart = {-100, -80};
    level.triggers.push_back(Area(levelEnd, -200, 80, -100, 150));
    return level;
}

/// The finish lies in a box that nothing gets into.
LevelFile Hopeless() {
    LevelFile level = TestLevelFile::Room();
    level.cameraStart = {0, 10};
    level.polygons.push_back(Box(100, -100, 160, -90));
    level.polygons.push_back(Box(100, -50, 160, -40));
    level.polygons.push_back(Box(100, -90, 110, -50));
    level.polygons.push_back(Box(150, -90, 160, -50));
    level.triggers.push_back(Area(levelEnd, 110, -90, 150, -50));
    return level;
}

/// A report without the time that the search took, which it ends with.
std::string WithoutSeconds(const std::string& report) {
    return report.substr(0, report.find(" moves in "));
}

class Solve : public SolveRun {
protected:
    /// Starts a search without end.
    pid_t StartHopeless() {
        game.Write(Hopeless(), "lev/a.swah");
        const pid_t pid = fork();
        if (pid == 0) {
            static_cast<void>(chdir(folder.c_str()) == 0);
            static_cast<void>(std::freopen("error.txt", "w", stderr));
            const std::filesystem::path program = ToolProgram("vantrel-solve");
            execl(program.c_str(), program.c_str(), "lev/a.swah", "-o", "a.run", "--data", ".",
                  static_cast<char*>(nullptr));
            _exit(127);
        }
        sleep(2);
        return pid;
    }
};

}  // namespace

TEST_F(Solve, WinsAndItsRunReplaysToTheSameEnd) {
    game.Write(TwoLedges(), "lev/a.swah");
    ASSERT_EQ(RunSolve("lev/a.swah -o a.run --jobs 2 --minutes 1"), 0) << Read("error.txt");
    const std::string found = Read("out.txt");
    ASSERT_TRUE(found.starts_with("WIN water 1")) << found;
    const std::string water = found.substr(10, found.find(' ', 10) - 10);
    ASSERT_EQ(Run("vantrel-sim", "--replay a.run --quiet"), 0);
    const std::string end = Read("out.txt");
    EXPECT_NE(end.find("finished yes"), std::string::npos) << end;
    EXPECT_NE(end.find("water " + water + "\n"), std::string::npos) << end;
}

TEST_F(Solve, FindsTheSameOnAnyNumberOfThreads) {
    game.Write(TwoLedges(), "lev/a.swah");
    for (const std::string task : {"--minutes 1", "--leaks --minutes 10 --along 1.run"}) {
        ASSERT_EQ(RunSolve("lev/a.swah -o 1.run --jobs 1 " + task), 0) << Read("error.txt");
        const std::string run = Read("1.run");
        const std::string report = WithoutSeconds(Read("out.txt"));
        ASSERT_EQ(RunSolve("lev/a.swah -o 1.run --jobs 3 " + task), 0) << Read("error.txt");
        EXPECT_EQ(Read("1.run"), run);
        EXPECT_EQ(WithoutSeconds(Read("out.txt")), report);
    }
}

TEST_F(Solve, SaysWhyItCannotSearch) {
    game.Write(TestLevelFile::Room(), "lev/a.swah");
    EXPECT_EQ(RunSolve("lev/a.swah"), 1);
    EXPECT_NE(Read("error.txt").find("has no finish"), std::string::npos);
    EXPECT_EQ(RunSolve("lev/none.swah"), 1);
    EXPECT_NE(Read("error.txt").find("cannot load level"), std::string::npos);
    EXPECT_EQ(RunSolve("lev/a.swah --minutes soon"), 2);
    EXPECT_EQ(RunSolve("lev/a.swah --fast 1"), 2);
}

TEST_F(Solve, KeepsTheNearestRunWhenInterrupted) {
    const pid_t pid = StartHopeless();
    kill(pid, SIGINT);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_FALSE(Read("a.run").empty());
}
