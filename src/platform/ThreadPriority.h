#pragma once
// A thread's priority against others.

#include <cstdint>

namespace Platform {

/// The system's number of the calling thread; never 0.
std::uint32_t ThreadId();
/// Whether the caller is the thread that the process began with.
bool IsMainThread();

/// `step` is -2 (lowest) to 2 (highest) around the process's own, 0. False if the system
/// refuses.
bool SetThreadPriority(std::uint32_t threadId, int step);

}  // namespace Platform
