// Threads on the standard library; the stack is the system's usual one, as a GL driver needs
// hundreds of kilobytes.

#include "engine/Thread.h"

#include <atomic>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/Assert.h"
#include "platform/ThreadPriority.h"

struct Thread::Handle {
    std::atomic<std::uint32_t> id = 0;
    std::atomic<bool> held = true;
    std::thread thread;
};

namespace {

/// What a thread made here looks at in its hold points.
thread_local std::atomic<bool>* heldHere = nullptr;

}  // namespace

Thread::Thread(Routine routine) {
    if (routine == nullptr) {
        return;
    }
    auto made = std::make_unique<Handle>();
    Handle* const shared = made.get();
    try {
        made->thread = std::thread([shared, routine] {
            heldHere = &shared->held;
            shared->id = Platform::ThreadId();
            shared->id.notify_one();
            HoldPoint();
            routine(nullptr);
        });
    } catch (const std::system_error&) {
        return;
    }
    made->id.wait(0);
    handle = std::move(made);
}

Thread::~Thread() {
    VANTREL_ASSERT(std::this_thread::get_id() == owner);
    Resume();
    if (handle) {
        handle->thread.join();
    }
}

void Thread::Resume() {
    VANTREL_ASSERT(std::this_thread::get_id() == owner);
    if (handle && suspended) {
        suspended = false;
        handle->held = false;
        handle->held.notify_one();
    }
}

void Thread::Suspend() {
    VANTREL_ASSERT(std::this_thread::get_id() == owner);
    if (handle && !suspended) {
        handle->held = true;
        suspended = true;
    }
}

void Thread::SetPriority(int value) {
    VANTREL_ASSERT(std::this_thread::get_id() == owner);
    if (handle && value >= -2 && value <= 2 && Platform::SetThreadPriority(Id(), value)) {
        priority = value;
    }
}

std::uint32_t Thread::Id() const {
    return handle ? handle->id.load() : 0;
}

void Thread::HoldPoint() {
    if (heldHere != nullptr) {
        heldHere->wait(true);
    }
}
