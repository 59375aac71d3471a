/// The lines of a section, stated once for both modes.
///
/// Full mode writes every line of a section. Delta mode writes those whose field differs from the default image. A body
/// that both modes share takes a `SectionLines`, whose functions know the mode. It looks at `full` itself only where
/// the modes differ in one condition.
#pragma once

#include "app/text/text.h"
#include "format/address.h"
#include "format/blocks.h"
#include "format/port_set.h"
#include "platform/record.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <type_traits>

/// Not constexpr, so that two forms of a line that reach it do not compile.
void formsDifferByMoreThanBlanks();

/// Whether two literals are the same but for the blanks at the end of the line.
template <std::size_t A, std::size_t B> consteval void checkForms(const char (&a)[A], const char (&b)[B]) {
    const auto lengthOf = [](const char *line, std::size_t size) {
        std::size_t length = size - 1; // without the NUL
        if (length == 0 || line[length - 1] != '\n') formsDifferByMoreThanBlanks();
        --length;
        while (length != 0 && line[length - 1] == ' ') --length;
        return length;
    };
    const std::size_t length = lengthOf(a, A);
    if (length != lengthOf(b, B)) formsDifferByMoreThanBlanks();
    for (std::size_t i = 0; i < length; ++i)
        if (a[i] != b[i]) formsDifferByMoreThanBlanks();
}

/// A line without conversions: one literal for both modes, or that of full mode and that of delta mode where they
/// differ by a blank at the end.
class LineForms {
public:
    template <std::size_t Size> consteval LineForms(const char (&both)[Size]) : full_(both), delta_(both) {}
    template <std::size_t Full, std::size_t Delta>
    consteval LineForms(const char (&full)[Full], const char (&delta)[Delta]) : full_(full), delta_(delta) {
        checkForms(full, delta);
    }

    // Member by member: the compiler then keeps what both modes share in one register.
    [[gnu::always_inline]] constexpr Line in(bool fullMode) const {
        return {fullMode ? full_.literal() : delta_.literal(), fullMode ? full_.length() : delta_.length()};
    }

private:
    Line full_;
    Line delta_;
};

/// The same for a line with conversions.
template <class... Types> class FormatForms {
public:
    template <std::size_t Size> consteval FormatForms(const char (&both)[Size]) : full_(both), delta_(both) {}
    template <std::size_t Full, std::size_t Delta>
    consteval FormatForms(const char (&full)[Full], const char (&delta)[Delta]) : full_(full), delta_(delta) {
        checkForms(full, delta);
    }

    [[gnu::always_inline]] constexpr Format<Types...> in(bool fullMode) const {
        return Format<Types...>::choose(fullMode, full_, delta_);
    }

private:
    Format<Types...> full_;
    Format<Types...> delta_;
};

/// Whether delta mode takes two values of a field for the same: numbers, addresses, arrays and sets by every byte,
/// texts up to their NUL.
template <class Field> bool sameField(const Field &a, const Field &b) { return sameBytes(a, b); }
inline bool sameField(u8 a, u8 b) { return a == b; }
inline bool sameField(const be16 &a, const be16 &b) { return a == b; }
inline bool sameField(const be32 &a, const be32 &b) { return a == b; }
inline bool sameField(const be_i32 &a, const be_i32 &b) { return a == b; }
template <std::size_t Width> bool sameField(const Text<Width> &a, const Text<Width> &b) { return sameText(a, b); }
template <std::size_t Width> bool sameField(const Secret<Width> &a, const Secret<Width> &b) { return sameText(a, b); }

/// A text in a field of a record.
struct FieldText {
    const char *characters;
    std::size_t width;
};
template <> struct Formatted<FieldText> : FormattedText {
    static constexpr void put(Argument *&to, const FieldText &text) {
        *to++ = {text.characters, static_cast<std::uint32_t>(text.width)};
    }
};

/// Appends the line: in full mode always, in delta mode if the values differ. Every function of a section ends here.
/// They are shared by all sections, so that a line costs a switch's flash no more than a call.
void appendChangedOnOff(bool full, std::uint32_t current, std::uint32_t defaults, const char *on, std::size_t onLength,
                        const char *off, std::size_t offLength);
void appendChangedNumber(bool full, std::uint32_t current, std::uint32_t defaults, Format<std::uint32_t> line);
void appendChangedText(bool full, const char *current, const char *defaults, std::size_t width, Format<FieldText> line);
void appendChangedCode(bool full, std::uint32_t current, std::uint32_t defaults, std::initializer_list<ValueLine> lines,
                       Line otherwise);

/// A record to be written, in delta mode with its default. One record means full mode. A body that needs the default
/// image in full mode too has it as an argument of its own.
template <class Record> struct SectionLines {
    const Record &current;
    const Record &defaults; ///< in full mode the current record
    bool full;              ///< full mode

    SectionLines(const Record &currentRecord) : current(currentRecord), defaults(currentRecord), full(true) {}
    SectionLines(const Record &currentRecord, const Record &defaultRecord)
        : current(currentRecord), defaults(defaultRecord), full(false) {}

    /// A part of the record.
    template <class Part, class Of> SectionLines<Part> part(Part Of::*member) const {
        return {current.*member, defaults.*member, full};
    }
    /// An element of the table. Delta mode compares it with the default's element at the same place.
    auto operator[](std::size_t index) const {
        return SectionLines<std::remove_extent_t<Record>>{current[index], defaults[index], full};
    }

    /// An element of the table, found by itself.
    template <class Element> auto elementOf(const Element &element) const {
        return (*this)[static_cast<std::size_t>(&element - &current[0])];
    }

    /// Whether the record is due as a whole: always in full mode, if a byte differs in delta mode.
    bool changed() const { return full || !sameBytes(current, defaults); }
    /// Whether the lines of `field` are due: always in full mode, on a difference in delta mode.
    template <class Field, class Of> [[gnu::always_inline]] bool due(Field Of::*field) const {
        return full || !sameField(current.*field, defaults.*field);
    }
    /// The same for what `of` makes of a record.
    template <class Of> [[gnu::always_inline]] bool dueBy(Of of) const {
        if (full) return true;
        const auto now = of(current);
        return !(now == of(defaults));
    }

    /// Appends the mode's form of a line.
    [[gnu::always_inline]] void append(LineForms line) const { ::append(line.in(full)); }
    template <class First, class... Rest> [[gnu::always_inline]] void
    append(std::type_identity_t<FormatForms<First, Rest...>> line, const First &first, const Rest &...rest) const {
        ::append<First, Rest...>(line.in(full), first, rest...);
    }

    /// An on/off setting: any value but 0 is on.
    template <class Field, class Of>
    [[gnu::always_inline]] void onOff(Field Of::*field, LineForms on, LineForms off) const {
        const Line onLine = on.in(full);
        const Line offLine = off.in(full);
        appendChangedOnOff(full, storedNumber(current.*field), storedNumber(defaults.*field), onLine.literal(),
                           onLine.length(), offLine.literal(), offLine.length());
    }
    /// A number.
    template <class Field, class Of>
    [[gnu::always_inline]] void value(Field Of::*field, FormatForms<std::uint32_t> line) const {
        appendChangedNumber(full, storedNumber(current.*field), storedNumber(defaults.*field), line.in(full));
    }
    /// A text.
    template <class Field, class Of>
    [[gnu::always_inline]] void text(Field Of::*field, FormatForms<FieldText> line) const {
        appendChangedText(full, (current.*field).characters, (defaults.*field).characters, Field::width, line.in(full));
    }
    /// A code: the line of its value, or `otherwise`, or nothing where that is empty.
    template <class Field, class Of> [[gnu::always_inline]] void
    code(Field Of::*field, std::initializer_list<ValueLine> lines, Line otherwise = "") const {
        appendChangedCode(full, storedNumber(current.*field), storedNumber(defaults.*field), lines, otherwise);
    }
    /// A server, whose address text `of` makes of a record: `line`, or `none` if the address is not set.
    [[gnu::always_inline]] void server(AddressText (*of)(const Record &), FormatForms<AddressText> line,
                                       LineForms none) const {
        writeServer(of, line.in(full), none.in(full));
    }

    /// A code of each port: a block for each of its values. Delta mode writes all blocks if a port differs. Of a set of
    /// ports each bit counts, also those after the last port.
    template <class Field, class Of> [[gnu::always_inline]] void blocks(Field Of::*field, FormatForms<PortSet> head,
                                                                        std::initializer_list<ValueLine> lines) const {
        if (due(field)) appendValueBlocks(head.in(full), valuesOf(current.*field), lines);
    }

    /// The same for a set of ports of which delta mode compares the front ports alone: a block for those that are in it
    /// and one for those that are not.
    template <std::size_t Bytes, class Of> [[gnu::always_inline]] void
    portBlocks(Bitmap<Bytes> Of::*field, FormatForms<PortSet> head, std::initializer_list<ValueLine> lines) const {
        if (full || !samePorts(current.*field, defaults.*field))
            appendValueBlocks(head.in(full), valuesOf(current.*field), lines);
    }

private:
    template <class> friend struct SectionLines;
    [[gnu::noinline]] void writeServer(AddressText (*of)(const Record &), Format<AddressText> line, Line none) const {
        const AddressText address = of(current);
        if (full || !(address == of(defaults))) appendServer(address, line, none);
    }
    SectionLines(const Record &currentRecord, const Record &defaultRecord, bool isFull)
        : current(currentRecord), defaults(defaultRecord), full(isFull) {}
};
