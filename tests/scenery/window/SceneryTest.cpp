// The shipped levels' scenery has no holes: over a clear colour that no picture has, not one
// pixel of it shows.

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "actors/Camera.h"
#include "actors/TriggerManager.h"
#include "bench/RecordedRuns.h"
#include "engine/Presentation.h"
#include "game/GameScreen.h"
#include "game/GameState.h"
#include "game/LevelProgress.h"
#include "game/Services.h"
#include "graphics/GLWindow.h"
#include "graphics/GLWindowDisplay.h"
#include "level/LevelData.h"
#include "platform/DataRoot.h"
#include "platform/GlfwWindow.h"
#include "support/Places.h"

namespace {

constexpr int width = 1280;
constexpr int height = 720;
constexpr std::uint32_t magenta = 0xFFFF00FF;

/// By the file of the level's recorded run.
class Scenery : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        Platform::UseDataRoot(SourceDirectory() / "data");
        GLWindow::SetVsync(false);
        ASSERT_TRUE(RecordedRuns::Begin(GetParam()));
        gameState.background = {1.0f, 0.0f, 1.0f};
    }
    /// Draws a frame and counts its bare pixels.
    void Look() {
        Presentation::Current().DrawFrame();
        pixels.resize(static_cast<std::size_t>(width * height));
        glReadPixels(0, 0, width, height, GL_BGRA, GL_UNSIGNED_BYTE, pixels.data());
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            if (pixels[i] == magenta && bare++ == 0) {
                first << " the first at " << PlaceOf(static_cast<int>(i)) << " in the world";
            }
        }
    }
    void LookAt(Vector2 place, float zoom) {
        Camera::position = place;
        Camera::zoom = zoom;
        Look();
    }
    /// Looks at all of the area, which is larger than a view, in views side by side.
    void LookOver(Vector2 from, Vector2 to, float zoom) {
        const Vector2 view = Vector2{Game::ViewWidth(), Game::ViewHeight()} * zoom;
        for (float y = from.y; y < to.y; y += view.y) {
            for (float x = from.x; x < to.x; x += view.x) {
                LookAt(
                    Vector2{std::min(x, to.x - view.x), std::min(y, to.y - view.y)} + view * 0.5f,
                    zoom);
            }
        }
    }

    std::size_t bare = 0;  ///< pixels
    std::ostringstream first;

private:
    /// Of a pixel of the picture, whose rows begin at the bottom.
    static std::string PlaceOf(int pixel) {
        const float unit = Game::ViewHeight() / static_cast<float>(height) * Camera::zoom;
        Vector2 at{static_cast<float>(pixel % width - width / 2),
                   static_cast<float>(height / 2 - 1 - pixel / width)};
        at = (at + Vector2{0.5f, 0.5f}) * unit;
        Rotate(at, Camera::angle * degreesToRadians);
        at += Camera::position + Camera::shakeOffset;
        return std::to_string(std::lround(at.x)) + ", " + std::to_string(std::lround(at.y));
    }

    std::vector<std::uint32_t> pixels;
    Platform::GlfwWindow window;
    GameScreen screen;
    Services services{{.window = &window,
                       .screen = screen.Parts(),
                       .title = "Vantrel test",
                       .width = width,
                       .height = height}};
};

/// Where the level's triggers are is where its water goes, and the view with it.
TEST_P(Scenery, GoesAsFarAsAViewAtTheStart) {
    Vector2 from = LevelData::waterStart;
    Vector2 to = from;
    for (const Trigger& trigger : TriggerManager::triggers) {
        from = {std::min(from.x, trigger.minX), std::min(from.y, trigger.minY)};
        to = {std::max(to.x, trigger.maxX), std::max(to.y, trigger.maxY)};
    }
    LookOver(from, to, 1.0f);
    // Half the diagonal of the view of a very wide window, zoomed out.
    constexpr Vector2 reach{2700.0f, 2700.0f};
    LookOver(from - reach, to + reach, 2.5f);
    EXPECT_EQ(bare, 0u) << first.str();
}

TEST_P(Scenery, HasNoHoleAlongTheRun) {
    constexpr int stepsApart = 10;
    for (int step = 0; Game::StepReplay() && !LevelProgress::IsFinished(); ++step) {
        if (step % stepsApart == 0) {
            Look();
        }
    }
    EXPECT_EQ(bare, 0u) << first.str();
}

INSTANTIATE_TEST_SUITE_P(Levels, Scenery, testing::ValuesIn(RecordedRuns::Files()),
                         [](const auto& run) {
                             std::string name = RecordedRuns::LevelName(run.param);
                             return "Of" + name;
                         });

}  // namespace
