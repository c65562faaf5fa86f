#include <GL/glu.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "WindowFixture.h"
#include "graphics/ImageReader.h"
#include "graphics/Mipmaps.h"
#include "platform/DataRoot.h"
#include "platform/Paths.h"
#include "support/Places.h"

namespace {

int Channel(std::uint32_t pixel, int index) {
    return static_cast<int>(pixel >> (8 * index) & 255);
}

/// The largest difference of two pixels in a channel of colour.
int Difference(std::uint32_t a, std::uint32_t b) {
    int largest = 0;
    for (int i = 0; i < 3; ++i) {
        largest = std::max(largest, std::abs(Channel(a, i) - Channel(b, i)));
    }
    return largest;
}

class TextureWindowTest : public WindowFixture {
protected:
    /// Checks the four quarters of a sample: red and green above, blue and white below. A tolerance
    /// that isn't needed is a fault, too.
    static void ExpectQuarters(const Pixels& pixels, std::size_t side, int tolerance = 0) {
        ASSERT_EQ(pixels.size(), side * side);
        const std::size_t low = side / 4;
        const std::size_t high = side - 1 - low;
        const int difference = std::max({Difference(pixels[low * side + low], 0xFFFF0000),
                                         Difference(pixels[low * side + high], 0xFF00FF00),
                                         Difference(pixels[high * side + low], 0xFF0000FF),
                                         Difference(pixels[high * side + high], 0xFFFFFFFF)});
        EXPECT_LE(difference, tolerance);
        EXPECT_EQ(difference > 0, tolerance > 0);
    }
};

TEST_F(TextureWindowTest, ShowsEveryKindOfFileRightSideUpInItsColours) {
    struct Sample {
        const char* name;
        int depth;
        bool hasAlpha;
        // Of 255. Five bits of a colour reach 248; a JPEG file keeps about what it was given.
        int tolerance = 0;
    };
    const Sample samples[] = {
        {"rgb.png", 24, false},     {"rgb.bmp", 24, false},      {"palette.png", 8, false},
        {"rgba.png", 32, true},     {"key.gif", 8, true},        {"bits16.bmp", 16, false, 7},
        {"tga24.tga", 24, false},   {"tga24top.tga", 24, false}, {"tga32.tga", 32, true},
        {"tga32top.tga", 32, true}, {"tga32run.tga", 32, true},  {"rgb.jpg", 24, false, 16}};
    for (const Sample& sample : samples) {
        SCOPED_TRACE(sample.name);
        const Texture texture(std::string("samples\\") + sample.name, nullptr);
        EXPECT_EQ(texture.width, 8u);
        EXPECT_EQ(texture.hasAlpha, sample.hasAlpha);
        const Pixels pixels = ReadTexture(texture);
        ExpectQuarters(pixels, 8, sample.tolerance);
        EXPECT_EQ(Channel(pixels.front(), 3), 255);
        EXPECT_EQ(Channel(pixels.back(), 3), sample.hasAlpha ? 0 : 255);
        std::vector<std::string> lines;
        TextureManager::List(lines);
        EXPECT_TRUE(lines.front().ends_with(" : " + std::to_string(sample.depth) + " BIT"))
            << lines.front();
    }
}

TEST_F(TextureWindowTest, QualityCompressesAndHalvesUnderTheSameName) {
    const Texture texture("samples\\large.png", nullptr);
    const std::uint32_t glName = texture.glName;
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_INTERNAL_FORMAT), GL_RGBA);

    TextureManager::SetQuality(TextureQuality::Compressed);
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_COMPRESSED_ARB), device.HasCompression() ? 1 : 0);
    ExpectQuarters(ReadTexture(texture), 32);

    TextureManager::SetQuality(TextureQuality::Halved);
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_WIDTH), 16);
    ExpectQuarters(ReadTexture(texture), 16);

    TextureManager::SetQuality(TextureQuality::Full);
    ExpectQuarters(ReadTexture(texture), 32);
    EXPECT_EQ(texture.glName, glName);
}

TEST_F(TextureWindowTest, StretchesOddSizesAndScalesTinyOnes) {
    const Pixels red(100 * 60, 0xFFFF0000);
    const Texture texture("missing", nullptr);
    device.Upload(texture.glName, red.data(), 100, 60, {});
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_WIDTH), 128);
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_HEIGHT), 64);
    EXPECT_EQ(ReadTexture(texture), Pixels(128 * 64, 0xFFFF0000));
    device.Upload(texture.glName, red.data(), 1, 1, {.quality = TextureQuality::Halved});
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_WIDTH), 1);
    device.Upload(texture.glName, red.data(), 0, 5, {});
    EXPECT_EQ(LevelZero(texture, GL_TEXTURE_WIDTH), 1);
}

TEST_F(TextureWindowTest, AnisotropyIsSetOnTexturesThatStandAndOnNewOnes) {
    if (device.MaxAnisotropy() == 0) {
        GTEST_SKIP() << "no anisotropic filter here";
    }
    const auto anisotropy = [](const Texture& texture) {
        GLint value = 0;
        glBindTexture(GL_TEXTURE_2D, texture.glName);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAX_ANISOTROPY_EXT, &value);
        return value;
    };
    const Texture before("samples\\rgb.png", nullptr);
    EXPECT_EQ(anisotropy(before), 1);
    TextureManager::SetAnisotropy(1000);
    EXPECT_EQ(TextureManager::Anisotropy(), device.MaxAnisotropy());
    const Texture after("samples\\rgb.bmp", nullptr);
    EXPECT_EQ(anisotropy(before), device.MaxAnisotropy());
    EXPECT_EQ(anisotropy(after), device.MaxAnisotropy());
}

/// All levels of a texture, one after the other.
std::vector<std::uint32_t> Levels(std::uint32_t glName, std::uint32_t width, std::uint32_t height) {
    glBindTexture(GL_TEXTURE_2D, glName);
    std::vector<std::uint32_t> all;
    for (GLint level = 0;; ++level) {
        const std::size_t before = all.size();
        all.resize(before + std::size_t{width} * height);
        glGetTexImage(GL_TEXTURE_2D, level, GL_BGRA, GL_UNSIGNED_BYTE, &all[before]);
        if (width == 1 && height == 1) {
            return all;
        }
        width = std::max(width / 2, 1u);
        height = std::max(height / 2, 1u);
    }
}

std::vector<std::uint32_t> Noise(std::size_t count) {
    std::minstd_rand random;
    std::vector<std::uint32_t> pixels(count);
    for (std::uint32_t& pixel : pixels) {
        pixel = static_cast<std::uint32_t>(random()) << 16 ^ static_cast<std::uint32_t>(random());
    }
    return pixels;
}

TEST_F(TextureWindowTest, MipmapsAreThoseOfGluToTheLastBit) {
    const Texture ours("ours", nullptr);
    const Texture glus("glus", nullptr);
    const auto compare = [&](const Pixels& pixels, std::uint32_t width, std::uint32_t height) {
        device.Upload(ours.glName, pixels.data(), width, height, {});
        glBindTexture(GL_TEXTURE_2D, glus.glName);
        gluBuild2DMipmaps(GL_TEXTURE_2D, GL_RGBA, static_cast<GLsizei>(width),
                          static_cast<GLsizei>(height), GL_BGRA, GL_UNSIGNED_BYTE, pixels.data());
        return Levels(ours.glName, width, height) == Levels(glus.glName, width, height);
    };
    for (const auto& [width, height] : {std::pair{1u, 1u},
                                        {2u, 1u},
                                        {1u, 64u},
                                        {512u, 1u},
                                        {2u, 2u},
                                        {128u, 4u},
                                        {8u, 256u},
                                        {512u, 512u}}) {
        EXPECT_TRUE(compare(Noise(std::size_t{width} * height), width, height))
            << width << " by " << height;
    }
    Platform::UseDataRoot(SourceDirectory() / "data", true);
    int compared = 0;
    for (const std::string folder : {"img\\", "img\\menu\\", "img\\gallery\\"}) {
        for (const std::string& file : Platform::ListFiles(folder + "*.png")) {
            const auto image = Platform::ReadImageFile(*Platform::FindFile(folder + file));
            ASSERT_TRUE(image) << file;
            if (Mipmaps::CanHalve(image->width, image->height)) {
                EXPECT_TRUE(compare(ConvertImage(*image).pixels, image->width, image->height))
                    << file;
                ++compared;
            }
        }
    }
    EXPECT_GE(compared, 350);
}

TEST_F(TextureWindowTest, EveryShippedPictureLoads) {
    Platform::UseDataRoot(SourceDirectory() / "data", true);
    int count = 0;
    for (const char* pattern : {"img\\*.png", "img\\*.tga"}) {
        for (const std::string& file : Platform::ListFiles(pattern)) {
            const Texture texture("img\\" + file, nullptr);
            std::vector<std::string> lines;
            TextureManager::List(lines);
            EXPECT_EQ(lines.front().find("failed"), std::string::npos) << lines.front();
            ++count;
        }
    }
    EXPECT_GE(count, 17);
}

}  // namespace
