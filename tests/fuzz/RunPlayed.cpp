// Any bytes as a recorded run of a small level: refused with a reason, or taken within bounds and
// played to its end.

#include "fuzz/FuzzGame.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"

void Try(std::string_view input) {
    constexpr std::size_t mostSteps = 200;
    std::string reason;
    auto run = ParseRun(BytesOf(input), reason);
    Expect(run.has_value() == reason.empty());
    if (!run) {
        return;
    }
    Expect(run->steps.size() <= (4u << 20) &&
           (run->hashes.empty() || run->hashes.size() == run->HashCount()));
    run->level = "lev/a.swah";
    run->steps.resize(std::min(run->steps.size(), mostSteps));
    run->hashes.clear();  // of another level
    FuzzGame& fuzz = FuzzGame::The();
    RunRecorder::Replay(std::move(*run));
    fuzz.Load();
    while (Game::StepReplay()) {
    }
    RunRecorder::Stop();
}
