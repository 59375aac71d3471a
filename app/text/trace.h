/// The trace: which emitters run, in which order.
#pragma once

#include <cstdint>

/// Non-zero makes the emitters print their names on standard output, but for a few in full mode. Nothing in the program
/// sets it: a debugger, a preloaded object or the platform's library does, so the name is exported.
extern "C" [[gnu::visibility("default")]] std::int32_t gCfgDebug;

/// Prints "[", the name of the calling emitter and "]" on a line of standard output when `gCfgDebug` is set. Returns 0,
/// as emitters do.
int trace(const char *emitter = __builtin_FUNCTION());
