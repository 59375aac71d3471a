#include "app/text/text.h"

#include "app/text/line_writer.h"

#include <cstring>

char Temp_Configuration[textBufferSize];
char LineBuffer[lineBufferSize];

namespace {

/// Bytes that are looked at, and cleared, at a time: a page.
constexpr std::size_t clearedAtOnce = 4096;
static_assert(textBufferSize % clearedAtOnce == 0);

/// Where the text ends, as far as this file wrote it.
constinit char *textEnd = Temp_Configuration;
bool overflowed;

/// Defined for a measurement: each append looks for the end of the text.
#ifdef TEXTCFG_RESCAN
constexpr bool rescans = true;
#else
constexpr bool rescans = false;
#endif

/// Whether the text still ends where this file left it: not cleared, continued, or shortened by its last character, by
/// someone else. That a longer text was cut short further in is not noticed; all of it would have to be looked at.
bool endIsKnown() {
    return *textEnd == '\0' &&
           (textEnd == Temp_Configuration || (textEnd[-1] != '\0' && Temp_Configuration[0] != '\0'));
}

/// Appends the bytes to the text, if they fit. Inline, as every line comes through here.
[[gnu::always_inline]] inline void join(const char *bytes, std::size_t length) {
    if (overflowed) return;
    if (rescans || !endIsKnown()) textEnd = Temp_Configuration + strnlen(Temp_Configuration, textBufferSize);
    // One byte is kept for the NUL; a text that lacks it takes nothing more.
    const std::ptrdiff_t left = Temp_Configuration + textBufferSize - 1 - textEnd;
    if (static_cast<std::ptrdiff_t>(length) > left) {
        overflowed = true;
        return;
    }
    std::memcpy(textEnd, bytes, length);
    textEnd += length;
    *textEnd = '\0';
}

} // namespace

bool textOverflowed() { return overflowed; }

void clearText() {
    // Only what holds something is written: pages that no text reached yet cost neither time nor memory.
    for (std::size_t page = 0; page < sizeof Temp_Configuration; page += clearedAtOnce) {
        char *const bytes = Temp_Configuration + page;
        if (bytes[0] != '\0' || std::memcmp(bytes, bytes + 1, clearedAtOnce - 1) != 0)
            std::memset(bytes, 0, clearedAtOnce);
    }
    textEnd = Temp_Configuration;
    overflowed = false;
}

void appendBytes(const char *bytes, std::size_t length) {
    join(bytes, length);
    LineBuffer[0] = '\0';
}

const char *decimal(std::uint32_t number, char (&digits)[10]) {
    char *first = digits + sizeof digits;
    // Two digits at a time: a division costs as much as all the rest.
    while (number >= 10) {
        const std::uint32_t rest = number % 100;
        number /= 100;
        *--first = static_cast<char>('0' + rest % 10);
        *--first = static_cast<char>('0' + rest / 10);
    }
    if (number != 0 || first == digits + sizeof digits) *--first = static_cast<char>('0' + number);
    return first;
}

void finishLine(const char *end, bool fits) {
    if (fits) join(LineBuffer, static_cast<std::size_t>(end - LineBuffer));
    else overflowed = true;
    LineBuffer[0] = '\0';
}

[[gnu::flatten]] void appendFormatted(const char *literal, const Stretch *stretches, const Argument *arguments) {
    LineWriter line;
    const auto putHex = [&line](std::uint32_t number, const char *digits, unsigned places) {
        while (places < 8 && number >> 4 * places != 0) ++places;
        while (places != 0) line.put(digits[number >> 4 * --places & 0xf]);
    };
    const auto putSigned = [&line](std::uint32_t number, bool twoDigits) {
        const bool negative = static_cast<std::int32_t>(number) < 0;
        const std::uint32_t magnitude = negative ? 0U - number : number;
        if (negative) line.put('-');
        // A sign takes one of the two places.
        if (twoDigits && !negative && magnitude < 10) line.put('0');
        line.putDecimal(magnitude);
    };
    for (;; ++stretches, ++arguments) {
        line.put(literal, stretches->characters);
        switch (stretches->conversion) {
        case Conversion::end: return line.finish();
        case Conversion::decimal:
        case Conversion::longDecimal: putSigned(arguments->number, false); break;
        case Conversion::decimalTwoDigits: putSigned(arguments->number, true); break;
        case Conversion::unsignedDecimal: line.putDecimal(arguments->number); break;
        case Conversion::upperHex: putHex(arguments->number, "0123456789ABCDEF", 1); break;
        case Conversion::upperHexTwoDigits: putHex(arguments->number, "0123456789ABCDEF", 2); break;
        case Conversion::lowerHexTwoDigits: putHex(arguments->number, "0123456789abcdef", 2); break;
        case Conversion::runs: line.putRuns(arguments->number); break;
        case Conversion::each: line.putEach(arguments->number); break;
        case Conversion::text: line.put(arguments->text, strnlen(arguments->text, arguments->number)); break;
        }
        literal += stretches->characters + conversionLength[static_cast<u8>(stretches->conversion)];
    }
}

int APPEND_NL() {
    append("\n");
    return 0;
}
