// Any level file in the hands of the author's tool: written as a map and compiled again it is the
// same, and the checks come through.

#include <cstdlib>
#include <deque>
#include <span>

#include "Check.h"
#include "Compile.h"
#include "Decompile.h"
#include "LevelInput.h"
#include "MapReader.h"
#include "fuzz/LevelMutator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 4096;
    std::string reason;
    std::uint32_t version = 0;
    const auto level = size <= longest
                           ? LevelFile::Parse(std::as_bytes(std::span(data, size)), reason, version)
                           : std::nullopt;
    if (!level) {
        return 0;
    }
    const std::string map = Decompile(*level);
    const auto objects = ReadMap(std::as_bytes(std::span(map)), reason);
    const auto again = objects ? Compile(*objects, reason) : std::nullopt;
    if (!again || again->Serialise() != level->Serialise()) {
        std::abort();
    }
    Problems problems;
    std::deque<LevelPolygon> polygons = MakePolygons(*level);
    CheckRecords(*level, problems);
    CheckBindings(*level, polygons, problems);
    CheckGeometry(*level, polygons, problems);
    CheckJoints(*level, polygons, problems);
    // Most of the time goes here; some of the inputs are enough.
    if (size % 8 == 0) {
        CheckSpace(*level, polygons, problems);
    }
    return 0;
}
