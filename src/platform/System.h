#pragma once
// Memory status, message boxes and process end.

#include <cstdint>
#include <string>

namespace Platform {

struct MemoryStatus {
    std::uint64_t totalBytes = 0;
    std::uint64_t freeBytes = 0;
};
/// Physical memory of the machine; zeros if it can't be asked.
MemoryStatus PhysicalMemory();

/// Tells the user on standard error and, where a desktop offers one, in a box.
void ShowMessage(const std::string& text, const std::string& caption);
/// Asks the user; false where there is no way to ask.
bool AskYesNo(const std::string& text, const std::string& caption);

/// While on, a call of exit ends the process as `EndProcess` does. Libraries call it when the
/// display is gone, from any thread and at any moment.
void EndAtOnceOnExit(bool on);

/// Ends the process at once with the given status, after flushing the standard streams.
[[noreturn]] void EndProcess(int status);

}  // namespace Platform
