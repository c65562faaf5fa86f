// Any bytes as a file of collision queries against a small level.

#include <cstdio>
#include <deque>

#include "LevelInput.h"
#include "Print.h"
#include "fuzz/MemoryFile.h"
#include "support/TestLevelFile.h"

void Try(std::string_view input) {
    static const bool silent = std::freopen("/dev/null", "w", stdout) != nullptr;
    static std::deque<LevelPolygon> polygons = MakePolygons(TestLevelFile::Rich());
    const MemoryFile file(input);
    std::string failure;
    Expect(silent && PrintCollisions(polygons, file.Path(), failure) == failure.empty());
}
