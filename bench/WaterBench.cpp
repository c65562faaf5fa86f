// Cost of a simulation step: by number of particles, at rest and falling, frozen and freezing.
// per_particle is what may not grow with the number. Water comes in bodies of 128, one full
// body each, that rest on shelves; a single huge body is another matter, because its own
// weight of cohesion presses it together: pairs_per_particle tells.

#include <benchmark/benchmark.h>

#include <cmath>
#include <deque>

#include "water/WaterWorld.h"

namespace {

constexpr int bodySize = 128;
constexpr float dt = 1.0f / 60.0f;
constexpr int warmUp = 120;

constexpr int shelfCount = 8;
constexpr float shelfWidth = 1760.0f;
constexpr float shelfGap = 140.0f;
constexpr float bodyGap = 110.0f;
constexpr Vector2 camera{300.0f, 300.0f};

/// Eight shelves one below the other with ends, and a few boxes: about 100 edges, and within
/// the grid that finds neighbours.
std::deque<LevelPolygon> Shelves() {
    std::deque<LevelPolygon> level;
    for (int i = 0; i < shelfCount; ++i) {
        const float y = shelfGap * static_cast<float>(i);
        level.push_back(TestLevel::Box(0.0f, y, shelfWidth, y + 20.0f));
        level.push_back(TestLevel::Box(-40.0f, y - 80.0f, -10.0f, y + 10.0f));
        level.push_back(
            TestLevel::Box(shelfWidth + 10.0f, y - 80.0f, shelfWidth + 40.0f, y + 10.0f));
    }
    for (LevelPolygon& polygon : level) {
        polygon.SetFriction(0.6f);
    }
    return level;
}

/// Bodies of water side by side on the shelves, `lift` above them. One body more than 16 wide
/// doesn't fit a shelf, so 128 bodies are 16,384 particles.
void AddBodies(int particles, float lift, float temperature = 20.0f) {
    for (int body = 0; body * bodySize < particles; ++body) {
        const Vector2 place{60.0f + bodyGap * static_cast<float>(body / shelfCount),
                            shelfGap * static_cast<float>(body % shelfCount) - 3.0f - lift};
        for (int i = 0; i < bodySize; ++i) {
            WaterWorld::Add(place + Vector2{3.0f * static_cast<float>(i % 20) - 30.0f,
                                            -3.0f * static_cast<float>(i / 20)},
                            {}, temperature);
        }
    }
}

float PairsPerParticle() {
    std::size_t pairs = 0;
    const ParticleList& particles = ParticleManager::particles;
    ParticleGrid& grid = ParticleManager::Parts().work.grid;
    grid.FillFrom(ParticleManager::particles, WaterWorld::view.centre);
    for (const Particle& particle : particles) {
        const ParticleGrid::Cell* const cell = grid.At(particle.gridX, particle.gridY);
        pairs += cell->end - cell->begin - 1;
        for (const int column : {-ParticleGrid::nextColumn, ParticleGrid::nextColumn}) {
            for (int row = -1; row <= 1; ++row) {
                const ParticleGrid::Cell& beside = cell[column + row];
                pairs += beside.end - beside.begin;
            }
        }
    }
    return static_cast<float>(pairs) /
           static_cast<float>(std::max<std::size_t>(1, particles.size()));
}

void Report(benchmark::State& state, int particles) {
    using benchmark::Counter;
    const double steps = static_cast<double>(state.iterations());
    state.counters["per_particle"] =
        Counter(steps * particles, Counter::Flags(Counter::kIsRate | Counter::kInvert));
    state.counters["pairs_per_particle"] = PairsPerParticle();
    state.counters["groups"] = static_cast<double>(GroupedParticleMover::groups.size());
}

void AtRest(benchmark::State& state) {
    const int particles = static_cast<int>(state.range(0));
    const WaterWorld world(Shelves(), camera, 20.0f);
    AddBodies(particles, 0.0f);
    WaterWorld::Steps(warmUp, dt);
    for (auto _ : state) {
        ParticleManager::Step(WaterWorld::view, dt);
    }
    Report(state, particles);
}
BENCHMARK(AtRest)->Arg(128)->Arg(1024)->Arg(4096)->Arg(16384)->Unit(benchmark::kMicrosecond);

/// All in one bowl, where it flows together.
void OneBody(benchmark::State& state) {
    const int particles = static_cast<int>(state.range(0));
    const float width = 90.0f * std::sqrt(static_cast<float>(particles) / bodySize);
    const WaterWorld world(WaterLevels::CrowdedBowl(width, width), {width * 0.5f, width * 0.5f},
                           20.0f);
    const int columns = static_cast<int>(std::sqrt(static_cast<float>(particles)));
    for (int i = 0; i < particles; ++i) {
        WaterWorld::Add(
            {5.0f + (width - 10.0f) * static_cast<float>(i % columns) / static_cast<float>(columns),
             width - 3.0f - 3.5f * static_cast<float>(i / columns)});
    }
    WaterWorld::Steps(warmUp, dt);
    for (auto _ : state) {
        ParticleManager::Step(WaterWorld::view, dt);
    }
    Report(state, particles);
}
BENCHMARK(OneBody)->Arg(128)->Arg(1024)->Arg(4096)->Unit(benchmark::kMicrosecond);

/// The first half second of the fall, again and again.
void Falling(benchmark::State& state) {
    const int particles = static_cast<int>(state.range(0));
    const WaterWorld world(Shelves(), camera, 20.0f);
    int step = 0;
    for (auto _ : state) {
        if (step++ % 30 == 0) {
            state.PauseTiming();
            ParticleManager::ClearAll();
            AddBodies(particles, 60.0f);
            state.ResumeTiming();
        }
        ParticleManager::Step(WaterWorld::view, dt);
    }
    Report(state, particles);
}
BENCHMARK(Falling)->Arg(128)->Arg(1024)->Arg(4096)->Arg(16384)->Unit(benchmark::kMicrosecond);

/// The one step in which all water turns to ice.
void FreezingAtOnce(benchmark::State& state) {
    const int particles = static_cast<int>(state.range(0));
    const WaterWorld world(Shelves(), camera, 20.0f);
    for (auto _ : state) {
        state.PauseTiming();
        ParticleManager::ClearAll();
        AddBodies(particles, 0.0f, -10.0f);
        state.ResumeTiming();
        ParticleManager::Step(WaterWorld::view, dt);
    }
    Report(state, particles);
}
BENCHMARK(FreezingAtOnce)
    ->Arg(128)
    ->Arg(1024)
    ->Arg(4096)
    ->Arg(16384)
    ->Unit(benchmark::kMicrosecond);

/// Lumps of ice that hang in the air, nearly still: particles that don't touch are one each.
void HangIce(benchmark::State& state, Vector2 (*placeOf)(int number)) {
    const int particles = static_cast<int>(state.range(0));
    const WaterWorld world(Shelves(), camera, 20.0f);
    ParticleManager::gravity = 0.0f;
    ParticleManager::heatTransferRate = 0.0f;
    for (int i = 0; i < particles; ++i) {
        WaterWorld::Add(placeOf(i), {0.001f, 0.0f}, -10.0f);
    }
    for (auto _ : state) {
        ParticleManager::Step(WaterWorld::view, dt);
    }
    Report(state, particles);
}

/// As many lumps as particles.
void ManyGroups(benchmark::State& state) {
    HangIce(state, [](int i) {
        return Vector2{13.0f * static_cast<float>(i % 128),
                       -200.0f - 13.0f * static_cast<float>(i / 128)};
    });
}
BENCHMARK(ManyGroups)->Arg(1024)->Arg(4096)->Arg(16384)->Arg(65536)->Unit(benchmark::kMicrosecond);

/// Lumps of 128.
void AllIce(benchmark::State& state) {
    HangIce(state, [](int i) {
        const int body = i / bodySize;
        const int member = i % bodySize;
        return Vector2{
            60.0f * static_cast<float>(body % 32) + static_cast<float>(member % 12),
            -200.0f - 60.0f * static_cast<float>(body / 32) - static_cast<float>(member / 12)};
    });
}
BENCHMARK(AllIce)->Arg(4096)->Arg(16384)->Arg(65536)->Unit(benchmark::kMicrosecond);

}  // namespace
