#pragma once
// A directory for one test, which is the working directory while it lives and is gone
// afterwards.

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "vantrel-XXXXXX").string();
        path = mkdtemp(name.data());
        std::filesystem::current_path(path);
    }
    ~TemporaryDirectory() {
        std::filesystem::current_path(before);
        std::filesystem::remove_all(path);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return path; }

    /// Writes a file below the directory, with the directories that it needs.
    void Write(const std::filesystem::path& name, std::string_view text) const {
        std::filesystem::create_directories((path / name).parent_path());
        std::ofstream(path / name, std::ios::binary) << text;
    }
    /// The file's text; empty if there is none.
    std::string Read(const std::filesystem::path& name) const {
        std::ifstream file(path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::path path;
};
