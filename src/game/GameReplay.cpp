// Shows a recorded run at the speed at which it was played.

#include "game/Game.h"
#include "game/GameState.h"
#include "game/RunRecorder.h"
#include "menus/MenuManager.h"

namespace {

// A replay that falls behind by more steps than this a frame runs slower. Steps in which the
// recorded player only waited go by as many at a time.
constexpr int mostReplayedSteps = 4;
constexpr int mostWaitingSteps = 100;

bool IsWaiting(const RunStep& step) {
    return (step.flags & (RunStep::Menu | RunStep::Paused)) != 0;
}

}  // namespace

void ReplayGatheredTime() {
    float& gathered = gameState.stepAccumulator;
    int waits = 0;
    int steps = 0;
    while (RunRecorder::IsReplaying() && MenuManager::Current() == MenuManager::None &&
           !gameState.paused) {
        const RunStep& next = RunRecorder::NextStep();
        if (IsWaiting(next) ? ++waits > mostWaitingSteps : gathered < next.dt) {
            return;
        }
        if (!IsWaiting(next)) {
            gathered -= next.dt;
            if (++steps > mostReplayedSteps) {
                break;
            }
        }
        Game::StepReplay();
    }
    gathered = 0.0f;
}

bool Game::StepReplay() {
    if (!RunRecorder::IsReplaying()) {
        return false;
    }
    // By value: the run may end with the step.
    const RunStep step = RunRecorder::NextStep();
    Step(step);
    return true;
}
