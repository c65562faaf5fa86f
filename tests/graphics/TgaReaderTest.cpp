#include "graphics/TgaReader.h"

#include <gtest/gtest.h>

#include "TgaBytes.h"

namespace {

using namespace TgaBytes;
using Pixels = std::vector<std::uint32_t>;

bool Reads(const std::string& bytes, TgaImage& image) {
    MemoryFile file(bytes);
    return ReadTga(file, image);
}

bool Reads(const std::string& bytes) {
    TgaImage image;
    return Reads(bytes, image);
}

/// 4 by 4 pixels 1 to 16 in file order.
std::string Counting() {
    std::string bytes;
    for (std::uint32_t i = 1; i <= 16; ++i) {
        bytes += Pixel(i);
    }
    return bytes;
}

TEST(TgaReader, DecodesRunsAndCutsThemAtTheEndOfTheRow) {
    const std::string bytes = HeaderBytes({.type = 10, .width = 5, .descriptor = 0x28}) +
                              Repeated(2, 7) + Raw({1, 2, 3}) +       // exactly a row
                              Repeated(3, 8) + Repeated(9, 9) +       // repeated beyond it
                              Raw({1, 2}) + Raw({3, 4, 5, 50, 51}) +  // raw beyond it
                              Repeated(128, 0xFFFFFFFF);
    TgaImage image;
    ASSERT_TRUE(Reads(bytes, image));
    const std::uint32_t f = 0xFFFFFFFF;
    EXPECT_EQ(image.pixels, (Pixels{7, 7, 1, 2, 3, 8, 8, 8, 9, 9, 1, 2, 3, 4, 5, f, f, f, f, f}));
}

TEST(TgaReader, RefusesEveryShorterFile) {
    const std::string plain = HeaderBytes({.idLength = 2}) + Counting();
    const std::string coded = HeaderBytes({.type = 10, .idLength = 2}) + Repeated(4, 1) +
                              Raw({1, 2, 3, 4}) + Repeated(1, 2) + Raw({5, 6, 7}) + Repeated(4, 3);
    for (const std::string& whole : {plain, coded}) {
        ASSERT_TRUE(Reads(whole));
        for (std::size_t length = 0; length < whole.size(); ++length) {
            EXPECT_FALSE(Reads(whole.substr(0, length))) << length;
        }
    }
}

TEST(TgaReader, TakesNoMemoryForSizesThatTheFileCannotFill) {
    // 16 GB of pixels announced, a few bytes given.
    EXPECT_FALSE(Reads(HeaderBytes({.width = 65535, .height = 65535}) + Counting()));
    EXPECT_FALSE(Reads(HeaderBytes({.type = 10, .width = 65535, .height = 65535}) + Counting()));
    // More than anyone can bear, although the file does hold it: 3 MB for 64 Mi pixels.
    std::string runs = HeaderBytes({.type = 10, .width = 16384, .height = 4096});
    for (int i = 0; i < 128 * 4096; ++i) {
        runs += Repeated(128, 0);
    }
    EXPECT_FALSE(Reads(runs));
}

}  // namespace
