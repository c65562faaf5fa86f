// Music as it is heard.

#include "audio/MusicPlayer.h"

#include <sndfile.h>

#include "RenderedAudio.h"

namespace {

using namespace Signal;

constexpr int rate = 44100;
constexpr double stepSeconds = 0.5;

/// Frequency at a place of the test piece: it climbs by 100 Hz every half second.
double ToneAt(double seconds) {
    return 300.0 + 100.0 * std::floor(seconds / stepSeconds);
}

void WritePiece(const std::filesystem::path& file, int format, double seconds) {
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = 2;
    info.format = format;
    SNDFILE* const out = sf_open(file.c_str(), SFM_WRITE, &info);
    ASSERT_NE(out, nullptr) << sf_strerror(nullptr);
    std::vector<float> stereo;
    for (int i = 0; i < static_cast<int>(seconds * rate); ++i) {
        const double t = static_cast<double>(i) / rate;
        const auto x = static_cast<float>(0.5 * std::sin(2.0 * std::numbers::pi * ToneAt(t) * t));
        stereo.insert(stereo.end(), {x, x});
    }
    // In pieces: the encoder keeps what it is given at once on its stack.
    for (std::size_t i = 0; i < stereo.size(); i += 8192) {
        const auto count = static_cast<sf_count_t>(std::min<std::size_t>(8192, stereo.size() - i));
        sf_writef_float(out, stereo.data() + i, count / 2);
    }
    sf_close(out);
}

constexpr int vorbis = SF_FORMAT_OGG | SF_FORMAT_VORBIS;
constexpr int flac = SF_FORMAT_FLAC | SF_FORMAT_PCM_16;

class MusicTest : public RenderedAudio {
protected:
    std::string Piece(const char* name, int format, double seconds) {
        WritePiece(directory.path / name, format, seconds);
        Platform::ForgetListings();
        return name;
    }
    double ToneNow() { return Pitch(Render(0.1)); }
};

}  // namespace

TEST_F(MusicTest, ResumesWhereItWasPaused) {
    for (const int format : {vorbis, flac}) {
        ASSERT_TRUE(MusicPlayer::Play(Piece("piece", format, 6.0), true));
        Render(2.1);
        EXPECT_NEAR(ToneNow(), ToneAt(2.15), 8.0);
        EXPECT_TRUE(MusicPlayer::Pause());
        Render(0.1);
        EXPECT_LT(LoudnessOf(2.0), 1e-6);
        EXPECT_TRUE(MusicPlayer::Resume());
        EXPECT_NEAR(ToneNow(), ToneAt(2.25), 8.0);
        // 2.3 seconds in, so the next step comes 0.2 seconds later.
        Render(0.07);
        EXPECT_NEAR(ToneNow(), ToneAt(2.42), 8.0) << "resumed too late";
        Render(0.06);
        EXPECT_NEAR(ToneNow(), ToneAt(2.58), 8.0) << "resumed too early";
        MusicPlayer::Stop();
    }
}

TEST_F(MusicTest, StartsOverAtItsEndOnlyIfItLoops) {
    // Silence or a click between the rounds would show as a jump or a fall in loudness.
    ASSERT_TRUE(MusicPlayer::Play(Piece("short.flac", flac, 0.5), true));
    const auto rounds = Render(5.0);
    EXPECT_NEAR(Pitch(rounds), 300.0, 1.0);
    EXPECT_NEAR(Loudness(rounds), 0.5 / std::numbers::sqrt2, 0.01);
    EXPECT_LT(LargestJump(rounds), 0.5 * 2.0 * std::numbers::pi * 300.0 / rate * 1.1);

    ASSERT_TRUE(MusicPlayer::Play("short.flac", false));
    EXPECT_GT(LoudnessOf(0.4), 0.3);
    Render(0.2);
    EXPECT_LT(LoudnessOf(1.0), 1e-6);
    EXPECT_TRUE(MusicPlayer::Stop());
    EXPECT_FALSE(MusicPlayer::Pause());
    EXPECT_FALSE(MusicPlayer::Resume());
}

TEST_F(MusicTest, PlaysATruncatedPieceToWhereItBreaks) {
    Piece("whole.ogg", vorbis, 20.0);
    const auto size = std::filesystem::file_size("whole.ogg");
    std::filesystem::copy_file("whole.ogg", "half.ogg");
    std::filesystem::resize_file("half.ogg", size / 2);
    Write("noise.ogg", std::string(5000, 'x'));
    Platform::ForgetListings();
    ASSERT_TRUE(MusicPlayer::Play("half.ogg", false));
    EXPECT_GT(LoudnessOf(1.0), 0.2);
    Render(18.0);
    EXPECT_LT(LoudnessOf(0.5), 1e-6);
    ASSERT_TRUE(MusicPlayer::Play("half.ogg", true));
    Render(30.0);
    EXPECT_GT(LoudnessOf(1.0), 0.2);
    EXPECT_FALSE(MusicPlayer::Play("noise.ogg", true));
    EXPECT_FALSE(MusicPlayer::Play("", true));
    EXPECT_LT(LoudnessOf(0.5), 1e-6);
}

TEST_F(MusicTest, IsAsLoudAsTheConsoleSaysAlsoInTheNextPiece) {
    ASSERT_TRUE(MusicPlayer::Play(Piece("piece.flac", flac, 1.0), true));
    Console::Execute("MusicVolume 300");
    EXPECT_EQ(MusicPlayer::Volume(), 255);
    const double full = LoudnessOf(0.5);
    Console::Execute("MusicVolume 51");
    Render(0.1);
    EXPECT_NEAR(LoudnessOf(0.3) / full, 0.2, 0.01);
    Console::Execute("MusicVolume -5");
    EXPECT_EQ(MusicPlayer::Volume(), 0);
    ASSERT_TRUE(MusicPlayer::Play("piece.flac", true));
    EXPECT_LT(LoudnessOf(0.3), 1e-6);
}

TEST_F(MusicTest, GoesOnAtItsPlaceWhenTheDeviceReturns) {
    ASSERT_TRUE(MusicPlayer::Play(Piece("piece.flac", flac, 8.0), true));
    Render(3.2);
    audio.PlugDevice(false);
    EXPECT_LT(LoudnessOf(5.0), 1e-6);
    audio.PlugDevice(true);
    double tone = 0.0;
    for (int i = 0; i < 60 && tone < 1.0; ++i) {
        tone = ToneNow();
    }
    EXPECT_NEAR(tone, ToneAt(3.25), 8.0);
}
