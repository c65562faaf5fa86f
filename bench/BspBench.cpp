// How long the level's tree takes to build, cleaning included, by number of edges.

#include <benchmark/benchmark.h>

#include "level/BspTree.h"
#include "level/BspWorlds.h"

namespace {

/// Builds a world over and over and reports the size of what comes out.
void BuildWorld(benchmark::State& state, std::deque<LevelPolygon> polygons) {
    std::size_t edges = 0;
    for (const LevelPolygon& polygon : polygons) {
        edges += polygon.PointCount();
    }
    for (auto _ : state) {
        BspTree::Build(polygons);
    }
    state.counters["edges"] = static_cast<double>(edges);
    state.counters["cleaned"] = static_cast<double>(BspTree::EdgeCount());
    state.counters["nodes"] = BspTree::Size();
    state.counters["depth"] = BspTree::Depth();
    BspTree::Destroy();
}

void BuildCave(benchmark::State& state) {
    BuildWorld(state, BspWorlds::Stars(1, static_cast<int>(state.range(0)) * 2 / 13));
}

void BuildTiles(benchmark::State& state) {
    const double tiles = static_cast<double>(state.range(0)) * 3.0 / 8.0;
    BuildWorld(state, BspWorlds::Tiles(1, static_cast<int>(std::sqrt(tiles))));
}

void BuildRound(benchmark::State& state) {
    BuildWorld(state, BspWorlds::Round(static_cast<int>(state.range(0)), 1e5f));
}

}  // namespace

BENCHMARK(BuildCave)->Arg(100)->Arg(1000)->Arg(5000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildTiles)->Arg(100)->Arg(1000)->Arg(5000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BuildRound)->Arg(1000)->Arg(5000)->Arg(20000)->Unit(benchmark::kMillisecond);
