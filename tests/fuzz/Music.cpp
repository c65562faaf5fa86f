// Any bytes as a music file: refused, or read, also after jumps, within the buffer that was given.

#include <array>

#include "fuzz/MemoryFile.h"
#include "platform/MusicDecoder.h"

#ifdef VANTREL_LIBFUZZER
/// The general sound library loses a few kilobytes over each broken stream.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:vorbis_info_init\nleak:libsndfile.so\n";
}
#endif

void Try(std::string_view input) {
    constexpr int blocks = 64;
    const MemoryFile file(input);
    const auto decoder = Platform::MusicDecoder::Open(file.Path());
    if (!decoder) {
        return;
    }
    std::array<std::int16_t, 8192> samples{};
    for (const std::uint32_t place : {0u, 1000u, 0xFFFFFFFFu, 10u}) {
        if (place != 0) {
            decoder->Seek(place);
        }
        for (int i = 0; i < blocks; ++i) {
            const std::size_t count = decoder->Read(samples);
            Expect(count <= samples.size() && count % decoder->Format().channels == 0);
            if (count == 0) {
                break;
            }
        }
    }
}
