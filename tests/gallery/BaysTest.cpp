// Each bay of the gallery in play: what its triggers do to animations, movers, emitters, the camera
// and the water, where no test of a single part says so.

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "Gallery.h"
#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
#include "game/LevelProgress.h"
#include "level/LevelPolygon.h"
#include "water/GroupedParticleMover.h"

namespace {

TEST_F(Gallery, HasABayForEveryTriggerType) {
    for (const TriggerType& type : TriggerTypes::all) {
        Enter(std::string(type.name));
        EXPECT_EQ(TriggerOf(type.kind).typeInfo, &type) << type.name;
    }
}

TEST_F(Gallery, AnimationsLoopPlayOnceAndStop) {
    Pour("Anim_play_loop_1");
    LevelObject& wheel = ObjectOf();
    EXPECT_EQ(wheel.frameCount, 6u);
    EXPECT_EQ(wheel.stopped, 1);
    std::set<std::uint32_t> frames;
    Run(0.5f);
    RunUntil(
        [&] {
            frames.insert(wheel.frame);
            return false;
        },
        3.0f);
    EXPECT_EQ(frames.size(), 6u);
    EXPECT_EQ(wheel.stopped, 0);

    ParticleManager::ClearAll();
    Pour("Anim_play_once_1");
    LevelObject& gauge = ObjectOf();
    EXPECT_TRUE(RunUntil([&] { return gauge.frame == 3; }, 2.0f));
    Run(2.0f);
    EXPECT_EQ(gauge.stopped, 1);
    EXPECT_EQ(gauge.frame, gauge.frameCount - 1);

    ParticleManager::ClearAll();
    Pour("Anim_stop_1");
    LevelObject& lamp = ObjectOf();
    EXPECT_TRUE(RunUntil([&] { return lamp.stopped == 0; }, 1.0f));
    EXPECT_TRUE(RunUntil([&] { return lamp.stopped == 1; }, 1.5f));
}

// Movers: a lift of 120 units, at 120 units a second.

TEST_F(Gallery, MoversGoFromEndToEndAndTakeTheirLoadAlong) {
    struct Way {
        const char* title;
        int ends;  ///< of the path, in turn, the far one first; the mover then stays
    };
    constexpr int forEver = 4;
    for (const Way& way :
         {Way{"Mover_goto_end_1", 1}, Way{"Mover_goto_end_a", 1}, Way{"Mover_goto_start_1", 2},
          Way{"Mover_goto_start_a", 2}, Way{"Mover_goto_end_loop_1", forEver},
          Way{"Mover_goto_end_loop_a", forEver}, Way{"Mover_goto_start_loop_1", forEver},
          Way{"Mover_goto_start_loop_a", forEver}}) {
        SCOPED_TRACE(way.title);
        Pour(way.title);
        const Mover& lift = MoverOf();
        for (int i = 0; i < way.ends; ++i) {
            const float end = i % 2 == 0 ? lift.length : 0.0f;
            EXPECT_TRUE(RunUntil([&] { return lift.distance == end; }, 4.0f)) << "end " << i;
            EXPECT_EQ(PolygonOf(lift.id).offset, (Vector2{0.0f, -end}));
            EXPECT_EQ(ObjectOf().offset, (Vector2{0.0f, -end}));
        }
        const float last = lift.distance;
        Run(1.0f);
        EXPECT_EQ(lift.distance == last, way.ends < forEver);
        SetUp();
        EXPECT_EQ(lift.distance, 0.0f);
        EXPECT_EQ(ObjectOf().offset, Vector2{});
    }
}

TEST_F(Gallery, MoversStopOnTheirWay) {
    for (const char* title : {"Mover_stop_1", "Mover_stop_a"}) {
        Pour(title);
        const Mover& lift = MoverOf();
        EXPECT_TRUE(RunUntil([&] { return lift.distance > 0.0f; }, 1.0f)) << title;
        EXPECT_TRUE(RunUntil([&] { return lift.state == Mover::Stopped; }, 1.0f)) << title;
        Run(1.0f);
        const float distance = lift.distance;
        EXPECT_GT(distance, 20.0f) << title;
        EXPECT_LT(distance, 110.0f) << title;
        Run(1.0f);
        EXPECT_EQ(lift.distance, distance) << title;
        ParticleManager::ClearAll();
    }
}

TEST_F(Gallery, TwoMoversAddUp) {
    Pour("Two movers, one load");
    Run(3.0f);
    EXPECT_EQ(ObjectOf().offset, (Vector2{140.0f, -80.0f}));
    EXPECT_EQ(PolygonOf(MoverOf().id).offset, (Vector2{140.0f, -80.0f}));
}

TEST_F(Gallery, WaterRidesOnATray) {
    Pour("Water rides", 60);
    Run(0.9f);
    const float before = MeanWater().y;
    const Mover& tray = MoverOf();
    EXPECT_TRUE(RunUntil([&] { return tray.distance > 90.0f; }, 4.0f));
    EXPECT_LT(MeanWater().y, before - 60.0f);
    EXPECT_GT(Water().size(), 55u);
    Run(6.0f);
    EXPECT_TRUE(HoldsAllWater());
}

TEST_F(Gallery, WaterIsCrushedByAPiston) {
    Pour("Water is crushed", 60);
    const Mover& piston = MoverOf();
    EXPECT_TRUE(RunUntil([&] { return piston.distance > 170.0f; }, 6.0f));
    EXPECT_GT(Water().size(), 55u) << "it is only pushed so far";
    EXPECT_TRUE(HoldsAllWater());
    EXPECT_TRUE(RunUntil([&] { return Water().size() < 30; }, 2.0f));
}

TEST_F(Gallery, IceRidesOnAPlatform) {
    Pour("Ice rides");
    const Mover& platform = MoverOf();
    EXPECT_TRUE(RunUntil([&] { return platform.distance > 1.0f; }, 6.0f));
    ASSERT_FALSE(GroupedParticleMover::groups.empty());
    const float before = MeanWater().y;
    EXPECT_TRUE(RunUntil([&] { return platform.distance == platform.length; }, 4.0f));
    EXPECT_LT(MeanWater().y, before - 70.0f);
    EXPECT_EQ(Water().size(), 40u);
}

/// Water meets a mover's edges where they were before the step, so a drop may find itself
/// inside of a fast one for a moment. It is out or dying soon.
TEST_F(Gallery, AFastSlabKillsWhatItRunsIntoAndKeepsNothingInside) {
    Pour("600 units a second", 20);
    const Mover& slab = MoverOf();
    ASSERT_TRUE(RunUntil([&] { return slab.distance > 0.0f; }, 3.0f));
    std::map<const Particle*, int> framesInside;
    std::size_t seen = 0;
    for (int frame = 0; frame < 300; ++frame) {
        if (frame % 30 == 0) {
            Pour(20);
        }
        Run(0.016f);
        const Vector2 corner = At(20.0f, 236.0f) + PolygonOf(slab.id).offset;
        for (const Particle& particle : ParticleManager::particles) {
            const Vector2 local = particle.position - corner;
            const bool isInside = particle.dying == 0 && local.x > 0.5f && local.x < 219.5f &&
                                  local.y > 0.5f && local.y < 13.5f;
            int& frames = framesInside[&particle];
            frames = isInside ? frames + 1 : 0;
            EXPECT_LE(frames, 2) << local.x << ' ' << local.y << " in frame " << frame;
            ++seen;
        }
        ASSERT_TRUE(HoldsAllWater());
    }
    EXPECT_GT(seen, 1000u);
    EXPECT_LT(Water().size(), 100u);
}

TEST_F(Gallery, EmittersBurstStartAndStop) {
    Pour("Emitter_create_burst_1");
    EXPECT_TRUE(Effects().empty());
    EXPECT_TRUE(RunUntil([&] { return Effects().size() == 40; }, 0.5f));
    EXPECT_TRUE(RunUntil([&] { return Effects().empty(); }, 2.0f));
    EXPECT_EQ(EmitterOf().running, 0);

    ParticleManager::ClearAll();
    Pour("Emitter_start_1");
    EXPECT_EQ(EmitterOf().running, 0);
    Run(2.0f);
    EXPECT_EQ(EmitterOf().running, 1);
    EXPECT_GT(Effects().size(), 10u);

    ParticleManager::ClearAll();
    Pour("Emitter_stop_1");
    EXPECT_TRUE(RunUntil([&] { return !Effects().empty(); }, 1.0f));
    EXPECT_TRUE(RunUntil([&] { return EmitterOf().running == 0; }, 2.0f));
    EXPECT_TRUE(RunUntil([&] { return Effects().empty(); }, 2.0f));
}

TEST_F(Gallery, WaterDiesDropByDrop) {
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

TEST_F(Gallery, CheckPointMovesTheRespawnAndShowsItsTime) {
    Pour("Checkpoint_1");
    EXPECT_TRUE(RunUntil(
        [] { return CheckPointTimesManager::state == CheckPointTimesManager::State::FadingInTime; },
        1.0f));
    const Vector2 centre = TriggerOf(TriggerKind::CheckPoint).Centre();
    EXPECT_EQ(LevelProgress::respawnX, centre.x);
    EXPECT_EQ(LevelProgress::respawnY, centre.y);
    EXPECT_EQ(LevelProgress::respawnAmount, 40u);
}

}  // namespace
