// Throws any bytes at the parser of level files. What it takes must come back the same from
// its own bytes.

#include <algorithm>

#include "fuzz/LevelMutator.h"

void Try(std::string_view input) {
    const auto bytes = BytesOf(input);
    std::string reason;
    std::uint32_t version = 0;
    const auto file = LevelFile::Parse(bytes, reason, version);
    if (!file) {
        return;
    }
    const auto written = file->Serialise();
    Expect(written.size() <= bytes.size() &&
           std::equal(written.begin(), written.end(), bytes.begin()));
}
