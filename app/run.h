/// The run: the command line, the order of calls to the platform, the output file.
#pragma once

#include <cstddef>
#include <pthread.h>

/// Longest output path. The byte after it is never written, so a path of full length stays terminated.
inline constexpr std::size_t configFileSize = 255;

/// Path of the output file.
extern char ConfigFile[configFileSize + 1];

/// Held while the output file is written and closed.
extern pthread_mutex_t CfgFileMutex;

/// Writes the text configuration to `path`, created or truncated, in one write. Returns 0, or -1 if the file could not
/// be opened or not be written whole. In the second case the file is emptied, as far as the system allows it.
int TextCfg2file(const char *path);

/// The program, given the words of its command line. Returns 0, or -1 with the reason on standard output where there is
/// one to tell.
int textcfgMain(int argc, char **argv);
