/// The lines that both modes share, on a record of the test's own: when a line is due, and in which form.
#include "app/text/text.h"
#include "format/section_lines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

namespace {

struct Part {
    u8 level;
    be16 rate;
};

struct TestRecord {
    u8 byte;
    i8 signedByte;
    be16 half;
    be32 word;
    be_i32 number;
    Text<4> name;
    Secret<4> key;
    Ipv4 address;
    u8 ports[portCount];
    be32 widePorts[portCount];
    Bitmap<4> members;
    Part part;
    Part table[3];
};

using Lines = SectionLines<TestRecord>;
using Body = std::function<void(const Lines &lines)>;
using Change = std::function<void(TestRecord &record)>;

std::string written(const Lines &lines, const Body &body) {
    clearText();
    body(lines);
    std::string text = Temp_Configuration;
    clearText();
    return text;
}

/// What `body` writes in full mode for a record of zeros with `set`.
std::string inFull(const Change &set, const Body &body) {
    TestRecord current = {};
    set(current);
    return written({current}, body);
}

/// What it writes in delta mode, the default being a record of zeros with `setDefaults`.
std::string inDelta(const Change &set, const Change &setDefaults, const Body &body) {
    TestRecord current = {};
    TestRecord defaults = {};
    set(current);
    setDefaults(defaults);
    return written({current, defaults}, body);
}

void zeros(TestRecord &) {}

// --------------------------------------------------------------------------------------------------------------- forms

TEST(SectionLines, AppendTheFormOfTheirMode) {
    const Body line = [](const Lines &lines) { lines.append({"poe \n", "poe\n"}); };
    EXPECT_EQ("poe \n", inFull(zeros, line));
    EXPECT_EQ("poe\n", inDelta(zeros, zeros, line));
    const Body shared = [](const Lines &lines) { lines.append("poe\n"); };
    EXPECT_EQ("poe\n", inFull(zeros, shared));
    EXPECT_EQ("poe\n", inDelta(zeros, zeros, shared));
    const Body withValues = [](const Lines &lines) { lines.append({"a %d %s\n", "a %d %s \n"}, 7, "b"); };
    EXPECT_EQ("a 7 b\n", inFull(zeros, withValues));
    EXPECT_EQ("a 7 b \n", inDelta(zeros, zeros, withValues));
    const Body sharedValues = [](const Lines &lines) { lines.append("a %d\n", 7); };
    EXPECT_EQ("a 7\n", inFull(zeros, sharedValues));
    EXPECT_EQ("a 7\n", inDelta(zeros, zeros, sharedValues));
}

TEST(SectionLines, KnowTheirMode) {
    TestRecord current = {};
    const TestRecord defaults = {};
    EXPECT_TRUE(Lines{current}.full);
    EXPECT_FALSE(Lines(current, defaults).full);
    EXPECT_EQ(&current, &Lines{current}.defaults) << "full mode has no default";
    EXPECT_EQ(&defaults, &Lines(current, defaults).defaults);
}

// ---------------------------------------------------------------------------------------------------------- what is
// due

TEST(SectionLines, ARecordIsDueIfAnyByteDiffers) {
    TestRecord current = {};
    const TestRecord defaults = {};
    EXPECT_TRUE(Lines{current}.changed());
    for (std::size_t i = 0; i < sizeof current; ++i) {
        EXPECT_FALSE(Lines(current, defaults).changed());
        reinterpret_cast<u8 *>(&current)[i] = 1;
        EXPECT_TRUE(Lines(current, defaults).changed()) << i;
        reinterpret_cast<u8 *>(&current)[i] = 0;
    }
}

/// The bytes of a record whose difference makes `field` due in delta mode, by their offsets.
template <class Field> std::string bytesDue(Field TestRecord::*field) {
    TestRecord current = {};
    const TestRecord defaults = {};
    EXPECT_TRUE(Lines{current}.due(field)) << "full mode";
    const auto *const first = reinterpret_cast<const u8 *>(&(current.*field));
    std::string due;
    for (std::size_t i = 0; i < sizeof current; ++i) {
        u8 *const byte = reinterpret_cast<u8 *>(&current) + i;
        *byte = 1;
        if (Lines(current, defaults).due(field)) due += std::to_string(byte - first) + " ";
        *byte = 0;
    }
    return due;
}

TEST(SectionLines, AFieldIsDueByItsOwnBytes) {
    EXPECT_EQ("0 ", bytesDue(&TestRecord::byte));
    EXPECT_EQ("0 ", bytesDue(&TestRecord::signedByte));
    EXPECT_EQ("0 1 ", bytesDue(&TestRecord::half));
    EXPECT_EQ("0 1 2 3 ", bytesDue(&TestRecord::word));
    EXPECT_EQ("0 1 2 3 ", bytesDue(&TestRecord::number));
    EXPECT_EQ("0 1 2 3 ", bytesDue(&TestRecord::address));
    EXPECT_EQ("0 1 2 3 ", bytesDue(&TestRecord::members)) << "also by a bit of no port";
    EXPECT_EQ("0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 ",
              bytesDue(&TestRecord::ports));
    EXPECT_EQ("0 ", bytesDue(&TestRecord::name)) << "an empty text ends with its first byte";
    EXPECT_EQ("0 ", bytesDue(&TestRecord::key));
}

TEST(SectionLines, ATextIsDueUpToItsEnd) {
    TestRecord current = {};
    TestRecord defaults = {};
    current.name = defaults.name = "ab";
    current.key = defaults.key = "abcd";
    const Lines lines(current, defaults);
    EXPECT_FALSE(lines.due(&TestRecord::name));
    current.name.characters[3] = 'x';
    EXPECT_FALSE(lines.due(&TestRecord::name)) << "a byte after the end";
    current.name.characters[1] = 'x';
    EXPECT_TRUE(lines.due(&TestRecord::name));
    EXPECT_FALSE(lines.due(&TestRecord::key)) << "a text that fills its field";
    current.key.characters[3] = 'x';
    EXPECT_TRUE(lines.due(&TestRecord::key)) << "its last byte";
}

TEST(SectionLines, AreDueByWhatIsMadeOfARecord) {
    TestRecord current = {};
    TestRecord defaults = {};
    const auto isEven = [](const TestRecord &record) { return record.byte % 2 == 0; };
    EXPECT_TRUE(Lines{current}.dueBy(isEven));
    const Lines lines(current, defaults);
    EXPECT_FALSE(lines.dueBy(isEven));
    current.byte = 2;
    EXPECT_FALSE(lines.dueBy(isEven));
    current.byte = 3;
    EXPECT_TRUE(lines.dueBy(isEven));
    defaults.byte = 1;
    EXPECT_FALSE(lines.dueBy(isEven));
}

// --------------------------------------------------------------------------------------------------------- on/off
// lines

/// Holds that any stored value but 0 is on, and that delta mode compares the stored values.
template <class Field, class Number> void expectOnOff(Field TestRecord::*field, std::initializer_list<Number> on) {
    const Body body = [field](const Lines &lines) {
        lines.onOff(field, {"poe \n", "poe\n"}, {"no poe\n", "no poe \n"});
    };
    const auto holding = [field](Number number) { return [=](TestRecord &record) { record.*field = number; }; };
    EXPECT_EQ("no poe\n", inFull(zeros, body));
    EXPECT_EQ("", inDelta(zeros, zeros, body));
    for (const Number stored : on) {
        EXPECT_EQ("poe \n", inFull(holding(stored), body)) << stored;
        EXPECT_EQ("poe\n", inDelta(holding(stored), zeros, body)) << stored;
        EXPECT_EQ("no poe \n", inDelta(zeros, holding(stored), body)) << stored;
        EXPECT_EQ("", inDelta(holding(stored), holding(stored), body)) << stored;
    }
    EXPECT_EQ("poe\n", inDelta(holding(*on.begin()), holding(*(on.end() - 1)), body)) << "both are on";
}

TEST(SectionLines, OnOff) {
    expectOnOff(&TestRecord::byte, {u8{1}, u8{2}, u8{0x80}, u8{0xff}});
    expectOnOff(&TestRecord::signedByte, {i8{1}, i8{-1}, i8{-128}});
    expectOnOff(&TestRecord::half, {std::uint16_t{1}, std::uint16_t{0x100}, std::uint16_t{0x8000}});
    expectOnOff(&TestRecord::word, {1U, 0x100U, 0x10000U, 0x80000000U});
    expectOnOff(&TestRecord::number, {1, 0x100, -1, INT32_MIN});
}

// --------------------------------------------------------------------------------------------------------------
// numbers

/// Holds what a number is written as, in both modes.
template <class Field, class Number> void expectValue(Field TestRecord::*field, Number stored, const char *number) {
    const Body body = [field](const Lines &lines) { lines.value(field, {"rate %d \n", "rate %d\n"}); };
    const Change set = [=](TestRecord &record) { record.*field = stored; };
    EXPECT_EQ(std::string("rate ") + number + " \n", inFull(set, body));
    EXPECT_EQ(std::string("rate ") + number + "\n", inDelta(set, zeros, body));
    EXPECT_EQ("rate 0\n", inDelta(zeros, set, body));
    EXPECT_EQ("", inDelta(set, set, body));
}

TEST(SectionLines, NumbersOfEachWidth) {
    expectValue(&TestRecord::byte, u8{255}, "255");
    expectValue(&TestRecord::signedByte, i8{-1}, "-1");
    expectValue(&TestRecord::signedByte, i8{-128}, "-128");
    expectValue(&TestRecord::half, std::uint16_t{0x100}, "256");
    expectValue(&TestRecord::half, std::uint16_t{65535}, "65535");
    expectValue(&TestRecord::word, 0x01000000U, "16777216");
    expectValue(&TestRecord::number, -1, "-1");
    expectValue(&TestRecord::number, INT32_MIN, "-2147483648");
    expectValue(&TestRecord::number, INT32_MAX, "2147483647");
    const Change set = [](TestRecord &record) { record.word = UINT32_MAX; };
    const Body body = [](const Lines &lines) { lines.value(&TestRecord::word, "rate %u\n"); };
    EXPECT_EQ("rate 4294967295\n", inFull(set, body));
    EXPECT_EQ("rate 4294967295\n", inDelta(set, zeros, body));
    EXPECT_EQ("rate 0\n", inFull(zeros, body)) << "full mode also writes a zero";
}

// ----------------------------------------------------------------------------------------------------------------
// texts

template <class Field> void expectText(Field TestRecord::*field) {
    const Body body = [field](const Lines &lines) { lines.text(field, {"name %s \n", "name %s\n"}); };
    const auto holding = [field](const char *text) { return [=](TestRecord &record) { record.*field = text; }; };
    EXPECT_EQ("name  \n", inFull(zeros, body));
    EXPECT_EQ("name ab \n", inFull(holding("ab"), body));
    EXPECT_EQ("name abcd \n", inFull(holding("abcd"), body)) << "it fills its field";
    EXPECT_EQ("", inDelta(zeros, zeros, body));
    EXPECT_EQ("name ab\n", inDelta(holding("ab"), zeros, body));
    EXPECT_EQ("name \n", inDelta(zeros, holding("ab"), body));
    EXPECT_EQ("name ab\n", inDelta(holding("ab"), holding("abc"), body));
    EXPECT_EQ("", inDelta(holding("abcd"), holding("abcd"), body));
    EXPECT_EQ("name abcd\n", inDelta(holding("abcd"), holding("abcx"), body));
    const Change beyond = [field](TestRecord &record) {
        record.*field = "ab";
        (record.*field).characters[3] = 'x';
    };
    EXPECT_EQ("name ab \n", inFull(beyond, body));
    EXPECT_EQ("", inDelta(beyond, holding("ab"), body)) << "a byte after the end";
}

TEST(SectionLines, Texts) {
    expectText(&TestRecord::name);
    expectText(&TestRecord::key);
}

// ----------------------------------------------------------------------------------------------------------------
// codes

TEST(SectionLines, CodesWithoutALineOfTheOthers) {
    const Body body = [](const Lines &lines) {
        lines.code(&TestRecord::word, {{0, "mode off\n"}, {1, "mode on\n"}, {0x100, "mode wide\n"}});
    };
    const auto holding = [](std::uint32_t number) { return [=](TestRecord &record) { record.word = number; }; };
    EXPECT_EQ("mode off\n", inFull(zeros, body));
    EXPECT_EQ("mode on\n", inFull(holding(1), body));
    EXPECT_EQ("mode wide\n", inFull(holding(0x100), body));
    EXPECT_EQ("", inFull(holding(0x101), body)) << "compared as a whole word";
    EXPECT_EQ("", inDelta(holding(1), holding(1), body));
    EXPECT_EQ("mode on\n", inDelta(holding(1), zeros, body));
    EXPECT_EQ("mode off\n", inDelta(zeros, holding(2), body));
    EXPECT_EQ("", inDelta(holding(2), holding(1), body)) << "a difference that has no line";
}

TEST(SectionLines, CodesWithALineOfTheOthers) {
    const Body body = [](const Lines &lines) { lines.code(&TestRecord::byte, {{1, "mode on\n"}}, "mode other\n"); };
    const auto holding = [](u8 number) { return [=](TestRecord &record) { record.byte = number; }; };
    EXPECT_EQ("mode on\n", inFull(holding(1), body));
    EXPECT_EQ("mode other\n", inFull(zeros, body));
    EXPECT_EQ("mode other\n", inFull(holding(255), body));
    EXPECT_EQ("mode on\n", inDelta(holding(1), zeros, body));
    EXPECT_EQ("mode other\n", inDelta(zeros, holding(1), body));
    EXPECT_EQ("mode other\n", inDelta(holding(3), holding(2), body)) << "two values of the same line";
    EXPECT_EQ("", inDelta(holding(3), holding(3), body));
}

// --------------------------------------------------------------------------------------------------------------
// servers

TEST(SectionLines, Servers) {
    const Body body = [](const Lines &lines) {
        lines.server([](const TestRecord &record) { return textOf(record.address); }, {"server %s \n", "server %s\n"},
                     {"no server\n", "no server \n"});
    };
    const auto holding = [](Ipv4 address) { return [=](TestRecord &record) { record.address = address; }; };
    const auto one = holding({{192, 0, 2, 1}});
    EXPECT_EQ("no server\n", inFull(zeros, body));
    EXPECT_EQ("server 192.0.2.1 \n", inFull(one, body));
    EXPECT_EQ("", inDelta(zeros, zeros, body));
    EXPECT_EQ("", inDelta(one, one, body));
    EXPECT_EQ("server 192.0.2.1\n", inDelta(one, zeros, body));
    EXPECT_EQ("server 192.0.2.1\n", inDelta(one, holding({{192, 0, 2, 12}}), body));
    EXPECT_EQ("no server \n", inDelta(zeros, one, body));
}

// ---------------------------------------------------------------------------------------------------------------
// blocks

template <class Field> void expectBlocks(Field TestRecord::*field) {
    const Body body = [field](const Lines &lines) {
        lines.blocks(field, {"interface %s \n", "interface %s\n"}, {{1, "on\n"}, {0, "off\n"}});
    };
    const Change some = [field](TestRecord &record) {
        (record.*field)[0] = 1;
        (record.*field)[1] = 2;
        (record.*field)[27] = 1;
    };
    EXPECT_EQ("interface 1-28 \noff\nexit\n", inFull(zeros, body));
    EXPECT_EQ("interface 1,28 \non\nexit\ninterface 3-27 \noff\nexit\n", inFull(some, body));
    EXPECT_EQ("", inDelta(zeros, zeros, body));
    EXPECT_EQ("", inDelta(some, some, body));
    const Change other = [field, some](TestRecord &record) {
        some(record);
        (record.*field)[1] = 3;
    };
    EXPECT_EQ("interface 1,28\non\nexit\ninterface 3-27\noff\nexit\n", inDelta(some, other, body))
        << "all blocks, also for a port that is in none";
    EXPECT_EQ("interface 1-28\noff\nexit\n", inDelta(zeros, some, body));
}

TEST(SectionLines, BlocksOfAValueEach) {
    expectBlocks(&TestRecord::ports);
    expectBlocks(&TestRecord::widePorts);
}

TEST(SectionLines, BlocksOfASet) {
    const Body body = [](const Lines &lines) {
        lines.portBlocks(&TestRecord::members, {"interface %s \n", "interface %s\n"}, {{1, "on\n"}, {0, "off\n"}});
    };
    const auto holding = [](Bitmap<4> members) { return [=](TestRecord &record) { record.members = members; }; };
    const auto edges = holding({{0x81, 0x00, 0x00, 0x08}});
    EXPECT_EQ("interface 1-28 \noff\nexit\n", inFull(zeros, body));
    EXPECT_EQ("interface 1,8,28 \non\nexit\ninterface 2-7,9-27 \noff\nexit\n", inFull(edges, body));
    EXPECT_EQ("", inDelta(edges, edges, body));
    EXPECT_EQ("interface 1,8,28\non\nexit\ninterface 2-7,9-27\noff\nexit\n", inDelta(edges, zeros, body));
    EXPECT_EQ("interface 1-28\noff\nexit\n", inDelta(zeros, edges, body));
    // The bits beyond port 28, that of the CPU among them, are in no block and make no difference.
    const auto beyond = holding({{0x00, 0x00, 0x00, 0xf0}});
    EXPECT_EQ("interface 1-28 \noff\nexit\n", inFull(beyond, body));
    EXPECT_EQ("", inDelta(beyond, zeros, body));
    EXPECT_EQ("", inDelta(zeros, beyond, body));
    EXPECT_EQ("interface 28\non\nexit\ninterface 1-27\noff\nexit\n",
              inDelta(holding({{0x00, 0x00, 0x00, 0xf8}}), beyond, body));
}

// ----------------------------------------------------------------------------------------------------------------
// parts

TEST(SectionLines, Parts) {
    const Body body = [](const Lines &lines) { lines.part(&TestRecord::part).value(&Part::level, "level %d\n"); };
    const Change set = [](TestRecord &record) { record.part.level = 9; };
    EXPECT_EQ("level 9\n", inFull(set, body));
    EXPECT_EQ("level 9\n", inDelta(set, zeros, body));
    EXPECT_EQ("level 0\n", inDelta(zeros, set, body));
    EXPECT_EQ("", inDelta(set, set, body));
    const Body whole = [](const Lines &lines) {
        if (lines.part(&TestRecord::part).changed()) lines.append("changed\n");
    };
    EXPECT_EQ("changed\n", inFull(zeros, whole));
    EXPECT_EQ("changed\n", inDelta(set, zeros, whole));
    EXPECT_EQ("", inDelta([](TestRecord &record) { record.byte = record.table[0].level = 1; }, zeros, whole))
        << "other parts differ";
}

/// Elements of a table are compared with the default's at the same place.
TEST(SectionLines, Elements) {
    const Change set = [](TestRecord &record) {
        record.table[0].level = 5;
        record.table[2].level = 7;
    };
    const Change otherDefaults = [](TestRecord &record) { record.table[1].level = record.table[2].level = 7; };
    const Body byIndex = [](const Lines &lines) {
        const auto table = lines.part(&TestRecord::table);
        for (std::size_t i = 0; i < std::size(table.current); ++i) table[i].value(&Part::level, "level %d\n");
    };
    const Body byElement = [](const Lines &lines) {
        const auto table = lines.part(&TestRecord::table);
        for (const Part &part : table.current) table.elementOf(part).value(&Part::level, "level %d\n");
    };
    for (const Body &body : {byIndex, byElement}) {
        EXPECT_EQ("level 5\nlevel 0\nlevel 7\n", inFull(set, body));
        EXPECT_EQ("level 5\nlevel 0\n", inDelta(set, otherDefaults, body));
    }
}

} // namespace
