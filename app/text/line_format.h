/// How a line's literal and its arguments are held together: the compiler takes the literal apart and checks it against
/// the types of the arguments. Emitters use `append` and see none of this.
#pragma once

#include "platform/record.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <utility>

/// One value on its way into a line: a number, a text with the most characters that it may have, or a set of the
/// numbers from 1 to 32, a bit each, least significant first.
struct Argument {
    const char *text;
    std::uint32_t number;
};

/// How a type is handed to a format: `kinds` names what it gives ('n' a number, 's' a text, 'r' a set that is listed in
/// runs, 'e' a set of which each number is listed; a MAC address gives six numbers, an IPv4 address four), `put` stores
/// it. Numbers of 32 bits keep their bits, so %d and %ld print them signed and %u and %X unsigned on every host.
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
template <std::size_t Width> struct Formatted<Secret<Width>> : Formatted<Text<Width>> {};
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
    text,              ///< %s of a text
    runs,              ///< %s of a set: 1-3,5,7-28
    each,              ///< %s of a set: 1,2,3,5
};

/// How many characters of a literal each conversion is.
inline constexpr u8 conversionLength[] = {0, 2, 3, 4, 2, 2, 4, 4, 2, 2, 2};

/// A part of a literal: so many characters that are copied, then a conversion.
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
            const Conversion conversion = i < count ? read(literal + at, kinds[i]) : Conversion::end;
            stretches_[i] = {static_cast<u8>(at - from), conversion};
            from = at + conversionLength[static_cast<u8>(conversion)];
        }
    }

    /// The one of two formats. Member by member: the compiler then keeps what they share in one register.
    [[gnu::always_inline]] static constexpr Format choose(bool first, const Format &a, const Format &b) {
        return choose(first, a, b, std::make_index_sequence<conversions<Types...> + 1>());
    }

    constexpr const char *literal() const { return literal_; }
    constexpr const Stretch *stretches() const { return stretches_; }

private:
    struct Parts {
        const char *literal;
    };
    constexpr explicit Format(Parts parts) : literal_(parts.literal) {}

    template <std::size_t... Index> [[gnu::always_inline]] static constexpr Format
    choose(bool first, const Format &a, const Format &b, std::index_sequence<Index...>) {
        Format chosen(Parts{first ? a.literal_ : b.literal_});
        ((chosen.stretches_[Index].characters = first ? a.stretches_[Index].characters : b.stretches_[Index].characters,
          chosen.stretches_[Index].conversion = a.stretches_[Index].conversion),
         ...);
        return chosen;
    }

    /// The conversion that begins with the "%" at `specifier`, for an argument of `kind`.
    static constexpr Conversion read(const char *specifier, char kind) {
        if ((kind == 'n') == (specifier[1] == 's')) formatDoesNotFitItsArguments();
        switch (specifier[1]) {
        case 'd': return Conversion::decimal;
        case 'u': return Conversion::unsignedDecimal;
        case 'X': return Conversion::upperHex;
        case 's': return kind == 's' ? Conversion::text : kind == 'r' ? Conversion::runs : Conversion::each;
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

    /// A part of what other lines hold.
    constexpr Line(const char *literal, std::size_t length) : literal_(literal), length_(length) {}

    constexpr const char *literal() const { return literal_; }
    constexpr std::size_t length() const { return length_; }

private:
    const char *literal_;
    std::size_t length_;
};
