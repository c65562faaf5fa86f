// Reading and writing files whole.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <new>

#include "platform/Paths.h"

namespace fs = std::filesystem;

namespace Platform {

namespace {

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor() { Close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return number >= 0; }
    int Number() const { return number; }
    /// Closing may be what reports a failed write.
    bool Close() {
        const int closing = number;
        number = -1;
        return closing >= 0 && close(closing) == 0;
    }

private:
    int number;
};

/// The first `size` bytes, or all there are: files of the kernel claim to be empty and may never
/// end, and a file may grow or shrink while it is read.
std::optional<std::vector<std::byte>> ReadUpTo(int file, std::size_t size) {
    std::vector<std::byte> bytes(size);
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got = read(file, bytes.data() + filled, size - filled);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

bool WriteAll(int file, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(file, data, size);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool WriteAndFlush(const fs::path& path, const void* data, std::size_t size) {
    Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    return file.IsOpen() && WriteAll(file.Number(), static_cast<const char*>(data), size) &&
           fsync(file.Number()) == 0 && file.Close();
}

/// Makes the move itself last through a power cut; not all file systems can.
void FlushDirectory(const fs::path& directory) {
    const Descriptor file(
        open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (file.IsOpen()) {
        fsync(file.Number());
    }
}

}  // namespace

std::optional<std::vector<std::byte>> ReadWholeFile(const fs::path& path) {
    // Non-blocking, so that a pipe in the place of a file can't hang the program.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > static_cast<off_t>(largestWholeFile)) {
        return std::nullopt;
    }
    try {
        return ReadUpTo(file.Number(), static_cast<std::size_t>(status.st_size));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

bool WriteWholeFile(const fs::path& path, const void* data, std::size_t size) {
    static std::atomic<unsigned> serial = 0;
    fs::path temporary = path;
    temporary += ".tmp" + std::to_string(getpid()) + "-" + std::to_string(serial++);
    if (WriteAndFlush(temporary, data, size) && std::rename(temporary.c_str(), path.c_str()) == 0) {
        FlushDirectory(path.parent_path());
        return true;
    }
    unlink(temporary.c_str());
    return false;
}

}  // namespace Platform
