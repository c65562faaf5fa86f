#pragma once
// A file in memory that has a path, for what opens its input by name.

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : number(memfd_create("fuzz", 0)) {
        if (number < 0 || write(number, data, size) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }
    ~MemoryFile() { close(number); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(number); }

private:
    int number;
};
