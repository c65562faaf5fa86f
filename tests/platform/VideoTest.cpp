// Real AVI files, made by ffmpeg on the spot, and what becomes of damaged ones.

#include "platform/Video.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/WholeFile.h"
#include "support/TemporaryDirectory.h"

namespace {

class VideoTest : public testing::Test {
protected:
    /// Runs ffmpeg in the directory.
    void Make(const std::string& arguments) const {
        const std::string command = "cd '" + directory.path.string() +
                                    "' && ffmpeg -nostdin -loglevel error -y " + arguments;
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }
    /// A film whose frame n is grey of brightness 8 n, and its own name in the directory.
    void MakeSteps(const std::string& name, const std::string& size, int frames,
                   const std::string& encoder, const std::string& filter = "null") const {
        Make("-f lavfi -i \"color=black:s=" + size + ":r=20,format=gray,geq=lum='mod(8*N,256)'," +
             filter + "\" -frames:v " + std::to_string(frames) + " -vsync vfr " + encoder + " " +
             name);
    }
    std::unique_ptr<Platform::Video> Open(const std::string& name) const {
        return Platform::Video::Open(directory.path / name);
    }
    std::string Read(const std::string& name) const {
        const auto bytes = Platform::ReadWholeFile(directory.path / name);
        const auto* first = reinterpret_cast<const char*>(bytes->data());
        return {first, first + bytes->size()};
    }
    /// The brightness of a frame in steps of 8, as MakeSteps makes them; -1 without a frame.
    static int StepOf(Platform::Video& video, std::uint32_t number) {
        const unsigned char* const pixels = video.Frame(number);
        return pixels != nullptr ? (pixels[0] + 4) / 8 : -1;
    }

    TemporaryDirectory directory;
};

TEST_F(VideoTest, GivesTheRowsOfOddSizesBottomUpAndPadded) {
    for (const char* const size : {"1x1", "3x5", "321x239", "66x34", "37x2"}) {
        Make(std::string("-f lavfi -i testsrc=s=") + size +
             ":r=1000/31 -frames:v 1 -pix_fmt bgr24 -c:v rawvideo film.avi");
        Make("-i film.avi -f rawvideo -pix_fmt bgr24 film.raw");
        const auto video = Open("film.avi");
        ASSERT_TRUE(video) << size;
        EXPECT_EQ(std::to_string(video->Width()) + "x" + std::to_string(video->Height()), size);
        EXPECT_EQ(video->FrameCount(), 1u);
        EXPECT_EQ(video->FrameMilliseconds(), 31);
        EXPECT_EQ(video->RowBytes() % 4, 0);
        const std::string expected = Read("film.raw");
        const unsigned char* const pixels = video->Frame(0);
        ASSERT_NE(pixels, nullptr);
        const auto rowLength = static_cast<std::size_t>(video->Width()) * 3;
        for (int y = 0; y < video->Height(); ++y) {
            const unsigned char* const row = pixels + (video->Height() - 1 - y) * video->RowBytes();
            EXPECT_EQ(std::string(row, row + rowLength),
                      expected.substr(static_cast<std::size_t>(y) * rowLength, rowLength))
                << size << " row " << y;
        }
    }
}

TEST_F(VideoTest, FindsFramesByNumberInAnyOrder) {
    for (const std::string encoder :
         {"-c:v mjpeg -q:v 2 -pix_fmt yuvj420p", "-c:v msvideo1 -pix_fmt rgb555le",
          "-c:v mpeg4 -q:v 2 -bf 0 -pix_fmt yuv420p", "-c:v mpeg4 -q:v 2 -bf 2 -pix_fmt yuv420p",
          "-c:v ffv1 -pix_fmt yuv420p"}) {
        MakeSteps("film.avi", "64x48", 30, encoder);
        const auto video = Open("film.avi");
        ASSERT_TRUE(video) << encoder;
        EXPECT_EQ(video->FrameCount(), 30u) << encoder;
        EXPECT_EQ(video->FrameMilliseconds(), 50);
        const int black = StepOf(*video, 0);
        for (const int number : {0, 1, 2, 3, 9, 10, 20, 19, 4, 29, 0, 28, 29}) {
            EXPECT_NEAR(StepOf(*video, static_cast<std::uint32_t>(number)), number + black, 1)
                << encoder << " frame " << number;
        }
        EXPECT_EQ(video->Frame(30), nullptr);
    }
}

TEST_F(VideoTest, RepeatsFramesThatTheFileLeavesOut) {
    MakeSteps("film.avi", "64x48", 10, "-c:v mjpeg -q:v 2 -pix_fmt yuvj420p",
              "setpts='PTS+if(gt(N,4),5/20/TB,0)'");
    const auto video = Open("film.avi");
    ASSERT_TRUE(video);
    EXPECT_EQ(video->FrameCount(), 15u);
    for (const int number : {3, 4, 5, 9, 10, 11, 14, 7, 12}) {
        const int step = number < 5 ? number : number < 10 ? 4 : number - 5;
        EXPECT_EQ(StepOf(*video, static_cast<std::uint32_t>(number)), step) << number;
    }
}

TEST_F(VideoTest, RefusesWhatHasNoPictures) {
    Make("-f lavfi -i sine=d=0.2 -c:a pcm_s16le sound.avi");
    Make("-f lavfi -i color=red:s=64x48:d=0.2 -c:v mpeg4 other.mp4");
    directory.Write("noise.avi", "RIFF and no more");
    directory.Write("list.avi", "#EXTM3U\n#EXTINF:1\nother.mp4\n");
    for (const char* const name :
         {"sound.avi", "other.mp4", "noise.avi", "list.avi", "missing.avi", "."}) {
        EXPECT_FALSE(Open(name)) << name;
    }
}

}  // namespace
