// Playing many moves at once, in any order; see MoveBatch.h.

#include "MoveBatch.h"

#include <csignal>

namespace MoveBatch {

namespace {

volatile std::sig_atomic_t interrupted = 0;

}  // namespace

InterruptEndsSearch::InterruptEndsSearch() {
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = 1; };
    interrupted = 0;
    sigaction(SIGINT, &action, &beforeInt);
    sigaction(SIGTERM, &action, &beforeTerm);
}

InterruptEndsSearch::~InterruptEndsSearch() {
    sigaction(SIGINT, &beforeInt, nullptr);
    sigaction(SIGTERM, &beforeTerm, nullptr);
}

bool IsInterrupted() {
    return interrupted != 0;
}

void Play(Copies& copies, std::vector<PlannedMove>& moves, unsigned processes) {
    std::size_t next = 0;
    std::size_t running = 0;
    while ((next < moves.size() && interrupted == 0) || running > 0) {
        while (next < moves.size() && running < processes && interrupted == 0) {
            PlannedMove& planned = moves[next++];
            planned.copy = copies.Start(planned.from, planned.move);
            running += planned.copy != Copies::none ? 1 : 0;
        }
        if (running > 0 && copies.Wait() != Copies::none) {
            --running;
        }
    }
}

}  // namespace MoveBatch
