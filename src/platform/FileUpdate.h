#pragma once
// Atomic updates of a file: a read, a change and a write that are never torn, never overwrite the
// update of another program, and never lose the old contents to a full disk. Everything that the
// programs save goes through here.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Platform {

/// One change of one file. While it lives, other updates in the same directory wait, in this
/// program and in others; a thread has one at a time. A symbolic link stays one: the file that it
/// leads to is meant. Where a lock can't be had within two seconds, or at all, it goes on without.
class FileUpdate {
public:
    enum class State { Missing, Unreadable, Read };

    explicit FileUpdate(const std::filesystem::path& path);
    ~FileUpdate();
    FileUpdate(const FileUpdate&) = delete;
    FileUpdate& operator=(const FileUpdate&) = delete;

    /// Fills `bytes` with what the file holds; they are empty unless the result is `Read`.
    State Read(std::vector<std::byte>& bytes) const;
    /// Renames what is there, file or not, to the first free of NAME.bad, NAME.bad2, ... and gives
    /// that name; none on failure, which leaves it where it is.
    std::optional<std::string> SetAside() const;
    /// Writes through a temporary file that is flushed and then moved into place, with the old
    /// file's mode. On failure the old file stays, `false` comes back, and the temporary file is
    /// gone. Temporary files left by killed programs are removed first.
    bool Write(const void* data, std::size_t size) const;
    /// Whether `Write` would succeed now, found out with an empty temporary file.
    bool CanWrite() const;

private:
    /// A descriptor, negative on failure, and its file's path.
    int CreateTemporary(std::filesystem::path& made) const;

    std::filesystem::path target;  ///< behind all links; empty if they lead in a circle
    int directory;                 ///< a descriptor; negative if it can't be opened
    bool locked;
};

}  // namespace Platform
