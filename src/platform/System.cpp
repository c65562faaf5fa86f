// Memory status, message boxes and process end.

#include "platform/System.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>

extern char** environ;

namespace Platform {

namespace {

/// Starts the desktop's dialog program, if there is a desktop and it has one.
std::optional<pid_t> StartDialog(const char* kind, const std::string& text,
                                 const std::string& caption) {
    const char* display = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    // A user who started the program in a terminal reads the message there.
    if ((display == nullptr && wayland == nullptr) || isatty(STDERR_FILENO) != 0) {
        return std::nullopt;
    }
    std::string program = "zenity";
    std::string type = kind;
    std::string plain = "--no-markup";
    std::string titleOption = "--title=" + caption;
    std::string textOption = "--text=" + text;
    const std::array<char*, 6> arguments{program.data(),     type.data(),       plain.data(),
                                         titleOption.data(), textOption.data(), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) {
        return std::nullopt;
    }
    return child;
}

}  // namespace

MemoryStatus PhysicalMemory() {
    MemoryStatus status;
    std::ifstream file("/proc/meminfo");
    std::string key;
    std::string unit;
    std::uint64_t kibibytes = 0;
    while (file >> key >> kibibytes && std::getline(file, unit)) {
        if (key == "MemTotal:") {
            status.totalBytes = kibibytes * 1024;
        } else if (key == "MemAvailable:") {
            status.freeBytes = kibibytes * 1024;
            break;
        }
    }
    return status;
}

void ShowMessage(const std::string& text, const std::string& caption) {
    std::fprintf(stderr, "%s: %s\n", caption.c_str(), text.c_str());
    std::fflush(stderr);
    // The box isn't waited for: the program may be about to end, and the box outlives it.
    StartDialog("--info", text, caption);
}

bool AskYesNo(const std::string& text, const std::string& caption) {
    const std::optional<pid_t> child = StartDialog("--question", text, caption);
    int status = 0;
    return child && waitpid(*child, &status, 0) == *child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

void EndAtOnceOnExit(bool on) {
    static std::atomic<bool> isOn = false;
    isOn = on;
    static const int registered = on_exit(
        [](int status, void*) {
            if (isOn) {
                EndProcess(status);
            }
        },
        nullptr);
    static_cast<void>(registered);
}

void EndProcess(int status) {
    std::fflush(nullptr);
    std::_Exit(status);
}

}  // namespace Platform
