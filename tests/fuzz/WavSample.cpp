// Any bytes are a sample file: reading stays within them, and what loads is of a playable form.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "audio/WavFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const auto wav = WavFile::Parse(bytes);
    if (wav && (wav->data.empty() || wav->data.data() < bytes.data() ||
                wav->data.data() + wav->data.size() > bytes.data() + bytes.size())) {
        std::abort();
    }
    return 0;
}
