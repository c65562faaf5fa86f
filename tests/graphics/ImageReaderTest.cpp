#include "graphics/ImageReader.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Platform::ImageFile;
using Pixels = std::vector<std::uint32_t>;

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

TEST(ImageReader, LooksUpPaletteAndColourKey) {
    ImageFile image = Image(3, 1, 8, 4, {1, 2, 255, 99});
    image.palette.fill(0xFF000000);
    image.palette[1] = 0xFF102030;
    image.palette[2] = 0xFF405060;
    ConvertedImage result = ConvertImage(image);
    EXPECT_EQ(result.pixels, (Pixels{0xFF102030, 0xFF405060, 0xFF000000}));
    EXPECT_FALSE(result.hasAlpha);
    EXPECT_EQ(result.bytesPerPixel, 1u);

    image.hasColourKey = true;
    image.colourKey = 2;
    result = ConvertImage(image);
    EXPECT_EQ(result.pixels, (Pixels{0xFF102030, 0x00405060, 0xFF000000}));
    EXPECT_TRUE(result.hasAlpha);
}

TEST(ImageReader, ShiftsChannelsFromTheirMasks) {
    ImageFile five = Image(1, 2, 16, 4, {0x1F, 0xF8, 0, 0, 0xE0, 0x07, 0, 0});
    five.red = {0xF800, 11, 3};
    five.green = {0x07E0, 5, 2};
    five.blue = {0x001F, 0, 3};
    EXPECT_EQ(ConvertImage(five).pixels, (Pixels{0xFFF800F8, 0xFF00FC00}));

    // Red first, rows padded to 4 bytes.
    ImageFile three = Image(1, 2, 24, 4, {1, 2, 3, 99, 4, 5, 6, 99});
    three.red = {0x0000FF, 0, 0};
    three.green = {0x00FF00, 8, 0};
    three.blue = {0xFF0000, 16, 0};
    EXPECT_EQ(ConvertImage(three).pixels, (Pixels{0xFF010203, 0xFF040506}));
    EXPECT_EQ(ConvertImage(three).bytesPerPixel, 3u);
    EXPECT_FALSE(ConvertImage(three).hasAlpha);

    ImageFile four = Image(1, 1, 32, 4, {1, 2, 3, 4});
    four.red = {0x000000FF, 0, 0};
    four.green = {0x0000FF00, 8, 0};
    four.blue = {0x00FF0000, 16, 0};
    four.alpha = {0xFF000000, 24, 0};
    EXPECT_EQ(ConvertImage(four).pixels, (Pixels{0x04010203}));
    EXPECT_TRUE(ConvertImage(four).hasAlpha);
    four.alpha = {};
    EXPECT_EQ(ConvertImage(four).pixels, (Pixels{0x00010203}));
}

TEST(ImageReader, RefusesRowsThatDoNotFit) {
    EXPECT_TRUE(ConvertImage(Image(2, 2, 8, 2, {1, 2, 3})).pixels.empty());
    EXPECT_TRUE(ConvertImage(Image(2, 1, 32, 4, {1, 2, 3, 4})).pixels.empty());
    EXPECT_TRUE(ConvertImage(Image(2, 1, 4, 1, {1})).pixels.empty());
}

}  // namespace
