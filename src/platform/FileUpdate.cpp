// The one atomic writer; see FileUpdate.h. The lock is that of the directory itself, so that no
// lock file stays behind; its holder knows that all temporary files there are left over.

#include "platform/FileUpdate.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <thread>

#include "platform/Assert.h"
#include "platform/Descriptor.h"
#include "platform/WholeFile.h"

namespace fs = std::filesystem;

namespace Platform {

namespace {

using std::chrono::milliseconds;

constexpr std::string_view temporaryStart = ".vantrel-";
constexpr std::string_view temporaryEnd = ".tmp";
constexpr milliseconds lockPatience{2000};
constexpr milliseconds lockPause{5};
constexpr int mostLinks = 40;  // in a row; as many as the system follows
constexpr int mostNames = 1000;

thread_local bool isUpdating = false;  // this thread has an update at work

/// The file that is meant, which need not exist; empty if the links never end.
fs::path BehindLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i <= mostLinks; ++i) {
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            return path;  // no link
        }
        path = path.parent_path() / next;  // an absolute one stands for itself
    }
    return {};
}

fs::path DirectoryOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : ".";
}

int OpenDirectoryOf(const fs::path& file) {
    const fs::path parent = DirectoryOf(file);
    return Uninterrupted([&] { return open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
}

bool Lock(int directory) {
    const auto end = std::chrono::steady_clock::now() + lockPatience;
    while (flock(directory, LOCK_EX | LOCK_NB) != 0) {
        const bool mayCome = errno == EWOULDBLOCK || errno == EINTR;
        if (!mayCome || std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(lockPause);
    }
    return true;
}

void SweepDirectoryOf(const fs::path& file) {
    std::error_code error;
    for (fs::directory_iterator entry(DirectoryOf(file), error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(temporaryStart) && name.ends_with(temporaryEnd)) {
            unlink(entry->path().c_str());
        }
    }
}

/// Makes a new file beside the one that is meant and tells its path.
int CreateBeside(const fs::path& file, mode_t mode, fs::path& made) {
    static std::atomic<unsigned> serial = 0;
    int opened = -1;
    for (int i = 0; i < mostNames; ++i) {
        made = file;
        made.replace_filename(std::string(temporaryStart) + std::to_string(getpid()) + "-" +
                              std::to_string(serial++) + std::string(temporaryEnd));
        opened = Uninterrupted(
            [&] { return open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
        if (opened >= 0 || errno != EEXIST) {
            break;
        }
    }
    return opened;
}

bool WriteAll(int file, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t written = Uninterrupted([&] { return write(file, data, size); });
        if (written <= 0) {
            return false;
        }
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace

FileUpdate::FileUpdate(const fs::path& path)
    : target(BehindLinks(path)),
      directory(OpenDirectoryOf(target)),
      locked(directory >= 0 && Lock(directory)) {
    VANTREL_ASSERT(!isUpdating);  // it would deadlock
    isUpdating = true;
}

FileUpdate::~FileUpdate() {
    isUpdating = false;
    if (directory >= 0) {
        close(directory);
    }
}

FileUpdate::State FileUpdate::Read(std::vector<std::byte>& bytes) const {
    if (auto found = ReadWholeFile(target)) {
        bytes = std::move(*found);
        return State::Read;
    }
    bytes.clear();
    std::error_code error;
    return fs::exists(target, error) || error ? State::Unreadable : State::Missing;
}

std::optional<std::string> FileUpdate::SetAside() const {
    for (int i = 1; i <= mostNames; ++i) {
        fs::path aside = target;
        aside += i == 1 ? std::string(".bad") : ".bad" + std::to_string(i);
        std::error_code error;
        if (!fs::exists(fs::symlink_status(aside, error))) {
            const bool moved = std::rename(target.c_str(), aside.c_str()) == 0;
            return moved ? std::optional(aside.filename().string()) : std::nullopt;
        }
    }
    return std::nullopt;
}

int FileUpdate::CreateTemporary(fs::path& made) const {
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (target.empty() || (exists && !S_ISREG(old.st_mode))) {
        return -1;
    }
    const mode_t mode = exists ? old.st_mode & 0777 : 0666;
    const int file = CreateBeside(target, mode, made);
    if (exists && file >= 0) {
        // Not every file system has modes.
        static_cast<void>(fchmod(file, mode));
    }
    return file;
}

bool FileUpdate::CanWrite() const {
    fs::path temporary;
    const Descriptor file(CreateTemporary(temporary));
    if (file.IsOpen()) {
        unlink(temporary.c_str());
    }
    return file.IsOpen();
}

bool FileUpdate::Write(const void* data, std::size_t size) const {
    VANTREL_ASSERT(data != nullptr || size == 0);
    if (locked) {
        SweepDirectoryOf(target);
    }
    fs::path temporary;
    Descriptor file(CreateTemporary(temporary));
    if (!file.IsOpen()) {
        return false;
    }
    const bool isWhole = WriteAll(file.Number(), static_cast<const char*>(data), size) &&
                         Uninterrupted([&] { return fsync(file.Number()); }) == 0 && file.Close();
    if (!isWhole || std::rename(temporary.c_str(), target.c_str()) != 0) {
        unlink(temporary.c_str());
        return false;
    }
    if (directory >= 0) {
        // Makes the move itself last through a power cut; not all file systems can.
        fsync(directory);
    }
    return true;
}

}  // namespace Platform
