// Copies of worlds: each shipped level in the middle of the run that wins it.

#include <benchmark/benchmark.h>

#include "RecordedRuns.h"
#include "game/HeadlessGame.h"
#include "game/World.h"
#include "platform/DataRoot.h"
#include "support/Places.h"

namespace {

void CopyOfWorld(benchmark::State& state, const std::string& file) {
    Platform::UseDataRoot(SourceDirectory() / "data");
    const HeadlessGame game(800, 600);
    if (!RecordedRuns::Begin(file)) {
        state.SkipWithError("the run can't be played");
    }
    for (std::size_t left = RunRecorder::Current().steps.size() / 2; left > 0; --left) {
        Game::StepReplay();
    }
    const World world = CopyWorldInPlay();
    for (auto _ : state) {
        World copy = world;
        benchmark::DoNotOptimize(copy);
    }
}

const bool registered = [] {
    for (const std::string& file : RecordedRuns::Files()) {
        benchmark::RegisterBenchmark(("CopyOfWorld/" + RecordedRuns::LevelName(file)).c_str(),
                                     [file](benchmark::State& state) { CopyOfWorld(state, file); })
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

}  // namespace
