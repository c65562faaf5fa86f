// Module steps of every shipped level along the run that wins it: the game as it is played,
// headless.

#include <benchmark/benchmark.h>

#include <utility>

#include "RecordedRuns.h"
#include "game/HeadlessGame.h"
#include "platform/DataRoot.h"
#include "support/Places.h"

namespace {

/// An iteration is one step; the run begins again when it is through.
void StepsOfRun(benchmark::State& state, const std::string& file) {
    Platform::UseDataRoot(SourceDirectory() / "data");
    const HeadlessGame game(800, 600);
    if (!RecordedRuns::Begin(file)) {
        state.SkipWithError("the run can't be played");
    }
    for (auto _ : state) {
        if (!Game::StepReplay()) {
            state.PauseTiming();
            RecordedRuns::Begin(file);
            state.ResumeTiming();
        }
    }
}

/// Whole runs: as many iterations as the run has steps.
const bool registered = [] {
    for (const std::string& file : RecordedRuns::Files()) {
        std::string reason;
        const auto run = ReadRun(file, reason);
        benchmark::RegisterBenchmark(("StepsOfRun/" + RecordedRuns::LevelName(file)).c_str(),
                                     [file](benchmark::State& state) { StepsOfRun(state, file); })
            ->Iterations(run ? static_cast<std::int64_t>(run->steps.size()) : 1)
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}();

}  // namespace
