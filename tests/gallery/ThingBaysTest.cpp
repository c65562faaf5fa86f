// Bays whose triggers act on objects, polygons, movers and emitters.

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>

#include "Gallery.h"
#include "actors/ForceManager.h"
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

TEST_F(Gallery, SoundTriggersFireOnce) {
    for (const TriggerKind kind : {TriggerKind::SoundPlay, TriggerKind::SoundStop}) {
        Pour(std::string(TriggerTypes::Find(static_cast<int>(kind))->name));
        Run(1.0f);
        EXPECT_EQ(TriggerOf(kind).fireCount, 1u);
        ParticleManager::ClearAll();
    }
}

TEST_F(Gallery, ShelfGoesWithItsLampAndLetsTheWaterFall) {
    Pour("Entity_remove_1");
    const std::uint32_t id = TriggerOf(TriggerKind::EntityRemove).targetId;
    LevelPolygon& shelf = PolygonOf(id);
    const Force& force = *std::ranges::find(ForceManager::forces, id, &Force::id);
    Run(0.3f);
    EXPECT_EQ(shelf.enabled, 1);
    EXPECT_LT(MeanWater().y, At(0.0f, 120.0f).y);
    Run(2.5f);
    EXPECT_EQ(shelf.enabled, 0);
    EXPECT_EQ(shelf.solid, 0);
    EXPECT_EQ(ObjectOf().enabled, 0);
    EXPECT_EQ(force.enabled, 0);
    EXPECT_GT(MeanWater().y, At(0.0f, 240.0f).y) << "water lies on the floor";
    SetUp();
    EXPECT_EQ(shelf.enabled, 1);
    EXPECT_EQ(ObjectOf().enabled, 1);
    EXPECT_EQ(force.enabled, 0) << "a restart leaves forces as they are";
    Pour("Entity_remove_1");
    Run(0.4f);
    EXPECT_LT(MeanWater().y, At(0.0f, 120.0f).y) << "the shelf holds water again";
}

TEST_F(Gallery, ShelfComesBackAndHoldsWater) {
    Pour("Entity_add_1");
    LevelPolygon& shelf = PolygonOf(TriggerOf(TriggerKind::EntityAdd).targetId);
    EXPECT_TRUE(RunUntil([&] { return shelf.solid == 0; }, 0.5f));
    Run(2.5f);
    EXPECT_EQ(shelf.solid, 1);
    EXPECT_EQ(shelf.enabled, 1);
    EXPECT_EQ(ObjectOf().enabled, 1);
    ParticleManager::ClearAll();
    Pour(40);
    Run(2.0f);
    EXPECT_LT(MeanWater().y, At(0.0f, 120.0f).y);
    EXPECT_EQ(Water().size(), 40u);
}

// Movers: a lift of 120 units, at 120 units a second.

TEST_F(Gallery, MoversGoToTheirEnd) {
    for (const char* title : {"Mover_goto_end_1", "Mover_goto_end_a"}) {
        Pour(title);
        const Mover& lift = MoverOf();
        const LevelObject& wheel = ObjectOf();
        EXPECT_EQ(lift.distance, 0.0f);
        Run(0.6f);
        EXPECT_EQ(lift.state, Mover::GoingToEnd) << title;
        EXPECT_TRUE(RunUntil([&] { return lift.distance == lift.length; }, 1.0f)) << title;
        EXPECT_EQ(wheel.offset, (Vector2{0.0f, -120.0f})) << title;
        EXPECT_EQ(PolygonOf(lift.id).offset, wheel.offset) << title;
        SetUp();
        EXPECT_EQ(lift.distance, 0.0f) << title;
        EXPECT_EQ(wheel.offset, Vector2{}) << title;
    }
}

TEST_F(Gallery, MoversGoBackToTheirStart) {
    for (const char* title : {"Mover_goto_start_1", "Mover_goto_start_a"}) {
        Pour(title);
        const Mover& lift = MoverOf();
        EXPECT_TRUE(RunUntil([&] { return lift.distance == lift.length; }, 1.5f)) << title;
        EXPECT_TRUE(RunUntil([&] { return lift.distance == 0.0f; }, 3.0f)) << title;
        Run(1.0f);
        EXPECT_EQ(lift.distance, 0.0f) << title;
        ParticleManager::ClearAll();
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

TEST_F(Gallery, MoversLoopFromTheEndThatTheyAreSentTo) {
    for (const char* title : {"Mover_goto_end_loop_1", "Mover_goto_end_loop_a",
                              "Mover_goto_start_loop_1", "Mover_goto_start_loop_a"}) {
        Pour(title);
        const Mover& lift = MoverOf();
        for (int round = 0; round < 2; ++round) {
            EXPECT_TRUE(RunUntil([&] { return lift.distance == lift.length; }, 4.0f)) << title;
            EXPECT_TRUE(RunUntil([&] { return lift.distance == 0.0f; }, 4.0f)) << title;
        }
        EXPECT_TRUE(lift.state == Mover::LoopingToEnd || lift.state == Mover::LoopingToStart)
            << title;
        ParticleManager::ClearAll();
    }
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

TEST_F(Gallery, WaterIsSweptAlongByABlade) {
    Pour("Water is pushed", 60);
    const Mover& blade = MoverOf();
    EXPECT_TRUE(RunUntil([&] { return blade.distance > 130.0f; }, 6.0f));
    const float edge = At(16.0f, 0.0f).x + blade.distance;
    for (const Vector2 place : Water()) {
        EXPECT_GT(place.x, edge - 1.0f);
    }
    EXPECT_GT(Water().size(), 55u);
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

TEST_F(Gallery, TwoMoversAddUp) {
    Pour("Two movers, one load");
    Run(3.0f);
    EXPECT_EQ(ObjectOf().offset, (Vector2{140.0f, -80.0f}));
    EXPECT_EQ(PolygonOf(MoverOf().id).offset, (Vector2{140.0f, -80.0f}));
}

// Emitters

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

/// The bays that show one key each differ in it alone from the plain one: ten particles a
/// second, straight up at 60 units a second, 12 wide, white, for a second.
class EmitterBays : public Gallery {
protected:
    std::vector<const FxParticle*> Watch(const std::string& key, float seconds = 2.5f) {
        ParticleManager::ClearAll();
        Pour("emitter " + key);
        Run(seconds);
        return Effects();
    }
    template <class Value>
    static std::pair<float, float> Range(const std::vector<const FxParticle*>& particles,
                                         Value value) {
        std::pair<float, float> range{1.0e9f, -1.0e9f};
        for (const FxParticle* const particle : particles) {
            range.first = std::min(range.first, value(*particle));
            range.second = std::max(range.second, value(*particle));
        }
        return range;
    }
    static float Speed(const FxParticle& particle) { return Length(particle.velocity); }
};

TEST_F(EmitterBays, ThrowAndWaitAtTheirRate) {
    const auto plain = Watch("plain");
    EXPECT_NEAR(static_cast<double>(plain.size()), 10.0, 1.0);
    for (const FxParticle* const particle : plain) {
        EXPECT_NEAR(particle->position.x, At(130.0f, 0.0f).x, 0.1f);
        EXPECT_NEAR(particle->velocity.y, -60.0f, 0.001f);
    }
    EXPECT_NEAR(static_cast<double>(Watch("frequency").size()), 50.0, 2.0);
    EXPECT_TRUE(Watch("active").empty());
    EXPECT_EQ(Watch("burstSize", 0.6f).size(), 50u);
}

TEST_F(EmitterBays, SpreadSpeedAndGravityShowInTheFlight) {
    const auto [left, right] = Range(Watch("spread", 8.0f), [](const FxParticle& particle) {
        return std::atan2(particle.velocity.x, -particle.velocity.y) / degreesToRadians;
    });
    EXPECT_GE(left, -45.1f);
    EXPECT_LE(right, 45.1f);
    EXPECT_GT(right - left, 30.0f);
    const auto [slow, quick] = Range(Watch("velocity"), Speed);
    EXPECT_GE(slow, 9.9f);
    EXPECT_LE(quick, 100.1f);
    EXPECT_GT(quick - slow, 30.0f);
    const auto [first, last] =
        Range(Watch("gravity"), [](const FxParticle& particle) { return particle.velocity.y; });
    EXPECT_LT(first, 0.0f);
    EXPECT_GT(last, 20.0f) << "older ones fall";
}

TEST_F(EmitterBays, SizeLifeColourBlendingAndTextureAreDrawnAtBirth) {
    const auto [small, large] =
        Range(Watch("size"), [](const FxParticle& particle) { return particle.size; });
    EXPECT_GE(small, 6.0f);
    EXPECT_LE(large, 40.0f);
    EXPECT_GT(large - small, 10.0f);
    const auto [shortest, longest] =
        Range(Watch("liveTime"), [](const FxParticle& particle) { return particle.liveTime; });
    EXPECT_GE(shortest, 0.2f);
    EXPECT_LE(longest, 2.0f);
    EXPECT_GT(longest - shortest, 0.5f);
    const auto [blue, red] =
        Range(Watch("color"), [](const FxParticle& particle) { return particle.color.r; });
    EXPECT_GE(blue, 0.1f);
    EXPECT_LE(red, 1.0f);
    EXPECT_GT(red - blue, 0.3f);
    const auto [adding, covering] = Range(
        Watch("useAlphaBlending"),
        [](const FxParticle& particle) { return static_cast<float>(particle.useAlphaBlending); });
    EXPECT_EQ(adding, 0.0f);
    EXPECT_EQ(covering, 0.0f);
    std::set<std::string> textures;
    for (const FxParticle* const particle : Watch("texture", 6.0f)) {
        textures.insert(particle->texture->name);
    }
    EXPECT_GE(textures.size(), 2u);
    EXPECT_EQ(EmitterOf().textures.size(), 3u);
}

}  // namespace
