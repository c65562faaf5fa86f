// Reading and writing files whole.

#include "platform/WholeFile.h"

#include <sys/stat.h>

#include <new>

#include "platform/Descriptor.h"
#include "platform/FileUpdate.h"

namespace fs = std::filesystem;

namespace Platform {

namespace {

/// The first `size` bytes, or all there are: files of the kernel claim to be empty and may never
/// end, and a file may grow or shrink while it is read.
std::optional<std::vector<std::byte>> ReadUpTo(int file, std::size_t size) {
    std::vector<std::byte> bytes(size);
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got =
            Uninterrupted([&] { return read(file, bytes.data() + filled, size - filled); });
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

}  // namespace

std::optional<std::vector<std::byte>> ReadWholeFile(const fs::path& path) {
    // Non-blocking, so that a pipe in the place of a file can't hang the program.
    const Descriptor file(
        Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
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
    return FileUpdate(path).Write(data, size);
}

bool CanWriteFile(const fs::path& path) {
    return FileUpdate(path).CanWrite();
}

}  // namespace Platform
