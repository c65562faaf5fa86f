// Any bytes as a file of keys for a run without a screen: refused with the line, or in order.

#include <algorithm>
#include <cstdlib>

#include "Options.h"
#include "fuzz/MemoryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    OptionsError error;
    const auto options =
        ParseOptions({"a.swah", "--frames", "1", "--frame-ms", "1", "--input", file.Path()}, error);
    const bool isFine = options ? std::ranges::is_sorted(options->keys, {}, &KeyChange::frame)
                                : !error.message.empty() && error.status == 1;
    if (!isFine) {
        std::abort();
    }
    return 0;
}
