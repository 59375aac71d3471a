/// The output file of a run, as the tests see it: the linker puts functions of theirs in the place of the C library's
/// `fopen` and `truncate`, and of the mutex's `pthread_mutex_lock` and `pthread_mutex_unlock`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct OutputFile {
    /// The file in place of /tmp/config, which no test opens, writes or removes.
    std::string standsForDefault;
    /// The paths that were opened for a text, in order, as the program named them.
    std::vector<std::string> opened;

    /// No file is opened; what would be done to it is recorded instead.
    bool recorded = false;
    /// In order: "open PATH MODE", "lock", "write SIZE", "close", "truncate PATH SIZE", "unlock". The mutex is
    /// `CfgFileMutex`.
    std::vector<std::string> events;
    std::string contents;

    // Faults of a recorded file.
    bool cannotBeOpened = false;
    std::size_t room = SIZE_MAX; ///< bytes that the disk takes
    bool closeFails = false;
    int interruptions = 0; ///< so many truncations fail, interrupted by a signal
    bool cannotBeEmptied = false;
};

extern OutputFile outputFile;
