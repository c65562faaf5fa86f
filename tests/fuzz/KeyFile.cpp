// Any bytes as a file of keys for a run without a screen: refused with the line, or in order.

#include <algorithm>

#include "Options.h"
#include "fuzz/MemoryFile.h"

void Try(std::string_view input) {
    const MemoryFile file(input);
    OptionsError error;
    const auto options =
        ParseOptions({"a.swah", "--frames", "1", "--frame-ms", "1", "--input", file.Path()}, error);
    Expect(options ? std::ranges::is_sorted(options->keys, {}, &KeyChange::frame)
                   : !error.message.empty() && error.status == 1);
}
