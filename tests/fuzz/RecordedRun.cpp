// Any bytes are a recorded run: it is taken within bounds, or refused with a reason.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "game/RunFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string reason;
    const auto run = ParseRun(std::as_bytes(std::span(data, size)), reason);
    if (run.has_value() != reason.empty() || (run && run->steps.size() > (4u << 20)) ||
        (run && !run->hashes.empty() && run->hashes.size() != run->HashCount())) {
        std::abort();
    }
    return 0;
}
