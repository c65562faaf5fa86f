// Any level file in the hands of the author's tool: written as a map and compiled again it is the
// same, and the checks come through.

#include "Check.h"
#include "Compile.h"
#include "Decompile.h"
#include "LevelInput.h"
#include "MapReader.h"
#include "fuzz/LevelMutator.h"

void Try(std::string_view input) {
    constexpr std::size_t longest = 4096;
    std::string reason;
    std::uint32_t version = 0;
    const auto level =
        input.size() <= longest ? LevelFile::Parse(BytesOf(input), reason, version) : std::nullopt;
    if (!level) {
        return;
    }
    const std::string map = Decompile(*level);
    const auto objects = ReadMap(BytesOf(map), reason);
    const auto again = objects ? Compile(*objects, reason) : std::nullopt;
    Expect(again && again->Serialise() == level->Serialise());
    Problems problems;
    std::deque<LevelPolygon> polygons = MakePolygons(*level);
    CheckRecords(*level, problems);
    CheckBindings(*level, polygons, problems);
    CheckGeometry(*level, polygons, problems);
    CheckJoints(*level, polygons, problems);
    // Most of the time goes here; some of the inputs are enough.
    if (input.size() % 8 == 0) {
        CheckSpace(*level, polygons, problems);
    }
}
