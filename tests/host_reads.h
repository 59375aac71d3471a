/// What the stand-in reads: the linker puts a function of the tests in the place of the C library's `read`.
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
