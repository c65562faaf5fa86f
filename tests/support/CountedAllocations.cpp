// Allocation that counts and remembers its largest size. In a file of its own, so that no compiler
// sees the one half of a pair inlined and the other not.

#include "support/CountedAllocations.h"

#include <cstdlib>
#include <new>

std::atomic<std::size_t> countedAllocations{0};
std::atomic<std::size_t> largestAllocation{0};

void* operator new(std::size_t size) {
    ++countedAllocations;
    if (size > largestAllocation) {
        largestAllocation = size;
    }
    if (void* const memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
