// Loading of a level file: parsing, splitting of outlines, and the whole load with the tree.

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

#include "game/LevelLife.h"
#include "level/LevelData.h"
#include "level/LevelFile.h"
#include "platform/Paths.h"
#include "support/TemporaryDirectory.h"
#include "support/TestLevelFile.h"

namespace {

/// Uneven rocks of 8 to 20 corners, apart from each other.
LevelFile Rocks(int count) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> corners(8, 20);
    std::uniform_real_distribution<double> share(0.4, 1.0);
    const int columns = static_cast<int>(std::sqrt(count)) + 1;
    LevelFile file;
    for (int i = 0; i < count; ++i) {
        LevelFile::Polygon& polygon = file.polygons.emplace_back();
        polygon.id = static_cast<std::uint32_t>(i);
        polygon.texture = i % 2 == 0 ? "TEX\\STONE.TGA" : "TEX\\WOOD.TGA";
        const int n = corners(random);
        for (int k = 0; k < n; ++k) {
            const double angle = 6.283185307 * k / n;
            const double r = 90.0 * share(random);
            polygon.points.push_back({i % columns * 200 + static_cast<int>(r * std::cos(angle)),
                                      i / columns * 200 + static_cast<int>(r * std::sin(angle))});
        }
    }
    return file;
}

void ParseLevel(benchmark::State& state) {
    const auto bytes = Rocks(static_cast<int>(state.range(0))).Serialise();
    for (auto _ : state) {
        std::string reason;
        std::uint32_t version = 0;
        benchmark::DoNotOptimize(LevelFile::Parse(bytes, reason, version));
    }
}
BENCHMARK(ParseLevel)->Arg(5000)->Unit(benchmark::kMillisecond);

void SplitOutlines(benchmark::State& state) {
    std::vector<std::vector<Vector2>> outlines;
    for (const LevelFile::Polygon& record : Rocks(static_cast<int>(state.range(0))).polygons) {
        auto& outline = outlines.emplace_back();
        for (const LevelFile::Point p : record.points) {
            outline.push_back({static_cast<float>(p.x), static_cast<float>(p.y)});
        }
    }
    for (auto _ : state) {
        for (const auto& outline : outlines) {
            LevelPolygon polygon;
            polygon.AddPoints(outline);
            benchmark::DoNotOptimize(polygon.triangleCount);
        }
    }
}
BENCHMARK(SplitOutlines)->Arg(5000)->Unit(benchmark::kMillisecond);

/// One outline of many corners: hills over a flat bottom.
void SplitLargeOutline(benchmark::State& state) {
    std::mt19937 random(1);
    std::vector<Vector2> outline;
    const int count = static_cast<int>(state.range(0));
    for (int i = 0; i < count - 2; ++i) {
        outline.push_back({static_cast<float>(3 * i), static_cast<float>(random() % 1000)});
    }
    outline.push_back({static_cast<float>(3 * count), 5000.0f});
    outline.push_back({-3.0f, 5000.0f});
    for (auto _ : state) {
        LevelPolygon polygon;
        polygon.AddPoints(outline);
        benchmark::DoNotOptimize(polygon.triangleCount);
    }
}
BENCHMARK(SplitLargeOutline)
    ->Arg(64)
    ->Arg(200)
    ->Arg(1000)
    ->Arg(5000)
    ->Arg(65535)
    ->Unit(benchmark::kMillisecond);

void LoadLevel(benchmark::State& state) {
    const TemporaryDirectory directory;
    directory.Write("rocks.swah",
                    TestLevelFile::Text(Rocks(static_cast<int>(state.range(0))).Serialise()));
    const WorkingDirectoryGuard inDirectory(directory.path);
    Platform::ForgetListings();
    for (auto _ : state) {
        if (!LevelData::Load("rocks.swah")) {
            state.SkipWithError("the level doesn't load");
            break;
        }
    }
    LevelData::Unload();
    Platform::ForgetListings();
}
BENCHMARK(LoadLevel)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond)->MinTime(0.1);

}  // namespace
