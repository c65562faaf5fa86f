#include "platform/ImageFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "platform/DataRoot.h"
#include "platform/ImageHeader.h"
#include "platform/Paths.h"
#include "platform/WholeFile.h"
#include "support/Places.h"
#include "support/TemporaryDirectory.h"

namespace {

const std::filesystem::path folder = SourceDirectory() / "tests/graphics/window";

std::vector<std::string> Samples() {
    Platform::UseDataRoot(folder, true);
    return Platform::ListFiles("samples\\*");
}

std::string Bytes(const std::string& sample) {
    const auto block = Platform::ReadWholeFile(folder / "samples" / sample);
    const auto* first = reinterpret_cast<const char*>(block->data());
    return {first, first + block->size()};
}

std::string Extension(std::string_view sample) {
    return std::string(sample.substr(sample.find('.') + 1));
}

bool IsChecked(const std::string& bytes, const std::string& extension) {
    return Platform::CheckedImageKind(std::as_bytes(std::span(bytes)), extension).has_value();
}

TEST(ImageFile, SurvivesFilesCutAtEveryByte) {
    for (const std::string& sample : Samples()) {
        const std::string whole = Bytes(sample);
        EXPECT_TRUE(Platform::ReadImageFile(folder / "samples" / sample)) << sample;
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const auto cut = std::as_bytes(std::span(whole)).first(length);
            const auto image = Platform::DecodeImage(cut, Extension(sample));
            EXPECT_TRUE(!image || (image->width <= 32 && image->height <= 32)) << sample;
            // The library would fill up the pixels that aren't there with anything.
            EXPECT_FALSE(image && sample.ends_with(".tga")) << sample << " at " << length;
        }
    }
}

TEST(ImageFile, RefusesWhatTheDecodersAreNotTrustedWith) {
    // Pictures in printing colours would show in wrong ones; texts that are pictures under the
    // name of another kind overrun the library's lines.
    for (const char* name : {"cmyk.jpg", "xpm.png"}) {
        EXPECT_FALSE(Platform::ReadImageFile(folder / "refused" / name)) << name;
    }
}

TEST(ImageFile, RefusesSizesThatTheFileCannotFillOrMemoryCannotHold) {
    struct Field {
        const char* sample;
        std::size_t place;
        std::string value;
        std::size_t padding;  // bytes behind, enough to hold the picture
    };
    const std::string much("\x3F\xFF\x3F\xFF", 4);
    const std::size_t enough = 300'000;
    const Field fields[] = {{"rgb.bmp", 22, much, 0},
                            {"tga24.tga", 14, much.substr(0, 2), 0},
                            {"bits16.bmp", 22, much, 0},
                            {"rgb.png", 16, std::string("\0\0\x3F\xFF\0\0\xFF\xFF", 8), enough},
                            {"rgb.png", 16, std::string("\0\0\x1F\x41\0\0\x1F\x41", 8), enough}};
    for (const Field& field : fields) {
        std::string bytes = Bytes(field.sample) + std::string(field.padding, '\0');
        EXPECT_TRUE(IsChecked(bytes, Extension(field.sample))) << field.sample;
        bytes.replace(field.place, field.value.size(), field.value);
        EXPECT_FALSE(IsChecked(bytes, Extension(field.sample)))
            << field.sample << " at " << field.place;
    }
    // A GIF says its size behind the extension blocks.
    std::string gif = Bytes("key.gif");
    gif.replace(gif.find(std::string("\x2C\0\0\0\0", 5)) + 5, 4, "\xFF\x7F\xFF\x7F");
    EXPECT_FALSE(IsChecked(gif, "gif"));
    // A JPEG of a thousand passes over 64 million pixels is decoded for minutes.
    std::string jpeg = Bytes("rgb.jpg");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    jpeg.replace(frame + 5, 4, std::string("\x1F\x40\x1F\x40", 4)).append(enough, ' ');
    EXPECT_TRUE(IsChecked(jpeg, "jpg"));
    for (int i = 0; i < 1000; ++i) {
        jpeg += "\xFF\xDA";
    }
    EXPECT_FALSE(IsChecked(jpeg, "jpg"));
    // A mark without a length doesn't hide the first of two sizes.
    std::string hidden("\xFF\xD8\xFF\xD0\xFF\xC0\0\x11\x08\xFF\xFF\xFF\xFF\x03", 14);
    hidden.resize(4 + 0xFFC0, ' ');
    hidden += Bytes("rgb.jpg").substr(2);
    EXPECT_FALSE(IsChecked(hidden, "jpg"));
}

TEST(ImageFile, GivesNothingForNoImage) {
    const TemporaryDirectory directory;
    EXPECT_FALSE(Platform::ReadImageFile(directory.path));
    EXPECT_FALSE(Platform::ReadImageFile(directory.path / "missing.png"));
    EXPECT_FALSE(Platform::ReadImageFile(directory.Write("empty.png", "")));
    EXPECT_FALSE(Platform::ReadImageFile(directory.Write("noise", "no image at all")));
}

}  // namespace
