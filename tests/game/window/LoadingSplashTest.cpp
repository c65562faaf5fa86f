// The splash on a real window, with loads of many lengths and kinds beside it.

#include "game/LoadingSplash.h"

#include <chrono>
#include <memory>
#include <set>
#include <thread>
#include <vector>

#include "GameWindow.h"
#include "graphics/Texture.h"
#include "platform/Clock.h"

namespace {

using std::chrono::milliseconds;
using Time = std::chrono::steady_clock;

constexpr int frameCount = 12;
constexpr double framesPerSecond = 6.0;

class LoadingSplashTest : public GameWindow {
protected:
    void SetUp() override {
        GameWindow::SetUp();
        // Frame n of the animation is grey of brightness 20 n + 10, the background blue with a
        // red rim that isn't shown.
        directory.Write("cfg/splashScreen.cfg",
                        "splashBackground back.png splashBackgroundW 64 splashBackgroundH 48\n"
                        "splashAnimation dot_FRAME.png splashAnimationX 400 splashAnimationY 150\n"
                        "splashAnimationSpeed 6\n");
        std::string convert = "convert -size 40x40";
        for (int i = 0; i < frameCount; ++i) {
            const std::string grey = std::to_string(20 * i + 10);
            convert += " 'xc:rgb(" + grey + "," + grey + "," + grey + ")'";
        }
        convert +=
            " +adjoin dot_FRAME%02d.png && convert -size 96x96 xc:red -fill blue"
            " -draw 'rectangle 10,18 85,77' back.png";
        ASSERT_EQ(std::system(convert.c_str()), 0);
        Platform::ForgetListings();
        GLWindow::SetListener(&listener);
    }
    static std::string FrameName(int number) {
        return std::string("dot_FRAME") + (number < 10 ? "0" : "") + std::to_string(number) +
               ".png";
    }
    /// Numbers of the animation's frames as they came.
    void Watch() {
        window.onSwap = [this] {
            const int frame = (static_cast<int>(Pixel(200, 75) & 0xFF) - 10 + 5) / 20;
            if (frames.empty() || frames.back() != frame) {
                frames.push_back(frame);
                times.push_back(Time::now());
            }
            background = Pixel(5, 5);
        };
    }
    /// A display list with a texture of its own, as levels have them.
    struct Load {
        std::unique_ptr<Texture> texture;
        GLuint list = 0;
    };
    static Load LoadSomething(const std::string& name) {
        Load load;
        load.texture = std::make_unique<Texture>(name, nullptr);
        load.list = glGenLists(1);
        glNewList(load.list, GL_COMPILE);
        glBindTexture(GL_TEXTURE_2D, load.texture->glName);
        glBegin(GL_QUADS);
        for (const int corner : {0, 1, 3, 2}) {
            const int x = corner % 2;
            const int y = corner / 2;
            glTexCoord2f(static_cast<float>(x), static_cast<float>(y));
            glVertex2f(static_cast<float>(x * 400), static_cast<float>(y * 300));
        }
        glEnd();
        glEndList();
        return load;
    }
    /// Draws the list in the window; the pixel in the middle.
    unsigned DrawLoaded(const Load& load) {
        window.SetPixelProjection(400, 300);
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        glEnable(GL_TEXTURE_2D);
        glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
        glCallList(load.list);
        glDeleteLists(load.list, 1);
        return Pixel(200, 150);
    }

    GLWindowEventListener listener;
    std::vector<int> frames;
    std::vector<Time::time_point> times;
    unsigned background = 0;
};

TEST_F(LoadingSplashTest, PlaysItsAnimationWhileTheMainThreadIsBusy) {
    Watch();
    glEnable(GL_CULL_FACE);
    LoadingSplash::Start();
    EXPECT_EQ(GLWindow::GetListener(), nullptr);
    LoadingSplash::Start();  // it is up already
    std::vector<Load> loads;
    const auto end = Time::now() + milliseconds(2300);
    while (Time::now() < end) {
        loads.push_back(LoadSomething("back.png"));
        std::this_thread::sleep_for(milliseconds(1));
    }
    LoadingSplash::Stop();
    EXPECT_EQ(GLWindow::GetListener(), &listener);
    window.onSwap = nullptr;

    EXPECT_EQ(background, 0x0000FFu);
    ASSERT_GE(frames.size(), 10u);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_EQ(frames[i], static_cast<int>(i) % frameCount);
    }
    const double shown = std::chrono::duration<double>(times.back() - times.front()).count();
    EXPECT_NEAR(static_cast<double>(frames.size() - 1) / shown, framesPerSecond,
                framesPerSecond * 0.2);
    EXPECT_EQ(glIsEnabled(GL_CULL_FACE), GL_TRUE);
    glDisable(GL_CULL_FACE);
    EXPECT_EQ(DrawLoaded(loads.front()), 0x0000FFu);
    EXPECT_EQ(DrawLoaded(loads.back()), 0x0000FFu);
}

TEST_F(LoadingSplashTest, HandsTheContextToAndFroOften) {
    const char* const many = std::getenv("VANTREL_MANY_LOADS");
    const int rounds = many != nullptr ? std::atoi(many) : 30;
    for (int i = 0; i < rounds; ++i) {
        const int before = window.swaps;
        LoadingSplash::Start();
        Load load = LoadSomething(FrameName(i % frameCount));
        // Some loads end at once, before the splash has drawn a single frame.
        if (i % 3 != 0) {
            std::this_thread::sleep_for(milliseconds(i % 40));
        }
        LoadingSplash::Stop();
        const auto grey = static_cast<unsigned>(20 * (i % frameCount) + 10);
        EXPECT_EQ(DrawLoaded(load), grey * 0x10101u) << "round " << i;
        EXPECT_LE(window.swaps - before, 20);
        window.SwapBuffers();
    }
    std::vector<std::string> textures;
    TextureManager::List(textures);
    EXPECT_TRUE(textures.empty()) << textures.front();
}

/// No second context to be had, as under drivers that don't share.
class AloneWindow : public WatchedWindow {
public:
    bool LendContext() override { return false; }
};

TEST_F(LoadingSplashTest, ShowsAStillPictureWithoutASecondContext) {
    AloneWindow alone;
    StartServices(alone);
    GLWindow::SetListener(&listener);
    alone.onSwap = [&] { background = Pixel(5, 5); };
    LoadingSplash::Start();
    EXPECT_TRUE(LoadingSplash::IsRunning());
    const Load load = LoadSomething("back.png");
    LoadingSplash::Stop();
    EXPECT_EQ(alone.swaps, 1);
    EXPECT_EQ(background, 0x0000FFu);
    EXPECT_EQ(GLWindow::GetListener(), &listener);
    alone.onSwap = nullptr;
    StartServices(window);
}

}  // namespace
