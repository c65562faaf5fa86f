// Whole files in memory.

#include <gtest/gtest.h>

#include <array>

#include "WorkingFolder.h"
#include "engine/BufferedFile.h"

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
