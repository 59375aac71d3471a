/// The text buffer: where every line of the text configuration goes, and the header that it begins with.
///
/// Emitters write whole lines with `append` and ask nothing. A line is formatted into `LineBuffer`, joins
/// `Temp_Configuration`, and the first byte of `LineBuffer` is 0 again. Neither buffer can be overrun: the first line
/// that does not fit is remembered, nothing is appended from then on, and the run, which asks `textOverflowed` once at
/// its end, writes no file.
#pragma once

#include "platform/image.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

inline constexpr std::size_t textBufferSize = 262144;
inline constexpr std::size_t lineBufferSize = 16384;

/// The text configuration, NUL-terminated. Whoever clears it from outside is noticed by the next append.
extern char Temp_Configuration[textBufferSize];

/// The line being formatted; its first byte is 0 between lines.
extern char LineBuffer[lineBufferSize];

/// Non-zero makes the emitters print their names on standard output, but for a few in full mode. Nothing in the program
/// sets it.
extern std::int32_t gCfgDebug;

/// Whether a line did not fit since the text was last cleared.
bool textOverflowed();

/// Clears the text, all of its bytes, and forgets that a line did not fit.
void clearText();

/// Prints "[", the name of the calling emitter and "]" on a line of standard output when `gCfgDebug` is set. Returns 0,
/// as emitters do.
int trace(const char *emitter = __builtin_FUNCTION());

/// Appends an empty line. Returns 0.
int APPEND_NL();

/// Header of the running and startup configuration: clears the text, then writes the version line and "configure".
/// Learns the image bank in its own transaction; if that cannot be opened, the text is left as it is, without header.
void initTempConfig();
/// Header of the default and customer default configuration: the same.
void initDefConfig();
/// Header of a page: clears the text and writes "configure" alone.
void initHtmlConfig();

// ----------------------------------------------------------------------------------------------- formatted appends

/// One value on its way into a line: a number, or a text with the most characters that it may have.
struct Argument {
    const char *text;
    std::uint32_t number;
};

/// How a type is handed to a format: `kinds` names what it gives ('n' a number, 's' a text; a MAC address gives six
/// numbers, an IPv4 address four), `put` stores it. Numbers of 32 bits keep their bits, so %d and %ld print them signed
/// and %u and %X unsigned on every host.
template <class T> struct Formatted;

struct FormattedNumber {
    static constexpr char kinds[] = "n";
    static constexpr void put(Argument *&to, std::uint32_t number) { (to++)->number = number; }
};
template <> struct Formatted<int> : FormattedNumber {
    static constexpr void put(Argument *&to, int number) {
        FormattedNumber::put(to, static_cast<std::uint32_t>(number));
    }
};
template <> struct Formatted<unsigned> : FormattedNumber {};
template <> struct Formatted<u8> : FormattedNumber {};
template <> struct Formatted<std::uint16_t> : FormattedNumber {};
template <> struct Formatted<i8> : FormattedNumber {
    static constexpr void put(Argument *&to, i8 number) {
        FormattedNumber::put(to, static_cast<std::uint32_t>(static_cast<std::int32_t>(number)));
    }
};
template <> struct Formatted<be16> : FormattedNumber {
    static constexpr void put(Argument *&to, be16 number) { FormattedNumber::put(to, number.value()); }
};
template <> struct Formatted<be32> : FormattedNumber {
    static constexpr void put(Argument *&to, be32 number) { FormattedNumber::put(to, number.value()); }
};
template <> struct Formatted<be_i32> : FormattedNumber {
    static constexpr void put(Argument *&to, be_i32 number) { FormattedNumber::put(to, number.bits.value()); }
};
template <> struct Formatted<Mac> {
    static constexpr char kinds[] = "nnnnnn";
    static constexpr void put(Argument *&to, const Mac &address) {
        for (const u8 octet : address.octets) FormattedNumber::put(to, octet);
    }
};
template <> struct Formatted<Ipv4> {
    static constexpr char kinds[] = "nnnn";
    static constexpr void put(Argument *&to, const Ipv4 &address) {
        for (const u8 octet : address.octets) FormattedNumber::put(to, octet);
    }
};

struct FormattedText {
    static constexpr char kinds[] = "s";
};
/// A field of a record, which may lack a terminator.
template <std::size_t Width> struct Formatted<Text<Width>> : FormattedText {
    static constexpr void put(Argument *&to, const Text<Width> &text) { *to++ = {text.characters, Width}; }
};
/// A text buffer of the program.
template <std::size_t Size> struct Formatted<char[Size]> : FormattedText {
    static constexpr void put(Argument *&to, const char (&text)[Size]) { *to++ = {text, Size}; }
};
/// A NUL-terminated text.
template <> struct Formatted<const char *> : FormattedText {
    static constexpr void put(Argument *&to, const char *text) { *to++ = {text, UINT32_MAX}; }
};

/// How many conversions the given types fill.
template <class... Types>
inline constexpr std::size_t conversions = (std::size_t{0} + ... + (sizeof(Formatted<Types>::kinds) - 1));

/// Not constexpr, so that a format which reaches it does not compile.
void formatDoesNotFitItsArguments();

/// How a value is written.
enum class Conversion : u8 {
    end,               ///< none: the literal ends
    decimal,           ///< %d
    longDecimal,       ///< %ld: 32 bits wide all the same
    decimalTwoDigits,  ///< %02d
    unsignedDecimal,   ///< %u
    upperHex,          ///< %X
    upperHexTwoDigits, ///< %02X
    lowerHexTwoDigits, ///< %02x
    text,              ///< %s
};

/// How many characters of a literal each conversion is.
inline constexpr u8 conversionLength[] = {0, 2, 3, 4, 2, 2, 4, 4, 2};

/// A stretch of a literal: so many characters as they stand, then a conversion.
struct Stretch {
    u8 characters;
    Conversion conversion;
};

/// A literal that was taken apart, and checked against its arguments, by the compiler. The conversions are those that
/// the text needs: %d %ld %u %X %02X %02x %02d for numbers and %s for texts.
template <class... Types> class Format {
public:
    template <std::size_t Size> consteval Format(const char (&literal)[Size]) : literal_(literal) {
        char kinds[conversions<Types...> + 1] = {};
        std::size_t count = 0;
        for (const char *of : {Formatted<Types>::kinds..., ""})
            while (*of != '\0') kinds[count++] = *of++;

        std::size_t from = 0;
        for (std::size_t i = 0; i <= count; ++i) {
            std::size_t at = from;
            while (at + 1 < Size && literal[at] != '%') ++at;
            if (at - from > UINT8_MAX || (at + 1 < Size) != (i < count)) formatDoesNotFitItsArguments();
            const Conversion conversion = i < count ? read(literal + at) : Conversion::end;
            if (i < count && (conversion == Conversion::text) != (kinds[i] == 's')) formatDoesNotFitItsArguments();
            stretches_[i] = {static_cast<u8>(at - from), conversion};
            from = at + conversionLength[static_cast<u8>(conversion)];
        }
    }

    constexpr const char *literal() const { return literal_; }
    constexpr const Stretch *stretches() const { return stretches_; }

private:
    /// The conversion that begins with the "%" at `specifier`.
    static constexpr Conversion read(const char *specifier) {
        switch (specifier[1]) {
        case 'd': return Conversion::decimal;
        case 'u': return Conversion::unsignedDecimal;
        case 'X': return Conversion::upperHex;
        case 's': return Conversion::text;
        case 'l':
            if (specifier[2] == 'd') return Conversion::longDecimal;
            break;
        case '0':
            if (specifier[2] != '2') break;
            if (specifier[3] == 'd') return Conversion::decimalTwoDigits;
            if (specifier[3] == 'X') return Conversion::upperHexTwoDigits;
            if (specifier[3] == 'x') return Conversion::lowerHexTwoDigits;
        }
        formatDoesNotFitItsArguments();
        return Conversion::end;
    }

    const char *literal_;
    Stretch stretches_[conversions<Types...> + 1] = {};
};

/// A line without conversions.
class Line {
public:
    template <std::size_t Size> consteval Line(const char (&literal)[Size]) : literal_(literal), length_(Size - 1) {
        for (const char character : literal)
            if (character == '%') formatDoesNotFitItsArguments();
    }

    constexpr const char *literal() const { return literal_; }
    constexpr std::size_t length() const { return length_; }

private:
    const char *literal_;
    std::size_t length_;
};

void appendBytes(const char *bytes, std::size_t length);
void appendFormatted(const char *literal, const Stretch *stretches, const Argument *arguments);

/// Appends `line` as it stands.
inline void append(Line line) { appendBytes(line.literal(), line.length()); }

template <class Type> struct AsIs { using type = Type; };

/// Appends `format` with its conversions replaced by `values`, which may be fields of a record as they are.
template <class First, class... Rest>
inline void append(typename AsIs<Format<First, Rest...>>::type format, const First &first, const Rest &...rest) {
    Argument arguments[conversions<First, Rest...>];
    Argument *next = arguments;
    Formatted<First>::put(next, first);
    (Formatted<Rest>::put(next, rest), ...);
    appendFormatted(format.literal(), format.stretches(), arguments);
}

/// Writes `number` in decimal up to the end of `digits` and returns where it begins.
const char *decimal(std::uint32_t number, char (&digits)[10]);

/// Appends the line that stands in `LineBuffer` up to `end`, or remembers that it did not fit. Empties `LineBuffer`.
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
        const char *const first = decimal(number, digits);
        put(first, static_cast<std::size_t>(digits + sizeof digits - first));
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
