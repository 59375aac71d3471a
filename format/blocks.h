/// The shapes in which the text groups ports: a block for each value of an attribute, a block for each distinct number,
/// a block for each distinct name.
///
/// A block is "interface " and a port list, one or more lines, and "exit". The list of a block over 32-bit words ends
/// with a blank before its newline, that over bytes does not: the type of the array says which.
#pragma once

#include "app/text/text.h"
#include "format/port_list.h"
#include "platform/util.h"

#include <cstring>
#include <initializer_list>

/// Appends the head of a block: "interface ", the ports whose word is `match`, a blank and a newline.
template <std::size_t Ports>
inline void appendInterface(const std::array<std::uint32_t, Ports> &words, std::uint32_t match) {
    appendPortLine("interface ", words.data(), match, Ports, " \n");
}

/// Appends the head of a block: "interface ", the ports whose byte is `match`, and a newline without a blank.
inline void appendInterface(const PortBytes &bytes, std::uint32_t match) {
    appendPortLine("interface ", bytes.data(), match, portCount, "\n");
}

/// A value of an attribute and the line that sets it.
struct ValueLine {
    std::uint32_t value;
    Line line;
};

void appendValueBlocks(const std::uint32_t *words, std::size_t ports, std::initializer_list<ValueLine> lines);

/// Appends a block for each value of `lines` that some port has, in their order. Ports with another value are in none.
template <std::size_t Ports>
inline void appendValueBlocks(const std::array<std::uint32_t, Ports> &words, std::initializer_list<ValueLine> lines) {
    appendValueBlocks(words.data(), Ports, lines);
}
/// The same over bytes.
void appendValueBlocks(const PortBytes &bytes, std::initializer_list<ValueLine> lines);

/// Appends `on` or `off`.
void appendSwitch(bool isSet, Line on, Line off);

/// The values of one field of all ports, as words.
template <class Record, std::size_t Ports, class Field>
std::array<std::uint32_t, Ports> wordsOf(const Record (&records)[Ports], Field Record::*field) {
    std::array<std::uint32_t, Ports> words;
    for (std::size_t i = 0; i < Ports; ++i) {
        if constexpr (requires { (records[i].*field).value(); })
            words[i] = static_cast<std::uint32_t>((records[i].*field).value());
        else words[i] = records[i].*field;
    }
    return words;
}

/// The numbers of a per-port array, as words.
template <class Number, std::size_t Ports> std::array<std::uint32_t, Ports> wordsOf(const Number (&numbers)[Ports]) {
    std::array<std::uint32_t, Ports> words;
    for (std::size_t i = 0; i < Ports; ++i) words[i] = static_cast<std::uint32_t>(numbers[i].value());
    return words;
}

/// A per-port array of bytes.
inline PortBytes bytesOfPorts(const u8 (&values)[portCount]) {
    PortBytes bytes;
    std::memcpy(bytes.data(), values, sizeof values);
    return bytes;
}

PortWords wordsOfBitmap(const u8 *bitmap);
PortBytes bytesOfBitmap(const u8 *bitmap);

/// Ports 1 to 28 of a bitmap as words 1 (set) and 0 (clear).
template <std::size_t Bytes> inline PortWords wordsOf(const Bitmap<Bytes> &bitmap) {
    return wordsOfBitmap(bitmap.bytes);
}

/// Ports 1 to 28 of a bitmap as bytes 1 (set) and 0 (clear).
template <std::size_t Bytes> inline PortBytes bytesOfPorts(const Bitmap<Bytes> &bitmap) {
    return bytesOfBitmap(bitmap.bytes);
}

/// Calls `write(value, members)` for each distinct value of `values`, in the order of the lowest port that has it.
/// `members` holds 1 for each port of the group, as `Member`s: words or bytes, which decides how its list ends.
/// A port that holds `marker` counts as already written, so a port whose own value that is is never written.
template <class Member, std::size_t Ports, class Write>
void forEachGroup(std::array<std::uint32_t, Ports> values, std::uint32_t marker, Write write) {
    for (std::size_t i = 0; i < Ports; ++i) {
        const std::uint32_t value = values[i];
        if (value == marker) continue;
        std::array<Member, Ports> members{};
        for (std::size_t j = i; j < Ports; ++j) {
            if (values[j] != value) continue;
            members[j] = 1;
            values[j] = marker;
        }
        write(value, members);
    }
}

/// Appends a block for each distinct name in `names` that is not its port's default, in the order of the lowest port:
/// "interface 3,7" (never ranges), `line` with the name, "exit".
///
/// A later port of the same name joins, and `markOf(i)`, i being the port that leads the block, overwrites its name.
/// That is the only mark of a port already written: where it differs from the joined port's own default, that port is
/// written once more, with the overwritten name.
template <std::size_t Ports, std::size_t Width, class DefaultOf, class MarkOf>
void appendNameBlocks(std::array<Text<Width>, Ports> names, DefaultOf defaultOf, MarkOf markOf,
                      std::type_identity_t<Format<Text<Width>>> line) {
    for (std::size_t i = 0; i < Ports; ++i) {
        if (sameText(names[i], defaultOf(i))) continue;
        append("interface %d", static_cast<int>(i + 1));
        for (std::size_t j = i + 1; j < Ports; ++j) {
            if (!sameText(names[j], names[i])) continue;
            append(",%d", static_cast<int>(j + 1));
            names[j] = markOf(i);
        }
        APPEND_NL();
        append<Text<Width>>(line, names[i]);
        append("exit\n");
    }
}

/// The texts of one field of all ports.
template <class Record, std::size_t Ports, std::size_t Width>
std::array<Text<Width>, Ports> textsOf(const Record (&records)[Ports], Text<Width> Record::*field) {
    std::array<Text<Width>, Ports> texts;
    for (std::size_t i = 0; i < Ports; ++i) texts[i] = records[i].*field;
    return texts;
}
