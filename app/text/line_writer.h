/// A line under construction in `LineBuffer`.
#pragma once

#include "app/text/runs.h"
#include "app/text/text.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Writes `number` in decimal up to the end of `digits` and returns where it begins.
const char *decimal(std::uint32_t number, char (&digits)[10]);

/// Appends the line in `LineBuffer` up to `end`, or remembers that it did not fit. Empties `LineBuffer`.
void finishLine(const char *end, bool fits);

/// A line under construction in `LineBuffer`, for what is built piece by piece, such as a list of ports. Inline, so
/// that its state lives in registers.
class LineWriter {
public:
    void put(char character) {
        if (end_ == lineEnd()) fits_ = false;
        else *end_++ = character;
    }

    void put(const char *text, std::size_t length) {
        if (length > static_cast<std::size_t>(lineEnd() - end_)) {
            fits_ = false;
            return;
        }
        std::memcpy(end_, text, length);
        end_ += length;
    }

    void putDecimal(std::uint32_t number) {
        char digits[10];
        const char *first = decimal(number, digits);
        if (digits + sizeof digits - first > lineEnd() - end_) {
            fits_ = false;
            return;
        }
        do *end_++ = *first++;
        while (first != digits + sizeof digits);
    }

    /// A run of neighbours in a list, from `first` to `last`, after `separator` unless that is NUL.
    void putRun(char separator, std::uint32_t first, std::uint32_t last) {
        listRun(separator, first, last, [this](char before, std::uint32_t number) { putEntry(before, number); });
    }

    /// The numbers of `set` in runs: bit 0 is 1.
    void putRuns(std::uint32_t set) {
        std::uint32_t before = 0;
        for (char separator = '\0'; set != 0; separator = ',') {
            const unsigned gap = static_cast<unsigned>(std::countr_zero(set));
            set >>= gap;
            const unsigned length = static_cast<unsigned>(std::countr_one(set));
            putRun(separator, before + gap + 1, before + gap + length);
            before += gap + length;
            set = length < 32 ? set >> length : 0;
        }
    }

    /// Each number of `set`: bit 0 is 1.
    void putEach(std::uint32_t set) {
        for (char separator = '\0'; set != 0; separator = ',') {
            putEntry(separator, static_cast<std::uint32_t>(std::countr_zero(set)) + 1);
            set &= set - 1;
        }
    }

    /// An entry of a list: `separator`, unless it is NUL, and `number`.
    void putEntry(char separator, std::uint32_t number) {
        if (number < 100 && lineEnd() - end_ >= 3) { // most are ports
            const std::uint32_t tens = number / 10;
            *end_ = separator;
            end_ += separator != '\0';
            *end_ = static_cast<char>('0' + tens);
            end_ += tens != 0;
            *end_++ = static_cast<char>('0' + number - tens * 10);
            return;
        }
        if (separator != '\0') put(separator);
        putDecimal(number);
    }

    /// Appends the line to the text and empties `LineBuffer`.
    void finish() const { finishLine(end_, fits_); }

private:
    /// The last byte of `LineBuffer` is kept for the NUL.
    static char *lineEnd() { return LineBuffer + lineBufferSize - 1; }

    char *end_ = LineBuffer;
    bool fits_ = true;
};
