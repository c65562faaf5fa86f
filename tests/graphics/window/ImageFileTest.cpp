#include "platform/ImageFile.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace {

std::vector<std::string> Samples() {
    Platform::UseDataRoot(VANTREL_SOURCE_DIR "/tests/graphics/window", true);
    return Platform::ListFiles("samples\\*");
}

std::string Bytes(const std::string& sample) {
    const auto block =
        Platform::ReadWholeFile(VANTREL_SOURCE_DIR "/tests/graphics/window/samples/" + sample);
    const auto* first = reinterpret_cast<const char*>(block->data());
    return {first, first + block->size()};
}

TEST(ImageFile, SurvivesFilesCutAtEveryByte) {
    const TemporaryDirectory directory;
    for (const std::string& sample : Samples()) {
        const std::string whole = Bytes(sample);
        EXPECT_TRUE(Platform::ReadImageFile(directory.Write(sample, whole))) << sample;
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const auto file = directory.Write(sample, std::string_view(whole).substr(0, length));
            const auto image = Platform::ReadImageFile(file);
            EXPECT_TRUE(!image || (image->width <= 32 && image->height <= 32)) << sample;
        }
    }
}

TEST(ImageFile, RefusesSizesThatTheFileCannotFill) {
    struct Field {
        const char* sample;
        std::size_t place;
        std::string value;
    };
    const std::string much("\x3F\xFF\x3F\xFF", 4);
    const Field fields[] = {{"rgb.png", 18, much.substr(0, 2)},
                            {"rgb.png", 22, much.substr(0, 2)},
                            {"rgb.bmp", 22, much},
                            {"tga24.tga", 14, much.substr(0, 2)},
                            {"bits16.bmp", 22, much}};
    const TemporaryDirectory directory;
    for (const Field& field : fields) {
        std::string bytes = Bytes(field.sample);
        bytes.replace(field.place, field.value.size(), field.value);
        EXPECT_FALSE(Platform::ReadImageFile(directory.Write(field.sample, bytes)))
            << field.sample << " at " << field.place;
    }
    // A GIF says its size behind the extension blocks.
    std::string gif = Bytes("key.gif");
    gif.replace(gif.find(std::string("\x2C\0\0\0\0", 5)) + 5, 4, "\xFF\x7F\xFF\x7F");
    EXPECT_FALSE(Platform::ReadImageFile(directory.Write("key.gif", gif)));
}

TEST(ImageFile, GivesNothingForNoImage) {
    const TemporaryDirectory directory;
    EXPECT_FALSE(Platform::ReadImageFile(directory.path));
    EXPECT_FALSE(Platform::ReadImageFile(directory.path / "missing.png"));
    EXPECT_FALSE(Platform::ReadImageFile(directory.Write("empty.png", "")));
    EXPECT_FALSE(Platform::ReadImageFile(directory.Write("noise", "no image at all")));
}

}  // namespace
