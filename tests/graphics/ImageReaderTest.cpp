#include "graphics/ImageReader.h"

#include <gtest/gtest.h>

namespace {

using Platform::ImageFile;

ImageFile Image(std::uint32_t width, std::uint32_t height, std::uint32_t bits, std::uint32_t pitch,
                const std::vector<int>& bytes) {
    ImageFile image;
    image.width = width;
    image.height = height;
    image.bitsPerPixel = bits;
    image.pitch = pitch;
    for (const int byte : bytes) {
        image.pixels.push_back(static_cast<std::byte>(byte));
    }
    return image;
}

TEST(ImageReader, RefusesRowsThatDoNotFit) {
    EXPECT_TRUE(ConvertImage(Image(2, 2, 8, 2, {1, 2, 3})).pixels.empty());
    EXPECT_TRUE(ConvertImage(Image(2, 1, 32, 4, {1, 2, 3, 4})).pixels.empty());
    EXPECT_TRUE(ConvertImage(Image(2, 1, 4, 1, {1})).pixels.empty());
}

}  // namespace
