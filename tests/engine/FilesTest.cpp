// Blocks in memory and on disk: binary readers, whole files, embedded resources.

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "WorkingFolder.h"
#include "engine/BufferedFile.h"
#include "engine/ByteReader.h"
#include "engine/EmbeddedResources.h"

TEST(ByteReader, GivesZerosOnceAReadWouldLeaveTheBlock) {
    const std::array<std::byte, 3> block{std::byte{1}, std::byte{2}, std::byte{3}};
    ByteReader reader(block);
    EXPECT_EQ(reader.U32(), 0u);
    EXPECT_TRUE(reader.HasFailed());
    EXPECT_EQ(reader.U8(), 0);
    EXPECT_EQ(reader.Position(), 0u);
    ByteReader skipping(block);
    skipping.Skip(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(skipping.HasFailed());
    EXPECT_TRUE(skipping.Bytes(0).empty());
}

namespace {

class BufferedFileTest : public testing::Test {
protected:
    BufferedFileTest() {
        directory.Write("six.bin", "abcdef");
        file.Open("SIX.BIN");
    }

    char Next() {
        char c = '?';
        file.Read(&c, 1);
        return c;
    }

    WorkingFolder directory;
    DiskFile file;
};

}  // namespace

TEST_F(BufferedFileTest, ReadsUpToItsEndAndNotBeyond) {
    std::array<char, 8> text{};
    file.Read(text.data(), 7);
    EXPECT_EQ(text[0], '\0');
    EXPECT_TRUE(file.HasFailed());
    file.Read(text.data(), 2);
    EXPECT_STREQ(text.data(), "ab");
    EXPECT_TRUE(file.HasFailed());

    file.Open("six.bin");
    file.Read(text.data(), 6);
    EXPECT_STREQ(text.data(), "abcdef");
    EXPECT_FALSE(file.HasFailed());
    EXPECT_FALSE(file.CanRead());
}

TEST_F(BufferedFileTest, SeeksFromThreeOriginsAndStaysWithin) {
    file.Seek(2, BufferedFile::BackFromEnd);
    EXPECT_EQ(Next(), 'e');
    file.Seek(-2, BufferedFile::FromHere);
    EXPECT_EQ(Next(), 'd');
    file.Seek(1, BufferedFile::FromStart);
    EXPECT_EQ(Next(), 'b');
    file.Seek(5, 7);
    EXPECT_EQ(Next(), 'c');
    file.Seek(0, BufferedFile::BackFromEnd);
    EXPECT_EQ(file.Remaining(), 0u);
    EXPECT_FALSE(file.HasFailed());

    constexpr auto far = std::numeric_limits<std::ptrdiff_t>::max();
    for (const int origin : {0, 1, 2}) {
        for (const std::ptrdiff_t offset : {far, -far, -far - 1}) {
            file.Open("six.bin");
            file.Seek(3, BufferedFile::FromStart);
            file.Seek(offset, origin);
            EXPECT_TRUE(file.HasFailed());
            const bool toEnd = (offset > 0) != (origin == BufferedFile::BackFromEnd);
            EXPECT_EQ(file.Remaining(), toEnd ? 0u : 6u) << origin << ' ' << offset;
        }
    }
}

TEST_F(BufferedFileTest, ClosesWhenTheNextNameCannotBeHad) {
    directory.Write("empty.bin", "");
    for (const char* name : {"", "none.bin", "empty.bin", "../six.bin"}) {
        file.Open("six.bin");
        file.Open(name);
        EXPECT_FALSE(file.IsOpen()) << name;
        EXPECT_TRUE(file.HasFailed()) << name;
        EXPECT_EQ(Next(), '?');
    }
}

TEST(ResourceFile, HoldsTheBytesOfEveryEmbeddedFile) {
    const std::filesystem::path folder =
        std::filesystem::path(VANTREL_SOURCE_DIR) / "art" / "embedded";
    for (const auto& resource : EmbeddedResources::All()) {
        ResourceFile file;
        file.Open(resource.name);
        ASSERT_TRUE(file.CanRead()) << resource.name;
        std::filesystem::path path = folder / resource.name;
        path += std::string_view(resource.name) == "PROGRAM_ICON" ? ".ico" : ".tga";
        std::ifstream original(path, std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(original), {});
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(file.Cursor()), file.Remaining()),
                  bytes);
    }
    for (const char* name : {"", "NO_SUCH_RESOURCE"}) {
        ResourceFile file;
        file.Open(name);
        EXPECT_FALSE(file.IsOpen());
    }
}
