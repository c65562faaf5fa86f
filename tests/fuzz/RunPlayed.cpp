// Any bytes as a recorded run of a small level: refused with a reason, or taken within bounds and
// played to its end.

#include <cstdlib>

#include "fuzz/FuzzGame.h"
#include "game/RunFile.h"
#include "game/RunRecorder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t mostSteps = 200;
    static const std::vector<std::byte> level = FuzzLevel().Serialise();
    std::string reason;
    auto run = ParseRun(std::as_bytes(std::span(data, size)), reason);
    if (run.has_value() != reason.empty() || (run && run->steps.size() > (4u << 20)) ||
        (run && !run->hashes.empty() && run->hashes.size() != run->HashCount())) {
        std::abort();
    }
    if (!run) {
        return 0;
    }
    run->level = "lev/a.swah";
    run->steps.resize(std::min(run->steps.size(), mostSteps));
    run->hashes.clear();  // of another level
    FuzzGame& fuzz = FuzzGame::The();
    RunRecorder::Replay(std::move(*run));
    fuzz.Load(TestLevelFile::Text(level));
    while (Game::StepReplay()) {
    }
    RunRecorder::Stop();
    return 0;
}
