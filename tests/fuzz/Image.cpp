// Any bytes as an image file: refused, or as many pixels as it says, within bounds. A first byte
// of 0 gives the file the extension that stands for a kind without a mark.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "graphics/ImageReader.h"
#include "platform/ImageBounds.h"
#include "platform/ImageFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const auto file = std::as_bytes(std::span(data, size)).subspan(1);
    const auto image = Platform::DecodeImage(file, data[0] == 0 ? "tga" : "png");
    if (!image) {
        return 0;
    }
    const ConvertedImage converted = ConvertImage(*image);
    if (!Platform::IsBearableImage(image->width, image->height) ||
        converted.pixels.size() != std::size_t{image->width} * image->height) {
        std::abort();
    }
    return 0;
}
