// Any bytes as an image file: refused, or as many pixels as it says, within bounds. A first byte
// of 0 gives the file the extension that stands for a kind without a mark.

#include "fuzz/Harness.h"
#include "graphics/ImageReader.h"
#include "platform/ImageBounds.h"
#include "platform/ImageFile.h"

void Try(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const auto file = BytesOf(input).subspan(1);
    const auto image = Platform::DecodeImage(file, input[0] == '\0' ? "tga" : "png");
    if (!image) {
        return;
    }
    const ConvertedImage converted = ConvertImage(*image);
    Expect(Platform::IsBearableImage(image->width, image->height) &&
           converted.pixels.size() == std::size_t{image->width} * image->height);
}
