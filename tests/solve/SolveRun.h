#pragma once
// Runs the real programs in a folder of their own, with the test's settings as data.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "support/Places.h"
#include "support/TestGame.h"

class SolveRun : public testing::Test {
protected:
    int Run(const std::string& tool, const std::string& arguments) {
        const std::string command = "cd '" + folder + "' && '" + ToolProgram(tool).string() + "' " +
                                    arguments + " --data . >out.txt 2>error.txt";
        return WEXITSTATUS(std::system(command.c_str()));
    }
    int RunSolve(const std::string& arguments) { return Run("vantrel-solve", arguments); }
    std::string Read(const std::string& name) const {
        std::ifstream file(folder + "/" + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TestGame game;  // for its settings; the programs are processes of their own
    const std::string folder = game.directory.path.string();
};
