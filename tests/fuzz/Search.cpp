// Lets libFuzzer search for inputs of a harness.

#include <cstdint>

#include "fuzz/Harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Try({reinterpret_cast<const char*>(data), size});
    return 0;
}
