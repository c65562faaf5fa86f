// Any bytes as a file of collision queries against a small level.

#include <cstdio>
#include <cstdlib>
#include <deque>

#include "LevelInput.h"
#include "Print.h"
#include "fuzz/MemoryFile.h"
#include "support/TestLevelFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool silent = std::freopen("/dev/null", "w", stdout) != nullptr;
    static std::deque<LevelPolygon> polygons = MakePolygons(TestLevelFile::Rich());
    const MemoryFile file(data, size);
    std::string failure;
    if (!silent || PrintCollisions(polygons, file.Path(), failure) != failure.empty()) {
        std::abort();
    }
    return 0;
}
