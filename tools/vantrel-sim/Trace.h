#pragma once
// The printed state of a run: one block per module step, and the end.

#include <cstdint>

namespace Trace {

void PrintStep();
void PrintEnd(std::uint32_t frames);

}  // namespace Trace
