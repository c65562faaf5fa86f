#pragma once
// A thread that is created suspended and runs once it is resumed. Operations are called only by the
// thread that owns the object.
//
// A running thread can't be stopped from outside: it might hold a lock of the C library or of the
// GL driver, and the next thread to need that lock would deadlock. So `Suspend` is a request: the
// routine honours it at its next `Thread::HoldPoint` and waits there until `Resume`. A routine
// without hold points runs on. Before its first `Resume` a thread is certain to be suspended.

#include <cstdint>
#include <memory>
#include <thread>

class Thread {
public:
    /// Called with a null pointer; the result is ignored.
    using Routine = std::uint32_t (*)(void*);

    /// Makes the thread, held. If the system has no thread to give, or without a routine,
    /// every operation does nothing.
    explicit Thread(Routine routine);
    /// Releases the thread if it is held, and waits for its end: the routine has always run.
    ~Thread();
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    void Resume();
    void Suspend();
    /// -2 (lowest) to 2 (highest) around the program's own, 0; others are ignored. Going up
    /// mostly needs a privilege; what the system refuses changes nothing.
    void SetPriority(int value);

    /// Whether there is a thread.
    bool IsValid() const { return handle != nullptr; }
    std::uint32_t Id() const;  ///< the system's number; 0 without a thread
    bool IsSuspended() const { return suspended; }
    int Priority() const { return priority; }

    /// For routines: a place where the thread that runs it may be held. Elsewhere it does
    /// nothing.
    static void HoldPoint();

private:
    struct Handle;

    std::unique_ptr<Handle> handle;
    std::thread::id owner = std::this_thread::get_id();
    bool suspended = true;
    int priority = 0;
};
