// A level from its start to its score: finish, loss and respawn, restart and change.

#include <gtest/gtest.h>

#include <cstdlib>

#include "game/StateHash.h"
#include "level/BspTree.h"
#include "support/TestGame.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleMover.h"

namespace {

using TestLevelFile::Area;
using TestLevelFile::Room;

// Trigger types.
constexpr std::uint32_t entityRemove = 300;
constexpr std::uint32_t moverToEnd = 402;
constexpr std::uint32_t particleKill = 701;
constexpr std::uint32_t cameraZoom = 601;
constexpr std::uint32_t levelEnd = 801;
constexpr std::uint32_t checkPoint = 901;

bool IsFlightOver() {
    return !Camera::IsOpeningFlight();
}

/// Stops the water's drift by taking all but `count` particles away.
void KeepParticles(std::size_t count) {
    while (ParticleManager::particles.size() > count) {
        ParticleManager::particles.pop_back();
    }
}

TEST(Console, MakesWaterAndTakesTheCameraThere) {
    TestGame game;
    game.Start(Room());
    ParticleManager::ClearAll();
    Console::Clear();
    Console::Execute("ParticleCreate 0 0 10 1.5");
    Console::Execute("ParticleCreate 0 0 10 0");
    Console::Execute("ParticleCreate " + std::string(60, '9') + " 0 10 5");
    EXPECT_NE(Console::OutputText().find("\nUsage: ParticleCreate < x"), std::string::npos);
    EXPECT_NE(Console::OutputText().find("\nInvalid number of particles to make"),
              std::string::npos);
    EXPECT_EQ(ParticleManager::Count(), 0u);
    Console::Execute("ParticleCreate 7 -8 10 25");
    EXPECT_EQ(ParticleManager::Count(), 25u);
    EXPECT_EQ(Camera::position, (Vector2{7.0f, -8.0f}));
    for (const Particle& particle : ParticleManager::particles) {
        EXPECT_LE(Distance(particle.position, {7.0f, -8.0f}), 10.001f);
    }
    for (const char* const amount : {"2000000000", "19976"}) {
        Console::Execute(std::string("ParticleCreate 0 0 10 ") + amount);
        EXPECT_EQ(ParticleManager::Count(), 25u);
    }
    EXPECT_NE(
        Console::OutputText().find("\nToo many particles to make. The most in a level is 20000"),
        std::string::npos);
    Console::Execute("ParticleCreate 0 0 10 19975");
    EXPECT_EQ(ParticleManager::Count(), 20000u);
}

TEST(LevelFinish, NeedsItsShareOfTheWaterThatIsLeft) {
    TestGame game;
    LevelFile level = Room();
    level.triggers = {Area(levelEnd, -200, 100, 200, 150)};
    game.Start(level);
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    EXPECT_FALSE(LevelProgress::IsFinishing());
    KeepParticles(10);
    LevelProgress::Take({.waterInFinish = 4});
    game.Frames(1);
    EXPECT_FALSE(LevelProgress::IsFinishing()) << "5 of 10 are needed";

    ASSERT_TRUE(game.FramesUntil(LevelProgress::IsFinishing)) << "all of it lies in the area";
    const std::uint32_t time = LevelProgress::ElapsedMs();
    EXPECT_GT(time, 0u);
    ASSERT_TRUE(game.FramesUntil(LevelProgress::IsFinished, 100));
    EXPECT_EQ(MenuManager::Current(), MenuManager::LevelFinished);
    game.Frames(50);
    EXPECT_EQ(LevelProgress::ElapsedMs(), time) << "the clock stands from the finish on";
    EXPECT_EQ(LevelProgress::WaterScore(), 5000u);
}

TEST(LevelLoss, BringsAllWaterBackAtTheStart) {
    TestGame game;
    LevelFile level = Room();
    level.waterStart = {0, -100};
    level.triggers = {Area(particleKill, -200, 0, 200, 150)};
    game.Start(level);
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    ASSERT_TRUE(game.FramesUntil(Camera::IsOpeningFlight)) << "lost water makes the camera fly";
    EXPECT_EQ(LevelProgress::WaterAtFinish(), 128u);
    for (const Particle& particle : ParticleManager::particles) {
        EXPECT_LE(Distance(particle.position, {0.0f, -100.0f}), 10.01f);
    }
}

TEST(LevelLoss, BringsTheFormerAmountBackFromACheckPointThatFindsNoWater) {
    TestGame game;
    LevelFile level = Room();
    // Killed water and the delayed check point run out in the same step.
    level.triggers = {Area(particleKill, -200, -150, 200, 150),
                      Area(checkPoint, -60, -60, 100, 60)};
    level.triggers[1].delay = 0.2f;
    game.Start(level);
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    ASSERT_TRUE(game.FramesUntil(Camera::IsOpeningFlight));
    EXPECT_EQ(LevelProgress::respawnX, 20.0f) << "the check point is taken all the same";
    EXPECT_EQ(LevelProgress::WaterAtFinish(), 128u);
}

TEST(LevelLoss, ZoomsInAgainAfterALossWhileTheViewWasWide) {
    TestGame game;
    game.directory.Write("cfg/camera.cfg",
                         "zoomSpeed 3 zoomWait 30 movementInterpolateSpeed 0.1\n"
                         "waypointInterpolateSpeed 0.01 waypointInterpolateDistance 50\n");
    LevelFile level = Room();
    level.waterStart = {0, -100};
    level.triggers = {Area(cameraZoom, -60, -140, 60, 0), Area(particleKill, -200, 0, 200, 150)};
    game.Start(level);
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    ASSERT_TRUE(game.FramesUntil(Camera::IsOpeningFlight));
    EXPECT_GT(Camera::zoom, 1.5f);
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    EXPECT_EQ(Camera::state, Camera::ZoomingIn);
    ASSERT_TRUE(game.FramesUntil([] { return Camera::state == Camera::Following; }, 100));
    EXPECT_EQ(Camera::zoom, 1.0f);
}

TEST(LevelStart, FlightEndsWhateverTheSettings) {
    TestGame game;
    // None at all; a flight that has to come quite near.
    for (const char* settings : {"", "waypointInterpolateSpeed 0.5"}) {
        game.directory.Write("cfg/camera.cfg", settings);
        for (int i = 0; i < 40; ++i) {
            LevelFile level = Room();
            level.waterStart = {37 * i % 700 - 300, 53 * i};
            level.cameraStart = {level.waterStart.x + 3, level.waterStart.y};
            game.Start(level);
            EXPECT_TRUE(game.FramesUntil(IsFlightOver, 3000)) << settings << " " << i;
            EXPECT_LT(Distance(Camera::position, LevelData::waterStart), 11.0f);
        }
    }
}

TEST(LevelScore, FallsEvenlyWithTimeAndRisesWithWater) {
    TestGame game;
    game.Start(Room());
    ASSERT_TRUE(game.FramesUntil(IsFlightOver));
    EXPECT_EQ(LevelProgress::TimeScore(), 436000u);
    EXPECT_EQ(LevelProgress::WaterScore(), 64000u);
    const auto runTo = [&game](std::uint32_t milliseconds) {
        while (LevelProgress::ElapsedMs() < milliseconds) {
            game.Frames(1, std::min(milliseconds - LevelProgress::ElapsedMs(), 1000u));
        }
    };
    KeepParticles(1);
    runTo(160000);
    EXPECT_EQ(LevelProgress::TimeScore(), 436000u);
    EXPECT_EQ(LevelProgress::WaterScore(), 500u);
    runTo(320000);
    EXPECT_EQ(LevelProgress::TimeScore(), 218500u);
    runTo(480000);
    EXPECT_EQ(LevelProgress::TimeScore(), 1000u);
    runTo(500000);
    EXPECT_EQ(LevelProgress::TotalScore(), 1500u);
}

/// A room with a mover, a gate that a trigger removes, and a carried polygon that it removes.
LevelFile LivelyRoom() {
    LevelFile level = Room();
    level.waterStart = {0, -100};
    level.polygons.push_back(TestLevelFile::Box(-40, 60, 40, 80, 7));
    level.polygons.push_back(TestLevelFile::Box(100, -40, 140, -20, 8));
    level.forces = {{8, {0, 0}, {0.0f, 1.0f}, 1.0f}};
    level.movers = {{8, 20.0f, {0, 0}, {0, 50}}};
    level.triggers = {Area(entityRemove, -200, -90, 200, 50, 7),
                      Area(entityRemove, -200, -90, 200, 50, 8),
                      Area(moverToEnd, -200, -90, 200, 50, 8)};
    return level;
}

TEST(LevelRestart, BringsBackWhatItShouldAndOnlyThat) {
    TestGame game;
    game.Start(LivelyRoom());
    const LevelPolygon& gate = *std::next(LevelData::polygons.begin(), 4);
    const LevelPolygon& carried = *std::next(LevelData::polygons.begin(), 5);
    ASSERT_TRUE(game.FramesUntil([] { return MoverManager::movers.front().distance >= 50.0f; }));
    EXPECT_EQ(LevelData::StateOf(gate).solid, 0);
    EXPECT_EQ(LevelData::StateOf(gate).enabled, 0);
    EXPECT_FALSE(BspTree::Collides(*LevelData::polygonSegments.at(&gate).front()));
    EXPECT_EQ(LevelData::StateOf(carried).offset.y, 50.0f);

    game.Restart();
    EXPECT_EQ(LevelData::StateOf(gate).enabled, 1);
    EXPECT_TRUE(BspTree::Collides(*LevelData::polygonSegments.at(&gate).front()));
    EXPECT_EQ(LevelData::StateOf(carried).offset.y, 0.0f);
    EXPECT_EQ(MoverManager::movers.front().distance, 0.0f);
    EXPECT_EQ(LevelData::StateOf(carried).solid, 0) << "what a mover carries stays taken away";
    EXPECT_EQ(LevelProgress::WaterAtFinish(), 128u);
    EXPECT_TRUE(Camera::IsOpeningFlight());
    EXPECT_EQ(LevelProgress::ElapsedMs(), 0u);
}

/// The state after two seconds of play from a fresh start with the same random numbers.
std::uint64_t PlayTwoSeconds(TestGame& game) {
    game.Frames(125);
    return StateHash();
}

TEST(LevelRestart, AHundredTimesEndsTheSame) {
    TestGame game;
    LevelFile level = LivelyRoom();
    level.polygons.pop_back();  // what isn't brought back would make the runs differ
    level.forces.clear();
    level.triggers.erase(level.triggers.begin() + 1);
    game.Start(level);
    PlayTwoSeconds(game);  // from here on the frame time is steady
    std::uint64_t first = 0;
    for (int round = 0; round < 100; ++round) {
        Random::state = 0;
        game.Restart();
        const std::uint64_t hash = PlayTwoSeconds(game);
        first = round == 0 ? hash : first;
        ASSERT_EQ(hash, first) << "restart " << round;
    }
}

TEST(LevelChange, FiftyTimesEndsTheSame) {
    TestGame game;
    game.Start(LivelyRoom(), "lev/a.swah");
    game.Write(Room(), "lev/b.swah");
    std::uint64_t first = 0;
    for (int round = 0; round < 25; ++round) {
        for (const char* name : {"lev/b.swah", "lev/a.swah"}) {
            Random::state = 0;
            Game::RequestMap(name);
            game.Frames(1);
            MenuManager::Show(MenuManager::None);
            ASSERT_EQ(Game::MapName(), name);
        }
        const std::uint64_t hash = PlayTwoSeconds(game);
        first = round == 0 ? hash : first;
        ASSERT_EQ(hash, first) << "round " << round;
    }
}

/// Libraries end the process so; what is static goes in an order of the linker's.
TEST(LevelExit, LeavesNothingDangling) {
    TestGame game;
    LevelFile level = Room();
    level.sounds = {{1, {0, 0}, 100, 1, "snd\\a.wav"}, {2, {9, 0}, 100, 0, "snd\\b.wav"}};
    const auto endInPlay = [&] {
        game.Start(level);
        game.Frames(10);
        std::exit(3);
    };
    EXPECT_EXIT(endInPlay(), testing::ExitedWithCode(3), "");
}

}  // namespace
