// Who holds the heap of a program, told by the library that each block was asked for by. To be
// preloaded (tools/setup/menu_footprint.sh): on SIGUSR1 it prints a line with bytes and name for
// each, and keeps out of the way else. Blocks of C++ count for whoever calls `new`.

#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>

// What stands behind the functions that are replaced here.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

struct Block {
    void* address;  // null: the place is empty
    void* caller;
    std::size_t size;
};

// Open addressing in static memory, as nothing here may allocate.
constexpr std::size_t places = std::size_t{1} << 21;
Block blocks[places];
std::mutex guard;

std::size_t PlaceOf(const void* address) {
    return (reinterpret_cast<std::uintptr_t>(address) >> 4) * 0x9E3779B97F4A7C15u >> 43;
}

std::size_t After(std::size_t place) {
    return (place + 1) % places;
}

void* Add(void* address, std::size_t size, void* caller) {
    if (address != nullptr) {
        const std::lock_guard lock(guard);
        std::size_t place = PlaceOf(address);
        while (blocks[place].address != nullptr) {
            place = After(place);
        }
        blocks[place] = {address, caller, size};
    }
    return address;
}

void Remove(const void* address) {
    if (address == nullptr) {
        return;
    }
    const std::lock_guard lock(guard);
    std::size_t place = PlaceOf(address);
    while (blocks[place].address != address) {
        if (blocks[place].address == nullptr) {
            return;
        }
        place = After(place);
    }
    blocks[place] = {};
    // What stood behind it for want of this place moves up.
    for (std::size_t next = After(place); blocks[next].address != nullptr; next = After(next)) {
        const std::size_t home = PlaceOf(blocks[next].address);
        if ((next - home) % places >= (next - place) % places) {
            blocks[place] = blocks[next];
            blocks[next] = {};
            place = next;
        }
    }
}

void Report(int) {
    constexpr std::size_t most = 200;
    static const char* names[most];
    static std::size_t sums[most];
    std::size_t count = 0;
    const std::lock_guard lock(guard);
    for (const Block& block : blocks) {
        Dl_info info{};
        if (block.address == nullptr) {
            continue;
        }
        const char* const name = dladdr(block.caller, &info) != 0 ? info.dli_fname : "?";
        std::size_t i = 0;
        while (i < count && names[i] != name) {
            ++i;
        }
        if (i == count && count < most) {
            names[count] = name;
            sums[count++] = 0;
        }
        sums[i < most ? i : most - 1] += block.size;
    }
    for (std::size_t i = 0; i < count; ++i) {
        std::fprintf(stderr, "heap %zu %s\n", sums[i], names[i]);
    }
}

[[gnu::constructor]] void Listen() {
    signal(SIGUSR1, Report);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
    return Add(__libc_malloc(size), size, __builtin_return_address(0));
}
void* calloc(std::size_t count, std::size_t size) {
    return Add(__libc_calloc(count, size), count * size, __builtin_return_address(0));
}
void* realloc(void* block, std::size_t size) {
    Remove(block);
    return Add(__libc_realloc(block, size), size, __builtin_return_address(0));
}
void* memalign(std::size_t alignment, std::size_t size) {
    return Add(__libc_memalign(alignment, size), size, __builtin_return_address(0));
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return Add(__libc_memalign(alignment, size), size, __builtin_return_address(0));
}
int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
    *block = Add(__libc_memalign(alignment, size), size, __builtin_return_address(0));
    return *block != nullptr ? 0 : 12;
}
void free(void* block) {
    Remove(block);
    __libc_free(block);
}
}

void* operator new(std::size_t size) {
    void* const block = Add(__libc_malloc(size), size, __builtin_return_address(0));
    if (block == nullptr) {
        std::abort();
    }
    return block;
}
void operator delete(void* block) noexcept {
    free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    free(block);
}
