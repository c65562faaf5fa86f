#pragma once
// A file in memory that has a path, for what opens its input by name.

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/Harness.h"

class MemoryFile {
public:
    explicit MemoryFile(std::string_view input) : number(memfd_create("fuzz", 0)) {
        Expect(number >= 0 &&
               write(number, input.data(), input.size()) == static_cast<ssize_t>(input.size()));
    }
    ~MemoryFile() { close(number); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(number); }

private:
    int number;
};
