/// The platform of the fuzz targets: lean, and as badly behaved as its contract allows.
#pragma once

#include "platform/board.h"
#include "platform/image.h"

#include <cstdint>

namespace fuzz {

/// What the platform makes of a password.
enum class Md5 { digest, fullWithoutNul, untouched, empty };

struct Platform {
    const ConfigImage *images[4]; ///< by selector
    const BoardRecord *board;
    std::int32_t bank;
    std::int32_t method; ///< of the passwords; non-zero: MD5
    Md5 md5;
    int failingCall; ///< the call that fails, counted from 0; none if negative

    int calls;    ///< how many were made that can fail
    int open;     ///< transactions that are open
    int starts;   ///< transactions that were opened
    int fetched;  ///< images that were fetched
    int selector; ///< the one that was fetched first
    int md5Calls; ///< passwords that were handed over
};
extern Platform platform;

/// Nothing open, nothing called, nothing fails.
void forgetCalls();

} // namespace fuzz
