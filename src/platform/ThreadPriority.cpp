// On Linux every thread has a nice value of its own.

#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

#include "platform/Assert.h"

namespace Platform {

namespace {

/// From one step to the next; 5 of these values come to about a third of the time.
constexpr int nicePerStep = 5;

}  // namespace

std::uint32_t ThreadId() {
    return static_cast<std::uint32_t>(gettid());
}

bool IsMainThread() {
    return gettid() == getpid();
}

bool SetThreadPriority(std::uint32_t threadId, int step) {
    VANTREL_ASSERT(threadId != 0 && step >= -2 && step <= 2);
    // The first thread bears the number of the process.
    const int own = getpriority(PRIO_PROCESS, static_cast<id_t>(getpid()));
    return setpriority(PRIO_PROCESS, threadId, own - step * nicePerStep) == 0;
}

}  // namespace Platform
