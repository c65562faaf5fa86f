#pragma once
// A directory that lasts as long as the object, for tests with real files.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string name =
            (std::filesystem::temp_directory_path() / "vantrel-test-XXXXXX").string();
        path = mkdtemp(name.data()) != nullptr ? name : std::string();
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    /// Writes a file, and makes the directories on its way.
    std::filesystem::path Write(std::string_view name, std::string_view text) const {
        const std::filesystem::path file = path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    std::filesystem::path path;
};

/// Makes a directory the working directory for as long as the object lives.
class WorkingDirectoryGuard {
public:
    explicit WorkingDirectoryGuard(const std::filesystem::path& path)
        : before(std::filesystem::current_path()) {
        std::filesystem::current_path(path);
    }
    ~WorkingDirectoryGuard() { std::filesystem::current_path(before); }
    WorkingDirectoryGuard(const WorkingDirectoryGuard&) = delete;
    WorkingDirectoryGuard& operator=(const WorkingDirectoryGuard&) = delete;

private:
    std::filesystem::path before;
};
