// Allocation that counts. In a file of its own, so that no compiler sees the one half of a
// pair inlined and the other not.

#include "CountedAllocations.h"

#include <cstdlib>
#include <new>

std::atomic<std::size_t> countedAllocations{0};

void* operator new(std::size_t size) {
    ++countedAllocations;
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
