/*
 * Switches the trace on: preloaded, or as a part of a platform's library.
 */
#include <stdint.h>

extern int32_t gCfgDebug;

__attribute__((constructor)) static void trace(void) { gCfgDebug = 1; }
