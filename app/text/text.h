/// The text buffer: where every line of the text configuration goes.
///
/// Emitters write whole lines with `append` and ask nothing. A line is formatted into `LineBuffer`, joins
/// `Temp_Configuration`, and the first byte of `LineBuffer` is 0 again. Neither buffer can be overrun: the first line
/// that does not fit is remembered, nothing is appended from then on, and the run, which asks `textOverflowed` once at
/// its end, writes no file.
#pragma once

#include "app/text/line_format.h"
#include "app/text/trace.h"

#include <cstddef>
#include <type_traits>

inline constexpr std::size_t textBufferSize = 262144;
inline constexpr std::size_t lineBufferSize = 16384;

/// The text configuration, NUL-terminated. Whoever clears it from outside is noticed by the next append.
extern char Temp_Configuration[textBufferSize];

/// The line being formatted; its first byte is 0 between lines.
extern char LineBuffer[lineBufferSize];

/// Whether a line did not fit since the text was last cleared.
bool textOverflowed();

/// Clears the text, all of its bytes, and forgets that a line did not fit.
void clearText();

/// Appends an empty line. Returns 0.
int APPEND_NL();

void appendBytes(const char *bytes, std::size_t length);
void appendFormatted(const char *literal, const Stretch *stretches, const Argument *arguments);

/// Appends `line` as it is.
inline void append(Line line) { appendBytes(line.literal(), line.length()); }

/// Appends `format` with its conversions replaced by `values`, which may be fields of a record as they are.
template <class First, class... Rest>
inline void append(std::type_identity_t<Format<First, Rest...>> format, const First &first, const Rest &...rest) {
    Argument arguments[conversions<First, Rest...>];
    Argument *next = arguments;
    Formatted<First>::put(next, first);
    (Formatted<Rest>::put(next, rest), ...);
    appendFormatted(format.literal(), format.stretches(), arguments);
}
