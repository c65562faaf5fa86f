// What the things that live in a level cost per simulation step: triggers, movers with what
// they carry, and objects, all in view and with water among them.

#include <benchmark/benchmark.h>

#include <cmath>

#include "support/TestWorld.h"

namespace {

constexpr float dt = 1.0f / 60.0f;

/// A view full of platforms that go up and down, `count` of them, and 20 objects on each.
void AddMovers(int count) {
    for (int i = 0; i < count; ++i) {
        const auto id = static_cast<std::uint32_t>(i + 1);
        const float x = static_cast<float>(i % 10) * 78.0f - 390.0f;
        const float y = static_cast<float>(i / 10) * 110.0f - 270.0f;
        TestWorld::Add(TestLevel::Box(x, y, x + 60.0f, y + 12.0f), id);
        for (int n = 0; n < 20; ++n) {
            LevelObject object;
            object.id = id;
            object.frameCount = n % 2 == 0 ? 1 : 8;
            object.stopped = 0;
            LevelObjectsManager::Add(object);
        }
        TestWorld::AddMover(id, {}, {0.0f, 50.0f}, 60.0f, Mover::LoopingToEnd);
    }
}

/// Areas all over the view that overlap each other, with effects that leave the water there.
void AddTriggers(int count) {
    constexpr TriggerKind kinds[] = {TriggerKind::ToWater, TriggerKind::ForceDirectional,
                                     TriggerKind::MoverGoToEnd, TriggerKind::EmitterStart,
                                     TriggerKind::CameraZoom};
    for (int i = 0; i < count; ++i) {
        const Vector2 at{static_cast<float>(i % 20) * 39.0f - 390.0f,
                         static_cast<float>(i / 20) * 55.0f - 270.0f};
        TestWorld::AddTrigger(kinds[i % 5], at, at + Vector2{100.0f, 80.0f},
                              static_cast<std::uint32_t>(i % 60));
    }
}

/// Resting water on the platforms, `count` particles in all.
void AddWater(int count) {
    for (int i = 0; i < count; ++i) {
        const int platform = i % 50;
        const int n = i / 50;
        TestWorld::AddParticle(
            {static_cast<float>(platform % 10) * 78.0f - 385.0f + static_cast<float>(n % 13) * 4.0f,
             static_cast<float>(platform / 10) * 110.0f - 272.0f -
                 static_cast<float>(n / 13) * 4.0f});
    }
}

void StepActors(benchmark::State& state) {
    TestWorld world;
    AddMovers(static_cast<int>(state.range(1)));
    ForceManager::Add(3, 0.0f, 0.0f, 0.0f, 1.0f, 1.0f);
    AddTriggers(static_cast<int>(state.range(2)));
    TestWorld::Start();
    AddWater(static_cast<int>(state.range(0)));
    const ParticleList water = ParticleManager::particles;
    for (auto _ : state) {
        MoverManager::CollectVisible(Camera::Look());
        MoverManager::Step(Camera::Look(), dt);
        TriggerManager::Step(Camera::Look(), dt);
        LevelObjectsManager::Step(dt);
        // The same water in each round, where it was.
        auto from = water.begin();
        for (Particle& particle : ParticleManager::particles) {
            particle = *from++;
        }
    }
}
BENCHMARK(StepActors)
    ->ArgNames({"particles", "movers", "triggers"})
    ->Args({0, 50, 200})
    ->Args({128, 0, 200})
    ->Args({128, 50, 0})
    ->Args({128, 50, 200})
    ->Args({4096, 50, 200})
    ->Unit(benchmark::kMicrosecond);

/// The whole step, water included.
void StepAll(benchmark::State& state) {
    TestWorld world;
    AddMovers(50);
    AddTriggers(200);
    TestWorld::Start();
    AddWater(static_cast<int>(state.range(0)));
    const ParticleList water = ParticleManager::particles;
    int step = 0;
    for (auto _ : state) {
        if (step++ % 20 == 0) {
            state.PauseTiming();
            ParticleManager::ClearAll();
            ParticleManager::particles = water;
            state.ResumeTiming();
        }
        TestWorld::Step(dt);
        LevelObjectsManager::Step(dt);
    }
}
BENCHMARK(StepAll)->ArgName("particles")->Arg(128)->Arg(1024)->Unit(benchmark::kMicrosecond);

/// The whole step with many small platforms in view, which carry nothing, and one body of water.
void StepAmongMovers(benchmark::State& state) {
    TestWorld world;
    const int movers = static_cast<int>(state.range(0));
    const int columns = static_cast<int>(std::sqrt(static_cast<float>(movers)));
    const float gap = 760.0f / static_cast<float>(columns);
    for (int i = 0; i < movers; ++i) {
        const auto id = static_cast<std::uint32_t>(i + 1);
        const float x = gap * static_cast<float>(i % columns) - 390.0f;
        const float y = 0.7f * gap * static_cast<float>(i / columns) - 270.0f;
        TestWorld::Add(TestLevel::Box(x, y, x + 0.5f * gap, y + 0.2f * gap), id);
        TestWorld::AddMover(id, {}, {0.0f, 0.1f * gap}, 10.0f, Mover::LoopingToEnd);
    }
    TestWorld::Start();
    AddWater(128);
    const ParticleList water = ParticleManager::particles;
    for (auto _ : state) {
        ParticleManager::particles = water;
        TestWorld::Step(dt);
    }
}
BENCHMARK(StepAmongMovers)->ArgName("movers")->Arg(1000)->Arg(4000)->Unit(benchmark::kMicrosecond);

/// Areas all over the view, each of which some of the water is in.
void ManyTriggers(benchmark::State& state) {
    TestWorld world;
    for (int i = 0; i < 10000; ++i) {
        const Vector2 at{static_cast<float>(i % 100) * 7.8f - 390.0f,
                         static_cast<float>(i / 100) * 5.5f - 270.0f};
        TestWorld::AddTrigger(TriggerKind::ToWater, at, at + Vector2{7.0f, 5.0f}, 0);
    }
    TestWorld::Start();
    AddWater(1024);
    for (auto _ : state) {
        TriggerManager::Step(Camera::Look(), dt);
    }
}
BENCHMARK(ManyTriggers)->Unit(benchmark::kMicrosecond);

/// One lift of the width of a screen under all the water.
void PushLake(benchmark::State& state) {
    TestWorld world;
    TestWorld::Add(TestLevel::Box(-400.0f, 0.0f, 400.0f, 20.0f), 1);
    TestWorld::AddMover(1, {}, {0.0f, -400.0f}, static_cast<float>(state.range(1)),
                        Mover::LoopingToEnd);
    TestWorld::Start();
    const int rows = static_cast<int>(state.range(0)) / 190;
    TestWorld::AddWater({-380.0f, -2.0f - 4.0f * static_cast<float>(rows - 1)}, 190, rows);
    const ParticleList water = ParticleManager::particles;
    for (auto _ : state) {
        MoverManager::Reset();
        MoverManager::movers.front().state = Mover::GoingToEnd;
        LevelData::current.polygons.front().previousOffset = {};
        MoverManager::Step(Camera::Look(), dt);
        auto from = water.begin();
        for (Particle& particle : ParticleManager::particles) {
            particle = *from++;
        }
    }
}
BENCHMARK(PushLake)
    ->ArgNames({"particles", "speed"})
    ->Args({1140, 60})
    ->Args({4180, 60})
    ->Args({4180, 600})
    ->Args({16340, 60})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
