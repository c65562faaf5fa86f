// What a collision query costs in levels of different sizes: strewn over the whole level, at
// rest on surfaces, on tiles in a row, and among moving boxes.

#include <benchmark/benchmark.h>

#include "level/BspTree.h"
#include "level/BspWorlds.h"
#include "level/Collision.h"

namespace {

constexpr float particleRadius = 2.0f;

/// A level of about `edges` edges, built.
std::deque<LevelPolygon> Cave(int edges) {
    std::deque<LevelPolygon> polygons = BspWorlds::Stars(1, edges * 2 / 13);
    BspTree::Build(polygons);
    return polygons;
}

void Query(benchmark::State& state, const std::vector<Vector2>& positions) {
    std::size_t i = 0;
    std::size_t hits = 0;
    for (auto _ : state) {
        Vector2 position = positions[i];
        hits += Collision::CollideCircle(position, particleRadius);
        benchmark::DoNotOptimize(position);
        i = i + 1 < positions.size() ? i + 1 : 0;
    }
    state.counters["hits"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
    state.counters["depth"] = BspTree::Depth();
    BspTree::Destroy();
}

void QueryAnywhere(benchmark::State& state) {
    const auto polygons = Cave(static_cast<int>(state.range(0)));
    const float side = 90.0f * std::sqrt(static_cast<float>(polygons.size()));
    BspWorlds::Dice dice(2);
    std::vector<Vector2> positions;
    for (int i = 0; i < 4096; ++i) {
        positions.push_back({dice.Within(0.0f, side), dice.Within(0.0f, side)});
    }
    Query(state, positions);
}

/// A blob of 128 particles that all touch edges near one another, as the game's water does.
void QueryAtRest(benchmark::State& state) {
    const auto polygons = Cave(static_cast<int>(state.range(0)));
    std::vector<BspSegment*> nodes;
    BspTree::CollectNodes(nodes);
    std::vector<Vector2> positions;
    BspWorlds::Dice dice(3);
    const Vector2 centre = nodes[nodes.size() / 2]->start;
    while (positions.size() < 128) {
        Vector2 position =
            centre + Vector2{dice.Within(-100.0f, 100.0f), dice.Within(-100.0f, 100.0f)};
        if (Collision::CollideCircle(position, particleRadius)) {
            positions.push_back(position);
        }
    }
    Query(state, positions);
}

/// Tiles with gaps between them, all in one line: every query near one is near the lines of
/// them all.
void QueryInRow(benchmark::State& state) {
    std::deque<LevelPolygon> polygons;
    BspWorlds::Dice dice(4);
    std::vector<Vector2> positions;
    for (int i = 0; i < state.range(0) / 4; ++i) {
        const float x = 50.0f * static_cast<float>(i);
        polygons.push_back(BspWorlds::Rectangle(x, 0.0f, x + 40.0f, 40.0f));
        positions.push_back({x + dice.Within(0.0f, 40.0f), -2.0f});
    }
    BspTree::Build(polygons);
    Query(state, positions);
}

/// Boxes that move, in an empty level, and particles all over the same square.
void QueryAmongMoving(benchmark::State& state) {
    const int count = static_cast<int>(state.range(0));
    const float side = 100.0f * std::sqrt(static_cast<float>(count));
    BspWorlds::Dice dice(5);
    MovingEdges& moving = Collision::current.moving;
    for (int i = 0; i < count; ++i) {
        const Vector2 at{dice.Within(0.0f, side), dice.Within(0.0f, side)};
        const Vector2 corners[] = {{0.0f, 0.0f}, {50.0f, 0.0f}, {50.0f, 20.0f}, {0.0f, 20.0f}};
        BspSegment edges[4];
        for (std::size_t corner = 0; corner < 4; ++corner) {
            edges[corner].SetEnds(corners[corner], corners[(corner + 1) % 4]);
        }
        moving.Add(edges, at);
    }
    moving.Index();
    std::vector<Vector2> positions;
    for (int i = 0; i < 4096; ++i) {
        positions.push_back({dice.Within(0.0f, side), dice.Within(0.0f, side)});
    }
    Query(state, positions);
    moving.Clear();
}

}  // namespace

BENCHMARK(QueryAnywhere)->Arg(100)->Arg(1000)->Arg(20000);
BENCHMARK(QueryAtRest)->Arg(100)->Arg(1000)->Arg(20000);
BENCHMARK(QueryInRow)->Arg(100)->Arg(1000)->Arg(20000);
BENCHMARK(QueryAmongMoving)->Arg(4)->Arg(64);
