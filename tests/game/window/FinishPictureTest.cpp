// The picture that closes over a finished level, in windows of all shapes.

#include <algorithm>
#include <utility>
#include <vector>

#include "game/GameScreen.h"
#include "game/LevelProgress.h"
#include "game/window/GameWindow.h"
#include "platform/DataRoot.h"
#include "water/ParticleManager.h"

namespace {

TEST(FinishPicture, CoversWindowsOfAnyShape) {
    Platform::UseDataRoot(VANTREL_SOURCE_DIR "/data");
    WatchedWindow window;
    GameScreen screen;
    for (const auto& [width, height] : {std::pair{640, 360}, {900, 470}, {1200, 340}, {200, 900}}) {
        const Services services({.window = &window,
                                 .screen = screen.Parts(),
                                 .title = "Vantrel test",
                                 .width = width,
                                 .height = height});
        LevelProgress::Initialise();
        ParticleManager::CreateParticles(0.0f, 0.0f, 10.0f, 8);
        LevelProgress::Take({.waterInFinish = 8});
        LevelProgress::Step(0.0f);
        LevelProgress::Step(1.4f);
        ASSERT_GT(LevelProgress::FinishFade(), 0.9f);
        ASSERT_LT(LevelProgress::FinishFade(), 1.0f);

        glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        LevelProgress::Draw();
        ASSERT_EQ(GLWindow::ClientWidth(), width);
        std::vector<unsigned char> red(static_cast<std::size_t>(width * height));
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RED, GL_UNSIGNED_BYTE, red.data());
        EXPECT_EQ(std::count(red.begin(), red.end(), 255), 0) << width << " by " << height;

        ParticleManager::ClearAll();
        LevelProgress::Shutdown();
    }
    Platform::UseDataRoot({});
    Platform::ForgetListings();
}

}  // namespace
