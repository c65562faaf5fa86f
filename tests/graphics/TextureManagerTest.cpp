#include "graphics/TextureManager.h"

#include <gtest/gtest.h>

#include <memory>

#include "RecordingDevice.h"
#include "TgaBytes.h"
#include "graphics/Texture.h"
#include "platform/DataRoot.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace {

using Lines = std::vector<std::string>;

class TextureManagerTest : public testing::Test {
protected:
    TextureManagerTest() {
        Platform::UseDataRoot(directory.path, true);
        Platform::ForgetListings();
        TextureManager::UseDevice(&device);
        TextureManager::Initialise();
    }
    ~TextureManagerTest() override {
        TextureManager::Shutdown();
        TextureManager::UseDevice(nullptr);
        Platform::UseDataRoot({});
    }

    void Write(const std::string& name, const std::string& bytes) {
        directory.Write("img/" + name, bytes);
        Platform::ForgetListings();
    }
    static std::string Tga(int depth, int side, std::uint32_t word) {
        std::string bytes = TgaBytes::HeaderBytes({.width = side, .height = side, .depth = depth});
        for (int i = 0; i < side * side; ++i) {
            bytes += TgaBytes::Pixel(word, depth / 8);
        }
        return bytes;
    }
    static Lines List() {
        Lines lines;
        TextureManager::List(lines);
        return lines;
    }

    TemporaryDirectory directory;
    RecordingDevice device;
};

TEST_F(TextureManagerTest, SharesOneTextureByNameInAnyCase) {
    Write("wall.tga", Tga(32, 4, 0x80102030));
    const Texture a("img\\wall.tga", "DEFAULT_TEXTURE");
    {
        const Texture b("IMG\\Wall.TGA", "DEFAULT_SPRITE");
        EXPECT_EQ(a, b);
        EXPECT_EQ(a.name, "img\\wall.tga");
        EXPECT_EQ(TextureManager::Acquire("img\\WALL.tga", nullptr).refCount, 3u);
        TextureManager::Release("IMG\\wall.tga");
        EXPECT_EQ(TextureManager::Acquire("img\\wall.tga", nullptr).resourceName,
                  "DEFAULT_TEXTURE");
        TextureManager::Release("IMG\\wall.tga");
    }
    EXPECT_EQ(device.uploads, 1);
    EXPECT_EQ(device.shown.at(a.glName).firstPixel, 0x80102030u);
    EXPECT_TRUE(a.hasAlpha);
    EXPECT_TRUE(device.loaded.empty());
    EXPECT_EQ(List(), Lines{"IMG\\WALL.TGA : 32 BIT"});
}

TEST_F(TextureManagerTest, DeletesATextureWithItsLastHandle) {
    std::vector<Texture> many(1000);
    EXPECT_EQ(many.front().name, "NO_TEXTURE_SPECIFIED");
    EXPECT_EQ(TextureManager::Acquire("no_texture_specified", nullptr).refCount, 1001u);
    TextureManager::Release("no_texture_specified");
    EXPECT_EQ(List().size(), 1u);
    EXPECT_EQ(device.uploads, 1);
    many.clear();
    EXPECT_TRUE(List().empty());
    EXPECT_TRUE(device.shown.empty());
    TextureManager::Release("never_there");
}

TEST_F(TextureManagerTest, HandlesFromBeforeANewStartCountNothing) {
    auto old = std::make_unique<Texture>("missing", nullptr);
    TextureManager::Initialise();
    const Texture young("missing", nullptr);
    old.reset();
    EXPECT_EQ(TextureManager::Acquire("missing", nullptr).refCount, 2u);
    EXPECT_EQ(device.shown.count(young.glName), 1u);
}

TEST_F(TextureManagerTest, LeavesRefusedTgaFilesToTheImageReader) {
    Write("deep.tga", Tga(24, 4, 0x102030));
    Write("small.tga", Tga(32, 3, 0x10203040));
    Write("cut.tga", Tga(32, 8, 0x10203040).substr(0, 200));
    for (const char* name : {"img\\deep.tga", "img\\small.tga", "img\\cut.tga"}) {
        const Texture texture(name, "DEFAULT_TEXTURE");
        EXPECT_EQ(texture.width, 2u) << name;
        EXPECT_FALSE(texture.hasAlpha);
        EXPECT_EQ(device.shown.at(texture.glName).firstPixel, 0xFFFF0000u);
        EXPECT_EQ(List(), Lines{TextureManager::Acquire(name, nullptr).name + " : 24 BIT"});
        TextureManager::Release(name);
    }
    EXPECT_EQ(device.loaded, (Lines{"deep.tga", "small.tga", "cut.tga"}));
}

TEST_F(TextureManagerTest, FallsBackOnEmbeddedImagesAndThenOnACheckerboard) {
    Write("broken.png", "no image");
    const Texture sprite("img\\broken.png", "DEFAULT_SPRITE");
    const Texture missing("missing", "");
    const Texture unknown("unknown", "NO_SUCH_RESOURCE");
    EXPECT_EQ(sprite.width, 64u);
    EXPECT_TRUE(sprite.hasAlpha);
    EXPECT_EQ(missing.width, 16u);
    EXPECT_FALSE(missing.hasAlpha);
    EXPECT_EQ(device.shown.at(missing.glName).firstPixel, 0xFFFFFFFFu);
    EXPECT_EQ(List(),
              (Lines{"IMG\\BROKEN.PNG (loading failed)  : 32 BIT",
                     "MISSING (loading failed)  : 32 BIT", "UNKNOWN (loading failed)  : 32 BIT"}));
    EXPECT_EQ(TextureManager::MemoryBytes(), (64u * 64 + 16 * 16 + 16 * 16) * 4);
}

TEST_F(TextureManagerTest, HandlesCopyAssignAndRename) {
    Write("a.tga", Tga(32, 4, 1));
    Texture a("IMG\\A.TGA", "DEFAULT_SPRITE");
    Texture b("b", nullptr);
    const std::uint32_t wasB = b.glName;
    b.AssignIfDifferent(a);
    EXPECT_EQ(b, a);
    EXPECT_EQ(b.width, 4u);
    EXPECT_EQ(device.shown.count(wasB), 0u);
    const Texture* self = &b;
    b = *self;
    Texture copy = b;
    EXPECT_EQ(TextureManager::Acquire("img\\a.tga", nullptr).refCount, 4u);
    TextureManager::Release("img\\a.tga");
    copy.SetName("img\\a.tga");
    EXPECT_EQ(device.uploads, 2);
    copy.SetName("c");
    EXPECT_EQ(copy.name, "C");
    EXPECT_GT(copy, a);
    EXPECT_EQ(copy.width, 16u);
}

TEST_F(TextureManagerTest, ReloadsInPlace) {
    Texture texture("img\\late.tga", "DEFAULT_TEXTURE");
    const std::uint32_t glName = texture.glName;
    EXPECT_EQ(texture.width, 128u);
    Write("late.tga", Tga(32, 4, 5));
    TextureManager::ReloadAll();
    EXPECT_EQ(device.shown.at(glName).firstPixel, 5u);
    EXPECT_EQ(texture.width, 128u);  // copied when the handle was made
    EXPECT_EQ(Texture(texture).width, 4u);
    EXPECT_EQ(List(), Lines{"IMG\\LATE.TGA : 32 BIT"});
}

TEST_F(TextureManagerTest, ListsTheFramesOfASetInOrder) {
    for (const char* name : {"drop_Frame02.tga", "drop_frame01.tga", "drop_frame10.tga",
                             "drop_frame01.png", "drip_frame01.tga"}) {
        Write(name, "x");
    }
    Lines names;
    TextureManager::ExpandFrameNames("img\\Drop_frame01.tga", names);
    ASSERT_EQ(names.size(), 3u);
    for (const std::string& name : names) {
        EXPECT_TRUE(Platform::FindFile(name)) << name;
        EXPECT_EQ(name.substr(0, 4), "IMG\\");
    }
    EXPECT_EQ(names.front().substr(4), "drop_frame01.tga");
    EXPECT_EQ(names.back().substr(4), "drop_frame10.tga");
    names.clear();
    TextureManager::ExpandFrameNames("img\\single.tga", names);
    EXPECT_EQ(names, Lines{"IMG\\SINGLE.TGA"});
    names.clear();
    TextureManager::ExpandFrameNames("img\\none_frame1.tga", names);
    EXPECT_TRUE(names.empty());
}

}  // namespace
