/// A store: a folder of files in place of what a switch keeps.
///
/// `running.img`, `default.img`, `startup.img` and `customer_default.img` are configuration images, `board.img` is the
/// board information record, and `platform.conf`, which may be absent, holds lines of settings.
#pragma once

#include "platform/board.h"
#include "platform/image.h"

#include <cstddef>
#include <cstdint>

/// File of each configuration image, by image selector.
inline constexpr const char *imageFiles[] = {"running.img", "default.img", "startup.img", "customer_default.img"};
inline constexpr std::int32_t imageFileCount = 4;
inline constexpr const char *boardFile = "board.img";
inline constexpr const char *platformConfFile = "platform.conf";

/// Bytes that a `platform.conf` has at most: far more than its settings and some remarks need.
inline constexpr std::size_t platformConfLimit = 65536;

/// What `platform.conf` settles, and what holds without it.
struct PlatformConf {
    std::int32_t activeBank = 1;
    bool md5Passwords = false;
};

/// The first line of a `platform.conf` that is not understood.
struct ConfProblem {
    std::size_t line = 0;      ///< counted from 1; 0: there is none
    std::size_t start = 0;     ///< where the line begins
    std::size_t length = 0;    ///< its length, without the end of the line
    const char *expected = ""; ///< what should have stood there
};

/// Reads `length` bytes of a `platform.conf`. Lines are `active_bank=N`, a decimal number of 32 bits, and
/// `password_encryption=none` or `password_encryption=md5`, with or without blanks around the sign; blank lines and
/// lines that begin with # are skipped; of a repeated setting the last one holds. Lines end with a newline or a
/// carriage return and a newline; a last line without them counts. A byte-order mark in front is skipped. `conf` is
/// changed as far as lines are understood.
ConfProblem parsePlatformConf(const char *bytes, std::size_t length, PlatformConf &conf);

/// Each of these reads one file of the store at `folder`. On failure it returns false and has told on standard error
/// which file it was, what was found and what was expected; what was to be filled then holds zeros, or is untouched.
/// Only regular files are read.
bool readImage(const char *folder, const char *file, ConfigImage &image);
bool readBoard(const char *folder, BoardRecord &board);
/// Without the file, or with an empty one, `conf` gets the settings that hold then. A link that leads nowhere is an
/// error.
bool readPlatformConf(const char *folder, PlatformConf &conf);
