#include "audio/WavFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/ByteWriter.h"

namespace {

/// A WAV file whose every field can lie.
struct Wav {
    std::uint16_t tag = 1;
    std::uint16_t channels = 1;
    std::uint32_t rate = 22050;
    std::uint32_t bytesPerSecond = 44100;
    std::uint16_t alignment = 2;
    std::uint16_t bits = 16;
    std::uint32_t formatSize = 16;
    std::string behindFormat = {};
    std::string beforeData = {};  // whole chunks
    std::uint32_t claimedData = 8;
    std::string data = "12345678";
    const char* first = "fmt ";

    std::vector<std::byte> Bytes() const {
        ByteWriter writer;
        const auto text = [&](const std::string& s) { writer.Bytes(std::as_bytes(std::span(s))); };
        text("RIFF");
        writer.U32(0xDEADBEEF);
        text("WAVE");
        text(first);
        writer.U32(formatSize);
        writer.U16(tag);
        writer.U16(channels);
        writer.U32(rate);
        writer.U32(bytesPerSecond);
        writer.U16(alignment);
        writer.U16(bits);
        text(behindFormat);
        text(beforeData);
        text("data");
        writer.U32(claimedData);
        text(data);
        return writer.Block();
    }
    bool Loads() const { return WavFile::Parse(Bytes()).has_value(); }
};

std::string Chunk(const std::string& id, const std::string& content) {
    ByteWriter size;
    size.U32(static_cast<std::uint32_t>(content.size()));
    return id + std::string(reinterpret_cast<const char*>(size.Block().data()), 4) + content;
}

}  // namespace

TEST(WavFile, GivesFormatAndDataWhateverStandsBefore) {
    Wav wav;
    wav.channels = 2;
    wav.bits = 8;
    wav.formatSize = 18;
    wav.behindFormat = std::string(2, '\0');
    wav.beforeData = Chunk("LIST", "odd") + Chunk("cue ", "") + Chunk("LIST", "even");
    wav.data += "behind the data";
    const auto bytes = wav.Bytes();
    const auto parsed = WavFile::Parse(bytes);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->format.channels, 2u);
    EXPECT_EQ(parsed->format.bits, 8u);
    EXPECT_EQ(parsed->format.rate, 22050u);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(parsed->data.data()), parsed->data.size()),
              "12345678");
}

TEST(WavFile, RefusesWhatIsntPlainPcm) {
    EXPECT_TRUE(Wav().Loads());
    EXPECT_FALSE(Wav{.tag = 85}.Loads());
    EXPECT_FALSE(Wav{.tag = 0xFFFE}.Loads());
    EXPECT_FALSE(Wav{.channels = 0}.Loads());
    EXPECT_FALSE(Wav{.channels = 3}.Loads());
    EXPECT_FALSE(Wav{.rate = 0}.Loads());
    EXPECT_FALSE(Wav{.bytesPerSecond = 0}.Loads());
    EXPECT_FALSE(Wav{.alignment = 0}.Loads());
    EXPECT_FALSE(Wav{.bits = 0}.Loads());
    EXPECT_FALSE(Wav{.first = "LIST"}.Loads());
}

TEST(WavFile, RefusesSizesThatLie) {
    EXPECT_FALSE((Wav{.claimedData = 0, .data = ""}.Loads()));
    EXPECT_FALSE(Wav{.claimedData = 9}.Loads());
    EXPECT_FALSE(Wav{.claimedData = 0xFFFFFFFF}.Loads());
    EXPECT_FALSE(Wav{.formatSize = 0xFFFFFFFF}.Loads());
    Wav wav;
    wav.beforeData = Chunk("LIST", "x");
    wav.beforeData[7] = '\x7f';
    EXPECT_FALSE(wav.Loads());
    // An odd chunk with a byte of padding behind it shifts all that follows.
    wav.beforeData = Chunk("LIST", "odd") + '\0';
    EXPECT_FALSE(wav.Loads());
}

TEST(WavFile, RefusesEveryTruncation) {
    const auto bytes = Wav().Bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(WavFile::Parse(std::span(bytes).first(length))) << length;
    }
}
