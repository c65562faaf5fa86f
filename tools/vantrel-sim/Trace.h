#pragma once
// The printed state of a run: one block per module step, and the end.

#include <cstdint>

namespace Trace {

void PrintStep();
void PrintEnd(std::uint32_t frames);
/// Facts about the end, one a line, and a hash over the whole state; the same for the same end.
void PrintSummary();

}  // namespace Trace
