// The state hash leaves nothing out: every field of every record in play, changed alone, gives
// another hash. Records are taken apart as the fold takes them, so that a new field has to be
// placed here too.

#include "game/StateHash.h"

#include <gtest/gtest.h>

#include <bit>
#include <concepts>
#include <vector>

#include "actors/ForceManager.h"
#include "actors/LevelObjectsManager.h"
#include "support/TestGame.h"
#include "water/FxParticleManager.h"
#include "water/GroupedParticleMover.h"

namespace {

void Change(bool& value) {
    value = !value;
}
void Change(std::integral auto& value) {
    value ^= 1;
}
/// In the last bit.
void Change(float& value) {
    value = std::bit_cast<float>(std::bit_cast<std::uint32_t>(value) ^ 1u);
}
void Change(double& value) {
    value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) ^ 1u);
}

/// `field` as the hash sees it, alone in its record.
template <class Field>
void ExpectSeen(Field& field, const char* record, int number) {
    const std::uint64_t before = StateHash();
    const Field kept = field;
    Change(field);
    EXPECT_NE(StateHash(), before) << record << ", field " << number;
    field = kept;
    EXPECT_EQ(StateHash(), before) << record << ", field " << number;
}
void ExpectSeen(Vector2& field, const char* record, int number) {
    ExpectSeen(field.x, record, number);
    ExpectSeen(field.y, record, number);
}

/// Numbers the fields in the order given, from 1.
template <class... Fields>
void ExpectAllSeen(const char* record, Fields&... fields) {
    int number = 0;
    (ExpectSeen(fields, record, ++number), ...);
}

void SeeParticle(Particle& particle) {
    auto& [position, velocity, pushVelocity, temperature, gridX, gridY, inGrid, dying, killTimer,
           groupDirection, groupScale, speed, history] = particle;
    ExpectAllSeen("particle", position, history[0], history[1], history[2], velocity, pushVelocity,
                  temperature, speed, gridX, gridY, dying, killTimer, groupDirection, groupScale);
}

void SeeGroup(ParticleGroup& group) {
    auto& [members, radius, targetRadius, position, velocity, pushVelocity, hitThisStep,
           temperature, dying, killTimer] = group;
    ExpectAllSeen("group", radius, targetRadius, position, velocity, pushVelocity, hitThisStep,
                  temperature, dying, killTimer);
    SeeParticle(members.front());
}

void SeeColour(Colour& colour) {
    auto& [r, g, b, a] = colour;
    ExpectAllSeen("colour", r, g, b, a);
}

void SeeEmitter(Emitter& emitter) {
    auto& [id, position, direction, frequency, timeSinceEmit, spread, burstSize, running,
           useAlphaBlending, velocity1, velocity2, size1, size2, liveTime1, liveTime2, color1,
           color2, gravity1, gravity2, textures] = emitter;
    ExpectAllSeen("emitter", id, position, direction, frequency, timeSinceEmit, spread, burstSize,
                  running, useAlphaBlending, velocity1, velocity2, size1, size2, liveTime1,
                  liveTime2, gravity1, gravity2);
    SeeColour(color1);
    SeeColour(color2);
}

void SeeEffect(FxParticle& particle) {
    auto& [useAlphaBlending, position, velocity, color, size, liveTime, timeLeft, gravity,
           texture] = particle;
    ExpectAllSeen("effect particle", useAlphaBlending, position, velocity, size, liveTime, timeLeft,
                  gravity);
    SeeColour(color);
    const std::uint64_t before = StateHash();
    const Texture* const kept = texture;
    texture = &FxParticleManager::emitters.back().textures[1];
    EXPECT_NE(StateHash(), before) << "its texture";
    texture = kept;
}

void SeePolygon(PolygonState& polygon) {
    auto& [solid, enabled, offset, previousOffset] = polygon;
    ExpectAllSeen("polygon", solid, enabled, offset, previousOffset);
}

void SeeTrigger(TriggerState& trigger) {
    auto& [cooldown, fireCount] = trigger;
    ExpectAllSeen("trigger", cooldown, fireCount);
}

void SeeMover(Mover& mover) {
    auto& [id, start, end, direction, length, speed, distance, state] = mover;
    ExpectAllSeen("mover", id, start, end, direction, length, speed, distance, state);
}

void SeeForce(Force& force) {
    auto& [enabled, id, position, direction, strength] = force;
    ExpectAllSeen("force", enabled, id, position, direction, strength);
}

void SeeObject(LevelObject& object) {
    auto& [enabled, id, layer, frames, frameCount, frame, frameTimer, position, offset, mirrored,
           stopped, playLimit, plays] = object;
    ExpectAllSeen("object", enabled, id, layer, frameCount, frame, frameTimer, position, offset,
                  mirrored, stopped, playLimit, plays);
}

void SeeCamera() {
    auto& [position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer, shaking,
           shakeTimer, shakeTarget] = Camera::current;
    ExpectAllSeen("camera", position, shakeOffset, angle, zoom, state, angularVelocity, zoomTimer,
                  shaking, shakeTimer, shakeTarget);
}

void SeeProgress() {
    auto& [finishing, finishTimer, waterInFinish, countsSteps, stopwatch, stepSeconds, respawnX,
           respawnY, respawnAmount] = LevelProgress::current;
    ExpectAllSeen("progress", finishing, finishTimer, waterInFinish, stopwatch.elapsedMs,
                  stepSeconds, respawnX, respawnY, respawnAmount);
}

/// One of each thing that a level can hold.
LevelFile FullRoom() {
    LevelFile level = TestLevelFile::Room();
    level.polygons.push_back(TestLevelFile::Box(100, -40, 140, -20, 8));
    level.objects = {{8, "still", 2, {0, 0}, 0}, {9, "run_FRAME", 1, {0, 0}, 0}};
    level.forces = {{8, {0, 0}, {0.0f, 1.0f}, 1.0f}};
    level.movers = {{8, 20.0f, {0, 0}, {0, 50}}};
    level.triggers = {TestLevelFile::Area(402, -200, -150, 200, 150, 8)};
    level.triggers.front().delay = 60.0f;
    level.emitters = {{6, {20, 30}, {0.0f, 1.0f}, "cfg\\mist.cfg"},
                      {7, {20, 30}, {1.0f, 0.0f}, "cfg\\mist.cfg"}};
    return level;
}

struct StateHashOfAFullRoom : testing::Test {
    StateHashOfAFullRoom() {
        game.directory.Write("cfg/mist.cfg", "frequency 0.01 texture1 a texture2 b\n");
        game.Start(FullRoom());
        game.Frames(20);  // from here on each frame is a step
        Particle& lump = ParticleManager::particles.front();
        lump.position = {-150.0f, -100.0f};  // out of reach of the warm water
        lump.temperature = -30.0f;
        game.Frames(10);
        ParticleManager::particles.front().temperature = 200.0f;
    }
    TestGame game;
};

TEST_F(StateHashOfAFullRoom, SeesEveryFieldOfWaterAndEffects) {
    ASSERT_FALSE(ParticleManager::particles.empty());
    ASSERT_FALSE(GroupedParticleMover::groups.empty());
    ASSERT_FALSE(FxParticleManager::particles.empty());
    SeeParticle(ParticleManager::particles.front());
    SeeParticle(ParticleManager::particles.back());
    SeeGroup(GroupedParticleMover::groups.front());
    SeeEmitter(FxParticleManager::emitters.back());
    SeeEffect(FxParticleManager::particles.front());
    using namespace ParticleManager;
    ExpectAllSeen("settings of the water", gravity, roomTemperature, heatTransferRate,
                  steamRiseRate, steamScatterRate, particleKillTime);
}

TEST_F(StateHashOfAFullRoom, SeesEveryFieldOfTheLevel) {
    SeePolygon(LevelData::current.polygons.front());
    SeePolygon(LevelData::current.polygons.back());
    ExpectAllSeen("segment", LevelData::current.segmentsCollide.back());
    SeeMover(MoverManager::movers.front());
    SeeForce(ForceManager::forces.front());
    SeeObject(LevelObjectsManager::objects.front());
    SeeTrigger(Actors::current.triggers.front());
}

TEST_F(StateHashOfAFullRoom, SeesCameraProgressAndRandomNumbers) {
    SeeCamera();
    SeeProgress();
    ExpectAllSeen("random", Random::state);
}

TEST_F(StateHashOfAFullRoom, SeesWhatWaitsForItsDelay) {
    ASSERT_GT(Actors::current.delayedEffects.Count(), 0u);
    const std::uint64_t before = StateHash();
    Actors::current.delayedEffects.Clear();
    EXPECT_NE(StateHash(), before);
}

TEST(DelayedEffects, FoldsEveryPartOfWhatWaits) {
    struct Firing {
        std::uint32_t trigger = 0;
        float delay = 1.0f;
        std::uint32_t order = 0;
        std::uint32_t times = 1;
        float dt = 0.25f;
        float later = 0.0f;
    };
    const auto fold = [&](Firing firing) {
        DelayedEffects effects;
        effects.Add({firing.trigger, firing.order, firing.times}, firing.delay, firing.dt);
        if (firing.later >= 0.0f) {
            std::vector<DelayedEffects::Due> due;
            effects.Age(firing.later, due);
        }
        StateFold folded;
        effects.AddTo(folded);
        return folded.Value();
    };
    const std::uint64_t plain = fold({});
    EXPECT_EQ(fold({}), plain);
    EXPECT_NE(fold({.trigger = 1}), plain);
    EXPECT_NE(fold({.delay = 2.0f}), plain);
    EXPECT_NE(fold({.order = 1}), plain);
    EXPECT_NE(fold({.times = 2}), plain);
    EXPECT_NE(fold({.dt = 0.5f}), plain);
    EXPECT_NE(fold({.later = 0.5f}), plain);
    EXPECT_NE(fold({.later = -1.0f}), plain) << "in the step of firing";
}

}  // namespace
