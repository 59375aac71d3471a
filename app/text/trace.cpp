#include "app/text/trace.h"

#include <cstdio>

// Without the attribute, optimising across files finds nobody who sets it and leaves the trace out.
[[gnu::used]] std::int32_t gCfgDebug;

int trace(const char *emitter) {
    if (gCfgDebug != 0) {
        std::putchar('[');
        std::printf("%s", emitter);
        std::puts("]");
    }
    return 0;
}
