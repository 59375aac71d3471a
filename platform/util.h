/**
 * The platform's utility operations, as far as this program uses them: pure functions over the caller's memory, none of
 * which can fail. The destinations are always as large as the sizes below; no operation may write more, nor write
 * after the NUL of the text that it made (a text that was there before may be compared later).
 *
 * Bitmaps are bytes as they lie in the configuration image. The bit order is the platform's; this project's images
 * and its stand-in count bit n as bit n mod 8, least significant first, of byte n / 8.
 */
#ifndef TEXTCFG_PLATFORM_UTIL_H
#define TEXTCFG_PLATFORM_UTIL_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** Bytes of a port list text, the NUL among them. */
#define UTIL_PORT_LIST_SIZE 80
/** Bytes of an address text, IPv4 or IPv6, the NUL among them. */
#define UTIL_ADDRESS_SIZE 64
/** Bytes of a hexadecimal text, the NUL among them: four digits, and what a platform may write around them. */
#define UTIL_DIGITS_SIZE 32
/** Bytes of each field that `utilParseArgs` fills, the NUL among them. */
#define UTIL_FIELD_SIZE 64

/** Returns 1 if bit number `bit` of `bitmap` is set, else 0. */
int utilBitmapCheck(const void *bitmap, int bit);

/** Returns 1 if none of the first `count` bits of `bitmap` is set, else 0. */
int utilBitmapIsAllClear(const void *bitmap, int count);

/** Sets the first `count` bits of `bitmap`. */
void utilBitmapSetAll(void *bitmap, int count);

/** Clears in the first `count` bits of `bitmap` every bit that is set in `source`. */
void utilBitmapNand(void *bitmap, const void *source, int count);

/**
 * Writes the ports of `bitmap` as a list such as 1-3,5,6,8-28 to `text` (UTIL_PORT_LIST_SIZE bytes). Three neighbours
 * or more form a run, two are listed; an empty set is an empty text. Bits from `portCount` on do not count. Called with
 * 28 and 28.
 */
void utilPortBitmap2str(char *text, const void *bitmap, int portCount, int maximumPort);

/** Writes the four octets at `address` in dotted-decimal form to `text` (UTIL_ADDRESS_SIZE bytes). */
void utilIp2IpStr(const void *address, char *text);

/** Returns non-zero if the IPv4 address, as a number, is 0.0.0.0. */
int utilIpIsZero(uint32_t address);

/** Writes the sixteen octets at `address` as an IPv6 address to `text` (UTIL_ADDRESS_SIZE bytes); returns `text`. */
char *utilIPv6Addr2Str(char *text, const void *address);

/** Returns non-zero if all sixteen octets at `address` are zero. */
int utilIpv6AddrIsZero(const void *address);

/** Returns non-zero if the sixteen octets at `address` carry an IPv4 address (::ffff:a.b.c.d). */
int utilIpv6AddrIsIpv4(const void *address);

/** Writes the `length` bytes at `bytes` as hexadecimal digits to `text` (UTIL_DIGITS_SIZE bytes). Called with 2. */
void utilAry2Str(const void *bytes, int length, char *text);

/**
 * Splits `text` at each `separator` into at most `maximum` fields. Empty fields are kept, missing ones are empty, the
 * last one keeps the rest of the text. `fields` holds `maximum` texts of UTIL_FIELD_SIZE bytes; `text` is shorter than
 * one of them.
 */
void utilParseArgs(const char *text, const char *separator, int maximum, char (*fields)[UTIL_FIELD_SIZE]);

/** Prints a diagnostic line on the switch's console. The result is not looked at. */
int osPrintfConsole(const char *format, ...)
#ifdef __GNUC__
    __attribute__((format(printf, 1, 2)))
#endif
    ;

#ifdef __cplusplus
}
#endif

#endif
