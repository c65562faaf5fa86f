// Where the game's data lies, and where the user's files go.

#include "platform/DataRoot.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace Platform {

namespace {

fs::path dataRoot;
bool rootComesFirst = false;
bool installed = false;

/// An absolute directory from the environment; empty if it isn't set to one.
fs::path EnvironmentDirectory(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? fs::path(value) : fs::path();
}

/// $`variable`/vantrel, or ~/`fallback`/vantrel; empty without a home.
fs::path UserDirectory(const char* variable, const char* fallback) {
    fs::path base = EnvironmentDirectory(variable);
    if (base.empty()) {
        base = EnvironmentDirectory("HOME");
        if (base.empty()) {
            return {};
        }
        base /= fallback;
    }
    return base / "vantrel";
}

fs::path ProgramDirectory(const fs::path& program) {
    std::error_code error;
    // A bare name was found through PATH.
    const fs::path real =
        fs::canonical(program.has_parent_path() ? program : fs::path("/proc/self/exe"), error);
    return real.parent_path();
}

bool IsDirectory(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

}  // namespace

fs::path DataRoot() {
    return dataRoot;
}

bool DataRootComesFirst() {
    return rootComesFirst;
}

void UseDataRoot(const fs::path& root, bool first) {
    std::error_code error;
    // Absolute, since the working directory may change.
    const fs::path absolute = root.empty() ? fs::path() : fs::absolute(root, error);
    dataRoot = error ? root : absolute;
    rootComesFirst = first;
    installed = false;
}

void FindDataRoot(const fs::path& program) {
    const char* chosen = std::getenv("VANTREL_DATA");
    if (chosen != nullptr && chosen[0] != '\0') {
        if (IsDirectory(chosen)) {
            UseDataRoot(chosen);
            return;
        }
        std::fprintf(stderr, "VANTREL_DATA: no such directory: %s\n", chosen);
    }
    const fs::path beside = ProgramDirectory(program);
    if (IsDirectory(beside / "data")) {
        UseDataRoot(beside / "data");
        return;
    }
    // A program in a build directory within its source tree.
    for (fs::path tree = beside.parent_path(); tree.has_relative_path();
         tree = tree.parent_path()) {
        if (IsDirectory(tree / "data" / "cfg") && IsDirectory(tree / "src" / "platform")) {
            UseDataRoot(tree / "data");
            return;
        }
    }
    const fs::path share = beside.parent_path() / "share" / "vantrel";
    if (IsDirectory(share)) {
        UseDataRoot(share);
        installed = true;
    }
}

void EnterUserDirectory() {
    const fs::path directory = UserDirectory("XDG_DATA_HOME", ".local/share");
    if (!installed || directory.empty()) {
        return;
    }
    std::error_code error;
    fs::create_directories(directory, error);
    fs::current_path(directory, error);
    if (error) {
        std::fprintf(stderr, "Unable to use %s: %s\n", directory.c_str(), error.message().c_str());
    }
}

fs::path ConfigDirectory() {
    return UserDirectory("XDG_CONFIG_HOME", ".config");
}

}  // namespace Platform
