// Delayed triggers against their plain form: one entry for each firing, run in a list.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "actors/TriggerEffects.h"
#include "engine/Console.h"
#include "level/Limits.h"
#include "reference/PlainTriggers.h"
#include "support/TestWorld.h"

namespace {

/// A call of a type of our own: the trigger's id, and the time of the step of firing.
using Call = std::pair<std::uint32_t, float>;
std::vector<Call> calls;
void NoteCall(const TriggerFiring& firing) {
    calls.emplace_back(firing.trigger.targetId, firing.dt);
}

/// The calls of a step: the first and the last of each kind, in order, with how many there were.
std::vector<std::pair<Call, std::ptrdiff_t>> Summary() {
    std::vector<std::pair<Call, std::ptrdiff_t>> summary;
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        if (std::find(calls.begin(), call, *call) == call ||
            std::find(call + 1, calls.end(), *call) == calls.end()) {
            summary.emplace_back(*call, std::count(calls.begin(), calls.end(), *call));
        }
    }
    calls.clear();
    return summary;
}

/// Overlapping triggers of all types that can wait, with equal, similar and other delays.
void BuildWorld(std::mt19937& random) {
    const auto place = [&] { return static_cast<float>(random() % 120); };
    for (std::uint32_t id = 1; id <= 3; ++id) {
        TestWorld::AddMover(id, {}, {200.0f, 0.0f}, 40.0f);
        Emitter emitter;
        emitter.id = id;
        emitter.textures = TextureSet(std::vector<Texture>(1));
        FxParticleManager::Add(emitter);
    }
    const int types[] = {401, 402, 404, 405, 406, 407, 409, 410, 501, 602, 603, 604, 801};
    constexpr float delays[] = {0.0f, 0.125f, 0.125f, 0.125f, 0.126f, 0.13f, 0.5f, 2.0f, 1.0e30f};
    for (int i = 0; i < 24; ++i) {
        const Vector2 corner{place(), place()};
        const Vector2 other = corner + Vector2{20.0f + place(), 20.0f + place()};
        Trigger& trigger = TestWorld::AddTrigger(TriggerKind{types[random() % 13]}, corner, other,
                                                 static_cast<std::uint32_t>(1 + random() % 3),
                                                 delays[random() % 9]);
        if (i % 3 == 0) {
            trigger.effect = NoteCall;
            trigger.targetId = static_cast<std::uint32_t>(i);
        }
    }
    for (int i = 0; i < 40; ++i) {
        TestWorld::AddParticle({});
    }
}

/// What each step of a random world comes to, and the calls of the noting type in it.
template <class Triggers>
auto Play(unsigned seed, Triggers step) {
    std::mt19937 random(seed);
    TestWorld world;
    BuildWorld(random);
    std::vector<std::string> states;
    std::vector<decltype(Summary())> noted;
    for (int i = 0; i < 300; ++i) {
        for (Particle& particle : ParticleManager::particles) {
            if (random() % 4 == 0) {
                particle.position = {static_cast<float>(random() % 200),
                                     static_cast<float>(random() % 200)};
            }
        }
        constexpr float times[] = {1.0f / 32.0f, 1.0f / 64.0f, 0.011f};  // some end delays exactly
        const float dt = times[random() % 3];
        MoverManager::Step(Camera::Look(), dt);
        Camera::ReadConfig();  // a shake of its own in each step, which draws a random number
        Camera::position = {100.0f, 100.0f};
        Camera::SetState(i % 2 == 0 ? Camera::Following : Camera::Holding);
        calls.clear();
        step(dt);
        std::ostringstream state;
        state << "movers";
        for (const Mover& mover : MoverManager::movers) {
            state << ' ' << mover.state;
        }
        state << ", fired";
        for (const Trigger& trigger : TriggerManager::triggers) {
            state << ' ' << TriggerManager::StateOf(trigger).fireCount;
        }
        state << ", camera " << Camera::state << ", random " << Random::state << ", effects "
              << FxParticleManager::particles.size();
        states.push_back(state.str());
        noted.push_back(Summary());
    }
    return std::pair(states, noted);
}

TEST(DelayedEffects, ComeInTheOrderOfThePlainForm) {
    for (unsigned seed = 0; seed < 12; ++seed) {
        Plain::Triggers plain;
        const auto expected = Play(seed, [&plain](float dt) { plain.Step(dt); });
        const auto found = Play(seed, [](float dt) { TriggerManager::Step(Camera::Look(), dt); });
        for (std::size_t i = 0; i < expected.first.size(); ++i) {
            ASSERT_EQ(found.first[i], expected.first[i]) << "seed " << seed << " step " << i;
            ASSERT_EQ(found.second[i], expected.second[i]) << "seed " << seed << " step " << i;
        }
    }
}

TEST(DelayedEffects, CostAStepNoMoreTheLongerTheyWait) {
    TestWorld world;
    for (const auto kind : {TriggerKind::MoverGoToStart, TriggerKind::MoverGoToEnd}) {
        TestWorld::AddTrigger(kind, {}, {100.0f, 100.0f}, 7, 1000.0f);
        TestWorld::AddTrigger(kind, {}, {100.0f, 100.0f}, 7, 1.0e30f);
    }
    for (int i = 0; i < 128; ++i) {
        TestWorld::AddParticle({50.0f, 50.0f});
    }
    const auto before = std::chrono::steady_clock::now();
    for (int i = 0; i < 20000; ++i) {
        TriggerManager::Step(Camera::Look(), 0.01f);
    }
    EXPECT_EQ(Actors::current.delayedEffects.Count(), 80000u);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
}

TEST(DelayedEffects, AreDroppedBeyondTheirLimitAndTheConsoleSaysSo) {
    TestWorld world;
    Console::Initialise();
    for (int i = 0; i < 8192; ++i) {
        TestWorld::AddTrigger(TriggerKind::CameraZoom, {}, {100.0f, 100.0f}, 0,
                              1.0f + static_cast<float>(i % 1000));
    }
    TestWorld::AddParticle({50.0f, 50.0f});
    TestWorld::AddParticle({50.0f, 50.0f});
    for (int i = 0; i < 70; ++i) {
        TriggerManager::Step(Camera::Look(), 0.01f);
    }
    EXPECT_EQ(Actors::current.delayedEffects.Count(), Limits::waitingEffects);
    const std::string text(Console::OutputText());
    const std::size_t at = text.find("\nToo many delayed effects of triggers wait");
    EXPECT_NE(at, std::string::npos);
    EXPECT_EQ(text.find("delayed effects of", at + 12), std::string::npos) << "once";
    ParticleManager::particles.clear();
    for (int i = 0; i < 50; ++i) {
        TriggerManager::Step(Camera::Look(), 0.01f);
    }
    EXPECT_LT(Actors::current.delayedEffects.Count(), Limits::waitingEffects);
    TriggerManager::Reset();
    EXPECT_EQ(Actors::current.delayedEffects.Count(), 0u);
    Console::Shutdown();
}

}  // namespace
