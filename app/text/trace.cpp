#include "app/text/trace.h"

#include <cstdio>

std::int32_t gCfgDebug;

int trace(const char *emitter) {
    if (gCfgDebug != 0) {
        std::putchar('[');
        std::printf("%s", emitter);
        std::puts("]");
    }
    return 0;
}
