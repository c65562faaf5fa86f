// Throws any bytes at the parser of level files. What it takes must come back the same from
// its own bytes.

#include <algorithm>
#include <cstdlib>

#include "fuzz/LevelMutator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    std::string reason;
    std::uint32_t version = 0;
    const auto file = LevelFile::Parse(bytes, reason, version);
    if (!file) {
        return 0;
    }
    const auto written = file->Serialise();
    if (written.size() > size || !std::equal(written.begin(), written.end(), bytes.begin())) {
        std::abort();
    }
    return 0;
}
