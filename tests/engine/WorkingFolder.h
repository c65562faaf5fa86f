#pragma once
// A directory for one test, which is the working directory while it lives.

#include <iterator>

#include "support/TemporaryDirectory.h"

class WorkingFolder : public TemporaryDirectory {
public:
    /// The file's text; empty if there is none.
    std::string Read(const std::filesystem::path& name) const {
        std::ifstream file(path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    WorkingDirectoryGuard guard{path};
};
