/// What the stand-in reads and writes: the linker puts functions of the tests in the place of the C library's `read`,
/// `write`, `close` and `fstatat`.
#pragma once

#include <cstddef>
#include <cstdint>

struct Reads {
    int calls = 0;
    std::size_t most = SIZE_MAX; ///< bytes that one call gives at most
    std::size_t left = SIZE_MAX; ///< bytes after which the calls fail
    int error = 0;               ///< with this error; 0: as at the end of a file
    int interruptions = 0;       ///< so many calls are interrupted by a signal
    std::size_t asked = 0;       ///< bytes that the last call asked for
    int inherited = 0;           ///< calls with a descriptor that a program would have that is started meanwhile
};

extern Reads reads;

struct Writes {
    int calls = 0;
    std::size_t most = SIZE_MAX; ///< bytes that one call takes at most
    int interruptions = 0;       ///< so many calls are interrupted by a signal
    int lookError = 0;           ///< what looking for a file says; 0: what is true
    int closeError = 0;          ///< what closing a file says that was written to; 0: nothing
    int written = -1;            ///< the descriptor that was written to last
};

extern Writes writes;
