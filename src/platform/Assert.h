#pragma once
// Preconditions and invariants that are checked while the program runs. A caller that breaks one
// has a bug: nothing recovers, the program says where and aborts. What comes from outside (files,
// settings, the player) is never asserted but refused.
//
// On in every build that is tested with VANTREL_ASSERTS (debug, clang, sanitizers, fuzzing); in a
// release build the condition is compiled, and never evaluated, so it must have no effects.

namespace Platform {

/// Prints file, line and condition on standard error and aborts.
[[noreturn]] void AssertFailed(const char* condition, const char* file, int line);

}  // namespace Platform

#ifdef VANTREL_ASSERTS
#define VANTREL_ASSERT(condition) \
    ((condition) ? void() : Platform::AssertFailed(#condition, __FILE__, __LINE__))
#else
#define VANTREL_ASSERT(condition) static_cast<void>(sizeof((condition) ? 1 : 0))
#endif
