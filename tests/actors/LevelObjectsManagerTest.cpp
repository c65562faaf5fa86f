#include "actors/LevelObjectsManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "actors/Camera.h"
#include "engine/Console.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"

namespace {

/// Four frames a second, and a set of three frames with a gap in their numbers.
class LevelObjects : public testing::Test {
protected:
    LevelObjects() {
        directory.Write("cfg/animation.cfg", "animationSpeeds -4");
        for (const char* frame : {"01", "02", "07"}) {
            directory.Write("img/Wheel_Frame" + std::string(frame) + ".png", "");
        }
        Platform::ForgetListings();
        Console::Initialise();
        LevelObjectsManager::Initialise();
        LevelObjectsManager::objects.reserve(64);  // references hold
        Camera::position = {1000.0f, 0.0f};
        Camera::shakeOffset = {};
        Camera::zoom = 1.0f;
    }
    ~LevelObjects() override {
        LevelObjectsManager::Shutdown();
        Console::Shutdown();
        Platform::ForgetListings();
    }

    static LevelObject Make(const std::string& texture, Vector2 position = {}) {
        LevelObject object;
        object.position = position;
        object.SetTexture(texture);
        return object;
    }
    static LevelObject& AddWheel() {
        LevelObjectsManager::Add(Make("img\\wheel_frame01.png"));
        return LevelObjectsManager::animatedObjects.back();
    }
    /// A still sprite of 20 by 10 units; headless textures have no size.
    static LevelObject& AddSprite(Vector2 position, std::uint32_t layer, std::uint32_t glName) {
        LevelObjectsManager::Add(Make("sprite.png", position));
        LevelObject& object = LevelObjectsManager::objects.back();
        object.layer = layer;
        auto& frame = const_cast<Texture&>(object.frames[0]);
        frame.width = 20;
        frame.height = 10;
        frame.glName = glName;
        return object;
    }
    static std::size_t Queued(std::size_t layer) {
        return LevelObjectsManager::layerQueues[layer].size();
    }

    TemporaryDirectory directory;
    WorkingDirectoryGuard inDirectory{directory.path};
};

TEST_F(LevelObjects, PlayAtMostAFrameAStepAndOnlyWhenStarted) {
    LevelObject& wheel = AddWheel();
    LevelObjectsManager::Step(10.0f);
    EXPECT_EQ(wheel.frame, 0u);
    wheel.stopped = 0;
    LevelObjectsManager::Step(10.0f);
    EXPECT_EQ(wheel.frame, 1u);
    LevelObjectsManager::Step(0.2f);
    EXPECT_EQ(wheel.frame, 1u);
    LevelObjectsManager::Step(0.1f);
    EXPECT_EQ(wheel.frame, 2u);
    LevelObjectsManager::Step(1.0f);
    EXPECT_EQ(wheel.frame, 0u);
    LevelObjectsManager::animationSpeeds = 0.0f;
    LevelObjectsManager::Step(1.0f);
    EXPECT_EQ(wheel.frame, 0u);
}

TEST_F(LevelObjects, StandOnTheLastFrameAfterTheirPlays) {
    LevelObject& wheel = AddWheel();
    wheel.stopped = 0;
    wheel.playLimit = 2;
    for (int i = 0; i < 5; ++i) {
        LevelObjectsManager::Step(1.0f);
        EXPECT_EQ(wheel.stopped, 0) << i;
    }
    LevelObjectsManager::Step(1.0f);
    EXPECT_EQ(wheel.stopped, 1);
    EXPECT_EQ(wheel.frame, 2u);
    EXPECT_EQ(wheel.plays, 0u);

    wheel.offset = {3.0f, 4.0f};
    wheel.enabled = 0;
    LevelObjectsManager::objectsCull = false;
    LevelObjectsManager::Reset();
    EXPECT_EQ(wheel.frame, 0u);
    EXPECT_EQ(wheel.offset, Vector2{});
    EXPECT_EQ(wheel.enabled, 1);
    EXPECT_TRUE(LevelObjectsManager::objectsCull);
}

TEST_F(LevelObjects, AreQueuedByTextureIfTheyTouchTheSquareRoundTheCamera) {
    // The square reaches from 480 to 1520; a sprite's half width is 10.
    AddSprite({470.0f, 0.0f}, 2, 9);
    AddSprite({469.0f, 0.0f}, 2, 9);
    AddSprite({1530.0f, 0.0f}, 2, 3);
    LevelObject& moved = AddSprite({0.0f, 0.0f}, 2, 9);
    moved.offset = {900.0f, 0.0f};
    LevelObject& removed = AddSprite({1000.0f, 0.0f}, 4, 1);
    removed.enabled = 0;
    AddSprite({std::nanf(""), 0.0f}, 2, 9);
    Console::Execute("ObjectsDraw FALSE");
    LevelObjectsManager::PrepareDraw(Camera::Look());
    EXPECT_EQ(Queued(2), 0u);
    Console::Execute("ObjectsDraw TRUE");
    LevelObjectsManager::PrepareDraw(Camera::Look());
    const auto& queue = LevelObjectsManager::layerQueues[2];
    ASSERT_EQ(queue.size(), 3u);
    EXPECT_EQ(queue[0].glName, 3u);
    EXPECT_EQ(queue[1].object->position.x, 470.0f);
    EXPECT_EQ(queue[2].object, &moved);
    EXPECT_EQ(Queued(4), 0u);

    Console::Execute("ObjectsCull FALSE");
    LevelObjectsManager::PrepareDraw(Camera::Look());
    EXPECT_EQ(Queued(2), 5u);
    EXPECT_EQ(Queued(4), 1u);
}

}  // namespace
