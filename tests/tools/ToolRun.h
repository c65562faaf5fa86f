#pragma once
// Runs vantrel-level as a user would, in a directory of its own that goes with the fixture.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "level/LevelFile.h"
#include "support/Places.h"
#include "support/TemporaryDirectory.h"

class ToolTest : public testing::Test {
protected:
    struct Outcome {
        int status = -1;
        std::string out;
        std::string error;
    };

    /// Runs with the fixture's folder as working directory.
    Outcome Run(const std::string& arguments) const {
        const std::string command = "cd '" + folder.string() + "' && '" +
                                    ToolProgram("vantrel-level").string() + "' " + arguments +
                                    " >out.txt 2>error.txt";
        const int status = std::system(command.c_str());
        return {WEXITSTATUS(status), Read("out.txt"), Read("error.txt")};
    }
    std::string Read(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::string& name, const std::string& content) const {
        directory.Write(name, content);
    }
    void WriteLevel(const std::string& name, const LevelFile& level) const {
        const auto bytes = level.Serialise();
        Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    LevelFile ReadLevel(const std::string& name) const {
        const std::string bytes = Read(name);
        std::string reason;
        std::uint32_t version = 0;
        const auto level = LevelFile::Parse(std::as_bytes(std::span(bytes)), reason, version);
        EXPECT_TRUE(level) << reason;
        return level.value_or(LevelFile());
    }

    TemporaryDirectory directory;
    const std::filesystem::path& folder = directory.path;
};

/// An axis-aligned polygon record.
inline LevelFile::Polygon Box(int left, int top, int right, int bottom, unsigned flags = 0) {
    LevelFile::Polygon box;
    box.flags = flags;
    box.points = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    return box;
}
