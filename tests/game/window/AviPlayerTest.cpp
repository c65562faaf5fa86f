// Films in a real window.

#include "graphics/AviPlayer.h"

#include "GameWindow.h"
#include "platform/Clock.h"
#include "platform/WholeFile.h"

namespace {

class AviPlayerTest : public GameWindow {
protected:
    void SetUp() override {
        GameWindow::SetUp();
        Platform::UseClock(&clock);
    }
    void TearDown() override {
        Platform::UseClock(nullptr);
        GameWindow::TearDown();
    }
    /// Red above green, 50 ms a frame.
    static void MakeFilm(const std::string& size, int frames) {
        Ffmpeg("-f lavfi -i \"color=red:s=" + size + ":r=20,format=rgb24," +
               "drawbox=y=ih/2:h=ih:color=green:t=fill\" -frames:v " + std::to_string(frames) +
               " -c:v rawvideo -pix_fmt bgr24 vid/film.avi");
        Platform::ForgetListings();
    }

    Platform::ScriptedClock clock;
};

TEST_F(AviPlayerTest, FitsTheFilmToTheWindowsHeight) {
    struct Case {
        const char* size;
        std::uint32_t textureWidth, textureHeight;
        int left, right;  // first and last column that shows the film, of 400
    };
    for (const Case& film : {Case{"320x240", 512, 256, 0, 399}, Case{"64x64", 64, 64, 50, 349},
                             Case{"33x99", 64, 128, 150, 249}, Case{"399x99", 512, 128, 0, 399}}) {
        MakeFilm(film.size, 2);
        AviPlayer player("VID\\FILM.AVI");
        ASSERT_TRUE(player.IsOpen()) << film.size;
        EXPECT_EQ(player.TextureWidth(), film.textureWidth);
        EXPECT_EQ(player.TextureHeight(), film.textureHeight);
        window.onSwap = [&] {
            for (const int x : {film.left + 3, 200, film.right - 3}) {
                EXPECT_EQ(Pixel(x, 5), 0xFF0000u) << film.size << " column " << x;
                EXPECT_EQ(Pixel(x, 294), 0x008000u) << film.size << " column " << x;
            }
            if (film.left > 0) {
                EXPECT_EQ(Pixel(film.left - 3, 5), 0u);
                EXPECT_EQ(Pixel(film.right + 3, 5), 0u);
            }
        };
        player.Draw();
    }
}

TEST_F(AviPlayerTest, ShowsEveryFrameForLongerThanItsTime) {
    MakeFilm("64x48", 3);
    AviPlayer player("vid\\film.avi");
    clock.Advance(50);
    player.Update();
    EXPECT_EQ(player.CurrentFrame(), 0u);
    clock.Advance(1);
    player.Update();
    EXPECT_EQ(player.CurrentFrame(), 1u);
    clock.Advance(5000);  // a stall leaves no frame out
    player.Update();
    EXPECT_EQ(player.CurrentFrame(), 2u);
    EXPECT_FALSE(player.IsFinished());
    clock.Advance(51);
    player.Update();
    EXPECT_TRUE(player.IsFinished());
    EXPECT_TRUE(player.IsOpen());
    clock.Advance(51);
    player.Update();
    EXPECT_EQ(player.CurrentFrame(), 3u);
    player.Restart();
    EXPECT_EQ(player.CurrentFrame(), 0u);
    EXPECT_FALSE(player.IsFinished());
}

TEST_F(AviPlayerTest, EndsAtAFrameThatCannotBeDecoded) {
    Ffmpeg("-f lavfi -i testsrc=s=64x48:r=20 -frames:v 8 -c:v png vid/film.avi");
    const auto bytes = Platform::ReadWholeFile("vid/film.avi");
    std::string text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    std::size_t at = text.find("movi");
    for (int i = 0; i < 5; ++i) {
        at = text.find("00dc", at + 1);
    }
    text.replace(at + 8, 60, 60, 'x');
    directory.Write("vid/film.avi", text);
    AviPlayer player("vid\\film.avi");
    ASSERT_TRUE(player.IsOpen());
    int updates = 0;
    for (; !player.IsFinished(); ++updates) {
        clock.Advance(51);
        player.Update();
    }
    EXPECT_EQ(updates, 4);
    EXPECT_FALSE(player.IsOpen());
}

}  // namespace
