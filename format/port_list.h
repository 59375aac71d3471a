/// The switch's own routines for port lists and membership, under the names that its software knows.
///
/// A list names the ports whose entry equals a value, compressed into runs: 1-3,5,7-28. The appenders over 32-bit words
/// end it with a blank, and their callers end the line; those over bytes end the line themselves. Both forms are the
/// text's. Entry 0 of an array is port 1. The emitters of this switch use port sets instead.
#pragma once

#include "platform/record.h"

#include <cstdint>

/// Appends the list of the first `count` ports whose word equals `match`, then a blank. Returns 0.
int APPEND_PORT_MEMBER_INT_NUM(const std::uint32_t *values, std::uint32_t match, std::int32_t count);
/// The same over 28 ports.
int APPEND_PORT_MEMBER_INT(const std::uint32_t *values, std::uint32_t match);

/// Appends the list of the first `count` ports whose byte equals the low 8 bits of `match`, then a newline. Returns 0.
int APPEND_PORT_MEMBER_NUM(const u8 *values, std::uint32_t match, std::int32_t count);
/// The same over 28 ports.
int APPEND_PORT_MEMBER(const u8 *values, std::uint32_t match);
/// The same over 24 ports, for switches that have so many.
int APPEND_PORT_MEMBER_24(const u8 *values, std::uint32_t match);
/// The same over 29 ports, for switches that have so many.
int APPEND_PORT_MEMBER_29(const u8 *values, std::uint32_t match);

/// Appends the list of the ports set in the `byteCount` bytes of `bitmap`, then a newline: bit 0 of byte 0 is port 1,
/// and `ports` the last port. Reports its progress on the console. For switches of other port counts. Returns 0.
int APPEND_PORT_MEMBER_NUM_U8BMP(const u8 *bitmap, std::int32_t byteCount, std::int32_t ports);

/// Whether one of 28 bytes equals the low 8 bits of `match`: 1 or 0.
int CHECK_HAS_MEMBER(const u8 *values, std::uint32_t match);
/// The same over 24 bytes.
int CHECK_HAS_MEMBER_24(const u8 *values, std::uint32_t match);
/// Whether one of 28 words equals `match`: 1 or 0.
int CHECK_HAS_MEMBER_INT(const std::uint32_t *values, std::uint32_t match);
/// The same over the first `count` words; 0 if `count` is not positive.
int CHECK_HAS_MEMBER_INT_NUM(const std::uint32_t *values, std::uint32_t match, std::int32_t count);

/// Writes to `text` the list of the numbers `first` + i for each i from 0 to `last` whose flag is not zero; no flag set
/// leaves `text` as it is. `text` must hold the longest such list and a NUL. Returns `text`.
char *Array2Str(char *text, const u8 *flags, int first, int last);

/// The word for a storm rate: "disable" for code 0, up to "1024k" for 21, "unknown" beyond.
const char *GET_STORM_RATE_STR(std::uint32_t code);
