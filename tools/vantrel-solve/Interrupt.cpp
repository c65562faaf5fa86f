// Notes interrupts; see Interrupt.h.

#include "Interrupt.h"

#include <atomic>

namespace {

// Signals may set it since it takes no lock.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

InterruptEndsSearch::InterruptEndsSearch() {
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = true; };
    interrupted = false;
    sigaction(SIGINT, &action, &beforeInt);
    sigaction(SIGTERM, &action, &beforeTerm);
}

InterruptEndsSearch::~InterruptEndsSearch() {
    sigaction(SIGINT, &beforeInt, nullptr);
    sigaction(SIGTERM, &beforeTerm, nullptr);
}

bool IsInterrupted() {
    return interrupted;
}
