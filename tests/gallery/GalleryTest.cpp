// The game running the gallery level without a screen: water is poured into one bay, and what
// becomes of animations, movers, emitters, the camera and the water is looked at, where no test of
// a single part says so.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "actors/Camera.h"
#include "actors/CheckPointTimesManager.h"
#include "actors/LevelObjectsManager.h"
#include "actors/MoverManager.h"
#include "actors/TriggerManager.h"
#include "engine/Text.h"
#include "game/Game.h"
#include "game/HeadlessGame.h"
#include "game/LevelProgress.h"
#include "game/Notice.h"
#include "level/LevelData.h"
#include "level/LevelPolygon.h"
#include "menus/MenuManager.h"
#include "platform/DataRoot.h"
#include "support/Places.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"
#include "water/ParticleManager.h"

namespace {

std::unique_ptr<HeadlessGame> theGame;

constexpr std::uint32_t frameMs = 16;
constexpr float inside = 260.0f;  // width and height of a bay
constexpr float plateX = 130.0f;  // of a plate's centre, from the top left of its bay
constexpr float plateY = 16.0f;

void RunFrame() {
    theGame->Frame(frameMs);
}

std::string TextureOf(const std::string& title) {
    std::string name;
    for (const char c : UpperCased(title)) {
        const bool isPlain = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        name += isPlain ? c : '_';
    }
    return "IMG\\GALLERY\\" + name + ".PNG";
}

template <class List, class Wanted>
auto& TheOneOf(List& list, Wanted wanted) {
    const auto found = std::ranges::find_if(list, wanted);
    EXPECT_NE(found, list.end()) << "the bay has none";
    return found != list.end() ? *found : list.front();
}

/// The level is loaded once for all tests and restarted before each.
class Gallery : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Platform::UseDataRoot(SourceDirectory() / "data");
        theGame = std::make_unique<HeadlessGame>(800, 600);
        ASSERT_TRUE(theGame->Start("gallery.swah")) << LastReason();
        for (int i = 0; i < 16; ++i) {  // until the mean of the frames' times is there
            RunFrame();
        }
    }
    static void TearDownTestSuite() { theGame.reset(); }
    void SetUp() override {
        Game::RequestRestart();
        RunFrame();
        MenuManager::Show(MenuManager::None);  // that of a finished level stays open
        ParticleManager::ClearAll();
    }
    /// Makes the bay with this name plate the one that the calls below speak of, and points the
    /// camera at it.
    void Enter(const std::string& title) {
        const std::string texture = TextureOf(title);
        const LevelObject& plate =
            TheOneOf(LevelObjectsManager::objects, [&](const LevelObject& object) {
                return UpperCased(object.frames[0].name) == texture;
            });
        ASSERT_EQ(UpperCased(plate.frames[0].name), texture);
        origin = plate.position - Vector2{plateX, plateY};
        Camera::SetState(Camera::Following);
        Camera::position = At(inside / 2.0f, inside / 2.0f);
    }
    /// Enters a bay and drops water below its plate.
    void Pour(const std::string& title, std::uint32_t amount = 40) {
        Enter(title);
        const Vector2 spout = At(plateX, 60.0f);
        ParticleManager::CreateParticles(spout.x, spout.y, 10.0f, amount);
    }
    /// Runs frames, at about one step each.
    static void Run(float seconds) {
        RunUntil([] { return false; }, seconds);
    }
    /// Runs frames until the condition holds; false if it doesn't within the time.
    static bool RunUntil(const std::function<bool()>& holds, float seconds) {
        const int frames = static_cast<int>(seconds * 1000.0f) / static_cast<int>(frameMs);
        for (int i = 0; i < frames; ++i) {
            RunFrame();
            if (holds()) {
                return true;
            }
        }
        return false;
    }

    bool IsInBay(Vector2 point) const {
        const Vector2 local = point - origin;
        return local.x >= 0.0f && local.x <= inside && local.y >= 0.0f && local.y <= inside;
    }
    /// From the bay's top left.
    Vector2 At(float x, float y) const { return origin + Vector2{x, y}; }
    Trigger& TriggerOf(TriggerKind kind) const {
        return TheOneOf(TriggerManager::triggers, [&](const Trigger& trigger) {
            return trigger.Kind() == kind && IsInBay(trigger.Centre());
        });
    }
    Mover& MoverOf() const {
        return TheOneOf(MoverManager::movers,
                        [&](const Mover& mover) { return IsInBay(mover.start); });
    }
    Emitter& EmitterOf() const {
        return TheOneOf(FxParticleManager::emitters,
                        [&](const Emitter& emitter) { return IsInBay(emitter.position); });
    }
    LevelPolygon& PolygonOf(std::uint32_t id) const {
        return TheOneOf(LevelData::polygons,
                        [&](const LevelPolygon& polygon) { return polygon.id == id; });
    }
    /// The object that isn't the plate.
    LevelObject& ObjectOf() const {
        return TheOneOf(LevelObjectsManager::animatedObjects,
                        [&](const LevelObject& object) { return IsInBay(object.position); });
    }
    /// How many effect particles the bay's emitter has.
    std::ptrdiff_t Effects() const {
        const TextureSet& textures = EmitterOf().textures;
        return std::ranges::count_if(FxParticleManager::particles, [&](const FxParticle& particle) {
            return particle.texture >= textures.data() &&
                   particle.texture < textures.data() + textures.size();
        });
    }

    // The water, free and frozen, dying particles left out.
    static std::vector<Vector2> Water() {
        std::vector<Vector2> places;
        const auto add = [&](const ParticleList& particles) {
            for (const Particle& particle : particles) {
                if (particle.dying == 0) {
                    places.push_back(particle.position);
                }
            }
        };
        add(ParticleManager::particles);
        for (const ParticleGroup& group : GroupedParticleMover::groups) {
            add(group.particles);
        }
        return places;
    }
    static Vector2 MeanWater() {
        const std::vector<Vector2> places = Water();
        Vector2 sum;
        for (const Vector2 place : places) {
            sum += place;
        }
        return places.empty() ? sum : sum / static_cast<float>(places.size());
    }
    /// Whether all water lies inside of the bay and is finite.
    bool HoldsAllWater() const {
        return std::ranges::all_of(Water(), [&](Vector2 place) { return IsInBay(place); });
    }

    Vector2 origin;  ///< top left of the bay's inside
};

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
            EXPECT_EQ(LevelData::StateOf(PolygonOf(lift.id)).offset, (Vector2{0.0f, -end}));
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
    EXPECT_EQ(LevelData::StateOf(PolygonOf(MoverOf().id)).offset, (Vector2{140.0f, -80.0f}));
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

TEST_F(Gallery, EmittersBurstStartAndStop) {
    Pour("Emitter_create_burst_1");
    EXPECT_EQ(Effects(), 0);
    EXPECT_TRUE(RunUntil([&] { return Effects() == 40; }, 0.5f));
    EXPECT_TRUE(RunUntil([&] { return Effects() == 0; }, 2.0f));
    EXPECT_EQ(EmitterOf().running, 0);

    ParticleManager::ClearAll();
    Pour("Emitter_start_1");
    EXPECT_EQ(EmitterOf().running, 0);
    Run(2.0f);
    EXPECT_EQ(EmitterOf().running, 1);
    EXPECT_GT(Effects(), 10);

    ParticleManager::ClearAll();
    Pour("Emitter_stop_1");
    EXPECT_TRUE(RunUntil([&] { return Effects() > 0; }, 1.0f));
    EXPECT_TRUE(RunUntil([&] { return EmitterOf().running == 0; }, 2.0f));
    EXPECT_TRUE(RunUntil([&] { return Effects() == 0; }, 2.0f));
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
