// Any bytes as a video file: refused, or its first frames are whole, forwards and again.

#include <algorithm>

#include "fuzz/MemoryFile.h"
#include "platform/ImageBounds.h"
#include "platform/Video.h"

namespace {

volatile unsigned char touched;

/// False if there is no such frame.
bool Touch(Platform::Video& video, std::uint32_t number) {
    const unsigned char* const pixels = video.Frame(number);
    const auto bytes =
        static_cast<std::size_t>(video.RowBytes()) * static_cast<std::size_t>(video.Height());
    for (std::size_t i = 0; pixels != nullptr && i < bytes; i += 4096) {
        touched = pixels[i];
    }
    if (pixels != nullptr) {
        touched = pixels[bytes - 1];
    }
    return pixels != nullptr;
}

}  // namespace

void Try(std::string_view input) {
    const MemoryFile file(input);
    const auto video = Platform::Video::Open(file.Path());
    if (!video) {
        return;
    }
    Expect(Platform::IsBearableImage(static_cast<std::uint64_t>(video->Width()),
                                     static_cast<std::uint64_t>(video->Height())));
    const std::uint32_t count = std::min(video->FrameCount(), 8u);
    for (std::uint32_t i = 0; i < count && Touch(*video, i); ++i) {
    }
    Touch(*video, 0);
    Touch(*video, video->FrameCount());
}
