#pragma once
// Whole-block reading: a file or an embedded resource is copied into memory in one go, and
// the reader walks that block with a cursor. Nothing prints; a source that can't be had
// leaves a closed object.

#include <cstddef>
#include <string>
#include <vector>

class BufferedFile {
public:
    /// What `Seek` counts from.
    enum Origin { FromHere = 0, BackFromEnd = 1, FromStart = 2 };

    BufferedFile() = default;
    virtual ~BufferedFile() = default;
    BufferedFile(const BufferedFile&) = delete;
    BufferedFile& operator=(const BufferedFile&) = delete;

    /// Closes what was open, then takes the block of that name.
    virtual void Open(const std::string& name) = 0;
    void Close();

    bool IsOpen() const { return !data.empty(); }
    /// Open, not failed, and not at the end.
    bool CanRead() const { return !failed && position < data.size(); }
    /// Set by the first read or seek that would leave the block; stays until the next open.
    bool HasFailed() const { return failed; }
    /// The cursor as a pointer, for readers that walk the block themselves; valid until the
    /// object is closed or opened again. `Remaining` bytes may be read from it.
    const std::byte* Cursor() const { return data.data() + position; }
    std::size_t Remaining() const { return data.size() - position; }

    /// Copies `byteCount` bytes and moves on; beyond the end it copies nothing and fails.
    void Read(void* destination, std::size_t byteCount);
    /// Moves the cursor; held at the block's ends, with a failure.
    void Seek(std::ptrdiff_t offset, int origin);

protected:
    /// Takes over a block and opens it; an empty block leaves the object closed.
    void Adopt(std::vector<std::byte> block);

private:
    std::vector<std::byte> data;
    std::size_t position = 0;
    bool failed = true;
};

/// A file on disk, found in the working directory or the data root.
class DiskFile : public BufferedFile {
public:
    void Open(const std::string& name) override;
};

/// A resource built into the program, by name.
class ResourceFile : public BufferedFile {
public:
    void Open(const std::string& name) override;
};
