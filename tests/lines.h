/// FieldLineSet that follow fields: whatever the other fields of a section hold, a line is written as its own field
/// says.
///
/// A section is a list of lines in the order of the text. Each line has values: how one is stored, and the exact line
/// that it brings about in full and in delta mode. Every value is tried against two settings of all other fields.
#pragma once

#include "rows.h"

#include <initializer_list>
#include <iosfwd>
#include <utility>

struct LineValue {
    Setter<void(ConfigImage &image)> store; ///< writes the whole of the line's fields
    std::string full;
    std::string delta;

    LineValue(Setter<void(ConfigImage &)> stored, std::string text) : LineValue(std::move(stored), text, text) {}
    LineValue(Setter<void(ConfigImage &)> stored, std::string fullText, std::string deltaText)
        : store(std::move(stored)), full(std::move(fullText)), delta(std::move(deltaText)) {}
};

/// A line of one value is always the same: full mode writes it, delta mode has nothing to compare.
struct FieldLine {
    std::vector<LineValue> values; ///< delta mode holds any two of them to be different
    bool opensEntry = true;        ///< a difference in this field alone opens the block of its entry

    FieldLine(std::vector<LineValue> all) : values(std::move(all)) {}
    FieldLine(std::initializer_list<LineValue> all) : values(all) {}
    FieldLine(std::vector<LineValue> all, bool opens) : values(std::move(all)), opensEntry(opens) {}
};

/// The text around the lines of an entry. Delta mode writes it only if something differs, or always.
struct BlockFrame {
    std::string head;
    std::string tail;
    std::string deltaTail;
    bool always = false;
    std::string removal = {}; ///< what full mode writes first, as the default image has the entry too
};

struct FieldLineSet {
    const char *name;
    const char *emitter;
    Setter<void(ConfigImage &image)> given; ///< what both images and the board hold besides; may be null
    BlockFrame frame;
    std::vector<FieldLine> lines;
};

/// Names a field of the image: `FIELD(poe.enabled)`. A pointer, so that what is made of it depends on the type alone.
#define FIELD(member)                                                                                                  \
    +[](ConfigImage & image) -> auto & {                                                                               \
        return image.member;                                                                                           \
    }

/// What is stored in a field of one byte or of four to try an on/off setting.
template <class Field> std::vector<std::uint32_t> storedFlags() {
    if constexpr (sizeof(Field) == 1) return {0, 1, 2, 0x80};
    return {0, 1, 2, 0x80, 0x100, 0x80000000};
}

/// An on/off setting: anything but zero is on.
template <class Get> FieldLine flag(Get field, const std::string &on, const std::string &off,
                                    const std::string &deltaOn, const std::string &deltaOff) {
    using Field = std::remove_reference_t<decltype(field(*gSysConfig))>;
    FieldLine line({});
    for (const std::uint32_t stored : storedFlags<Field>()) {
        const auto store = [=](ConfigImage &image) {
            field(image) = static_cast<std::conditional_t<sizeof(Field) == 1, u8, std::uint32_t>>(stored);
        };
        line.values.emplace_back(store, stored == 0 ? off : on, stored == 0 ? deltaOff : deltaOn);
    }
    return line;
}
template <class Get> FieldLine flag(Get field, const std::string &on, const std::string &off) {
    return flag(field, on, off, on, off);
}

struct Stored {
    std::int64_t number;
    std::string full;
    std::string delta;

    Stored(std::int64_t stored, std::string text) : Stored(stored, text, text) {}
    Stored(std::int64_t stored, std::string fullText, std::string deltaText)
        : number(stored), full(std::move(fullText)), delta(std::move(deltaText)) {}
};

template <class Field> void storeNumber(Field &field, std::int64_t number) {
    if constexpr (std::is_same_v<Field, be_i32>) field = static_cast<std::int32_t>(number);
    else if constexpr (sizeof(Field) == 4) field = static_cast<std::uint32_t>(number);
    else if constexpr (sizeof(Field) == 2) field = static_cast<std::uint16_t>(number);
    else field = static_cast<Field>(number);
}

/// A number or a code, with the line of each value that is tried.
template <class Get> FieldLine number(Get field, std::initializer_list<Stored> values) {
    FieldLine line({});
    for (const Stored &value : values) {
        const std::int64_t stored = value.number;
        line.values.emplace_back([=](ConfigImage &image) { storeNumber(field(image), stored); }, value.full,
                                 value.delta);
    }
    return line;
}

struct StoredText {
    std::string stored;
    std::string full;
    std::string delta;

    StoredText(std::string characters, std::string text) : StoredText(std::move(characters), text, text) {}
    StoredText(std::string characters, std::string fullText, std::string deltaText)
        : stored(std::move(characters)), full(std::move(fullText)), delta(std::move(deltaText)) {}
};

template <class Get> FieldLine text(Get field, std::initializer_list<StoredText> values) {
    FieldLine line({});
    for (const StoredText &value : values) {
        const std::string stored = value.stored;
        line.values.emplace_back([=](ConfigImage &image) { field(image) = stored.c_str(); }, value.full, value.delta);
    }
    return line;
}

/// A line that full mode always writes and delta mode never, as nothing of it is changed here.
inline FieldLine always(const std::string &full) {
    return {{[](ConfigImage &) {}, full, ""}};
}

/// Address pairs that differ only after a zero octet, only in the first octet, or hold nothing but their last octet.
struct Address {
    Ipv4 octets;
    const char *text;
};
inline const Address addresses[] = {
    {{{0, 0, 0, 5}}, "0.0.0.5"},   {{{5, 0, 0, 0}}, "5.0.0.0"},   {{{0, 7, 0, 0}}, "0.7.0.0"},
    {{{0, 0, 9, 0}}, "0.0.9.0"},   {{{10, 0, 0, 1}}, "10.0.0.1"}, {{{10, 0, 0, 2}}, "10.0.0.2"},
    {{{10, 0, 3, 1}}, "10.0.3.1"}, {{{11, 0, 0, 1}}, "11.0.0.1"}, {{{255, 255, 255, 0}}, "255.255.255.0"},
};

struct LongAddress {
    Ipv6 octets;
    const char *text;
};
inline const LongAddress longAddresses[] = {
    {{{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 5}}, "::5"},
    {{{5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, "500::"},
    {{{0, 0, 0, 0, 0, 0, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0}}, "0:0:0:700::"},
    {{{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}}, "2001:db8::1"},
    {{{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2}}, "2001:db8::2"},
    {{{0x20, 0x01, 0x0d, 0xb8, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}}, "2001:db8:1::1"},
    {{{0x30, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}}, "3001:db8::1"},
};
inline const Ipv6 someLong = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9}};

/// An address of either family, and the line without one. `prefix` and `suffix` are the line around the address.
enum class First { ipv4, ipv6 };
template <class Short, class Long> FieldLine address(Short field, Long longField, First first,
                                                     const std::string &prefix, const std::string &none,
                                                     const std::string &deltaNone, const std::string &suffix = "\n") {
    FieldLine line({});
    const auto add = [&](const Ipv4 &octets, const Ipv6 &longOctets, const std::string &full,
                         const std::string &delta) {
        line.values.emplace_back(
            [=](ConfigImage &image) {
                field(image) = octets;
                longField(image) = longOctets;
            },
            full, delta);
    };
    add({}, {}, none, deltaNone);
    for (const Address &one : addresses) {
        const std::string text = prefix + one.text + suffix;
        add(one.octets, {}, text, text);
    }
    for (const LongAddress &one : longAddresses) {
        const std::string text = prefix + one.text + suffix;
        add({}, one.octets, text, text);
    }
    const std::string both = prefix + (first == First::ipv4 ? "0.0.0.6" : "2001:db8::9") + suffix;
    add({{0, 0, 0, 6}}, someLong, both, both);
    return line;
}

/// An IPv4 address in the form that an IPv6 field holds.
inline Ipv6 mapped(const Ipv4 &address) {
    const u8 *const octets = address.octets;
    return {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, octets[0], octets[1], octets[2], octets[3]}};
}

/// A failing set names its emitter.
void PrintTo(const FieldLineSet &set, std::ostream *out);

/// Registers a test in each mode of each set.
struct FieldLineSets {
    FieldLineSets(const char *area, const char *file, int line, const std::vector<FieldLineSet> &sets);
};

#define FIELD_LINES(area, ...)                                                                                         \
    static const FieldLineSets linesOf##area(#area, __FILE__, __LINE__, std::vector<FieldLineSet> __VA_ARGS__)
