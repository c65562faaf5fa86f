// Bays whose triggers act on the water itself, on the camera and on the course of the level.

#include <algorithm>
#include <cmath>

#include "Gallery.h"
#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
#include "actors/ForceManager.h"
#include "game/LevelProgress.h"
#include "water/GroupedParticleMover.h"

namespace {

bool AllFree(float low, float high) {
    return GroupedParticleMover::groups.empty() &&
           std::ranges::all_of(ParticleManager::particles, [&](const Particle& particle) {
               return particle.temperature > low && particle.temperature < high;
           });
}

TEST_F(Gallery, NothingHappensToWaterInANullTrigger) {
    Pour("Null_a");
    Run(3.0f);
    EXPECT_GT(TriggerOf(TriggerKind::Null).fireCount, 40u);
    EXPECT_EQ(Water().size(), 40u);
    EXPECT_TRUE(HoldsAllWater());
    EXPECT_TRUE(AllFree(0.0f, 100.0f));
}

TEST_F(Gallery, WaterFreezesThawsAndBoils) {
    Pour("To_ice_a");
    EXPECT_TRUE(RunUntil([] { return ParticleManager::Count() == 0; }, 3.0f));
    EXPECT_EQ(Water().size(), 40u);
    EXPECT_FALSE(GroupedParticleMover::groups.empty());

    ParticleManager::ClearAll();
    Pour("To_water_a", 20, -30.0f);
    Pour(20, 150.0f);
    EXPECT_TRUE(RunUntil([] { return AllFree(0.0f, 100.0f); }, 4.0f));
    EXPECT_EQ(Water().size(), 40u);

    ParticleManager::ClearAll();
    Pour("To_steam_a");
    EXPECT_TRUE(RunUntil([] { return AllFree(99.9f, 1000.0f); }, 4.0f));
    Run(2.0f);
    EXPECT_LT(MeanWater().y, At(0.0f, 130.0f).y) << "steam rises";
    EXPECT_TRUE(HoldsAllWater());
}

TEST_F(Gallery, ForcesBlowLiftPullAndPushWater) {
    Pour("Force_directional_a");
    Run(3.0f);
    EXPECT_GT(MeanWater().x, At(220.0f, 0.0f).x) << "water lies on the right wall";
    EXPECT_TRUE(HoldsAllWater());

    ParticleManager::ClearAll();
    Pour("Force_instantenous_a");
    Run(3.0f);
    EXPECT_LT(MeanWater().y, At(0.0f, 180.0f).y) << "water hovers at the fountain's rim";
    EXPECT_TRUE(HoldsAllWater());

    ParticleManager::ClearAll();
    Pour("Force_multi_dir_pull_a");
    Run(3.0f);
    const Vector2 pull = At(130.0f, 140.0f);
    EXPECT_LT(Distance(MeanWater(), pull), 60.0f) << "water swings round the middle";

    ParticleManager::ClearAll();
    Pour("Force_multi_dir_push_a");
    Run(4.0f);
    const Vector2 push = At(130.0f, 260.0f);
    EXPECT_TRUE(
        std::ranges::all_of(Water(), [&](Vector2 place) { return Distance(place, push) > 40.0f; }));
    EXPECT_TRUE(HoldsAllWater());
}

TEST_F(Gallery, WaterDiesAtOnceOrDropByDrop) {
    Pour("Particle_kill_a");
    EXPECT_TRUE(RunUntil([] { return Water().empty(); }, 1.0f));

    ParticleManager::ClearAll();
    Pour("Particle_kill_random_a", 100);
    Run(0.2f);
    EXPECT_GT(Water().size(), 60u);
    EXPECT_TRUE(RunUntil([] { return Water().size() < 85; }, 6.0f));
}

TEST_F(Gallery, CameraZoomsAndShakes) {
    for (const char* title : {"Camera_zoom_1", "Camera_zoom_a"}) {
        Pour(title);
        EXPECT_TRUE(RunUntil([] { return Camera::zoom > 1.5f; }, 2.0f)) << title;
        SetUp();
    }
    for (const char* title : {"Camera_shake_1", "Camera_shake_a"}) {
        Pour(title);
        EXPECT_TRUE(RunUntil([] { return Length(Camera::shakeOffset) > 1.0f; }, 2.0f)) << title;
        Run(3.0f);
        const bool shakesOn = title == std::string("Camera_shake_a");
        EXPECT_EQ(RunUntil([] { return Length(Camera::shakeOffset) > 0.5f; }, 0.5f), shakesOn)
            << title;
        SetUp();
    }
}

TEST_F(Gallery, LevelEndsWhenEnoughWaterStandsInTheFinish) {
    Pour("Level_end_a");
    EXPECT_FALSE(LevelProgress::IsFinishing());
    EXPECT_TRUE(RunUntil(LevelProgress::IsFinishing, 2.0f));
    EXPECT_TRUE(RunUntil(LevelProgress::IsFinished, 4.0f));
    EXPECT_EQ(LevelProgress::WaterScore(), 20000u);
}

TEST_F(Gallery, CheckPointMovesTheRespawnAndShowsItsTime) {
    Pour("Checkpoint_1");
    EXPECT_TRUE(RunUntil(
        [] { return CheckPointTimesManager::state == CheckPointTimesManager::State::FadingInTime; },
        1.0f));
    const Vector2 centre = TriggerOf(TriggerKind::CheckPoint).Centre();
    EXPECT_EQ(LevelProgress::respawnX, centre.x);
    EXPECT_EQ(LevelProgress::respawnY, centre.y);
    EXPECT_EQ(LevelProgress::respawnAmount, 40u);
    ParticleManager::ClearAll();
    Run(0.1f);
    EXPECT_EQ(Water().size(), 40u) << "lost water comes back";
    EXPECT_TRUE(HoldsAllWater());

    // The second attempt shows the difference to the first.
    SetUp();
    EXPECT_NE(LevelProgress::respawnX, centre.x);
    Pour("Checkpoint_1");
    EXPECT_TRUE(RunUntil(
        [] {
            return CheckPointTimesManager::state ==
                   CheckPointTimesManager::State::FadingInDifference;
        },
        1.0f));
}

}  // namespace
