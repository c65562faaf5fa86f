// Loaded before a program, makes one of its calls on files in one directory fail:
//   FAULT_DIRECTORY  absolute; files below it are watched
//   FAULT_CALL       open, read, write, fsync, flock, rename or close
//   FAULT_NUMBER     which of these calls on watched files fails, from 1
//   FAULT_KIND       an error number, or "short": half of what was to be read or written
//   FAULT_MARK       a file that is made when the call has failed

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

template <typename Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string_view Setting(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::array<bool, 1024> watched{};  // by descriptor

bool IsWatched(int descriptor) {
    return descriptor >= 0 && static_cast<std::size_t>(descriptor) < watched.size() &&
           watched[static_cast<std::size_t>(descriptor)];
}

void Watch(int descriptor, bool on) {
    if (descriptor >= 0 && static_cast<std::size_t>(descriptor) < watched.size()) {
        watched[static_cast<std::size_t>(descriptor)] = on;
    }
}

bool LiesInDirectory(const char* path) {
    std::array<char, 4096> here{};
    std::string whole(path);
    if (path[0] != '/' && getcwd(here.data(), here.size()) != nullptr) {
        whole = std::string(here.data()) + '/' + path;
    }
    const std::string_view directory = Setting("FAULT_DIRECTORY");
    return !directory.empty() && whole.starts_with(directory);
}

/// Whether this call, on a watched file, is the one; sets errno then.
bool Fails(std::string_view call, bool isShort = false) {
    static int count = 0;
    const std::string_view kind = Setting("FAULT_KIND");
    if (call != Setting("FAULT_CALL") || isShort != (kind == "short") ||
        ++count != std::atoi(std::getenv("FAULT_NUMBER"))) {
        return false;
    }
    close(Next<int(const char*, int, ...)>("open")(std::getenv("FAULT_MARK"),
                                                   O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    errno = isShort ? 0 : std::atoi(std::getenv("FAULT_KIND"));
    return true;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    const bool isWatched = LiesInDirectory(path);
    if (isWatched && Fails("open")) {
        return -1;
    }
    const int opened = Next<int(const char*, int, ...)>("open")(path, flags, mode);
    Watch(opened, isWatched);
    return opened;
}

ssize_t read(int descriptor, void* data, std::size_t size) {
    if (IsWatched(descriptor)) {
        if (Fails("read")) {
            return -1;
        }
        size = size > 1 && Fails("read", true) ? size / 2 : size;
    }
    return Next<ssize_t(int, void*, std::size_t)>("read")(descriptor, data, size);
}

ssize_t write(int descriptor, const void* data, std::size_t size) {
    if (IsWatched(descriptor)) {
        if (Fails("write")) {
            return -1;
        }
        size = size > 1 && Fails("write", true) ? size / 2 : size;
    }
    return Next<ssize_t(int, const void*, std::size_t)>("write")(descriptor, data, size);
}

int fsync(int descriptor) {
    return IsWatched(descriptor) && Fails("fsync") ? -1 : Next<int(int)>("fsync")(descriptor);
}

int flock(int descriptor, int operation) noexcept {
    return IsWatched(descriptor) && Fails("flock")
               ? -1
               : Next<int(int, int)>("flock")(descriptor, operation);
}

int rename(const char* from, const char* to) noexcept {
    return LiesInDirectory(to) && Fails("rename")
               ? -1
               : Next<int(const char*, const char*)>("rename")(from, to);
}

/// What fails to close is closed all the same.
int close(int descriptor) {
    const bool isWatched = IsWatched(descriptor);
    Watch(descriptor, false);
    const int result = Next<int(int)>("close")(descriptor);
    return isWatched && Fails("close") ? -1 : result;
}

}  // extern "C"
