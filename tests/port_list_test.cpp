/// Port lists, membership tests, and the shapes and address texts that are built on them.
#include "rows.h"

#include "format/address.h"
#include "format/blocks.h"
#include "format/port_list.h"
#include "format/port_set.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstring>

namespace {

/// What `body` appends; `LineBuffer` must be empty after it.
template <class Body> std::string appended(Body body) {
    clearText();
    body();
    EXPECT_EQ('\0', LineBuffer[0]);
    EXPECT_FALSE(textOverflowed());
    return Temp_Configuration;
}

/// A list of ports, as words or bytes that are `value` there and `other` elsewhere.
template <class Value> std::array<Value, 64> valuesAt(const std::vector<int> &ports, Value value, Value other) {
    std::array<Value, 64> values;
    values.fill(other);
    for (const int port : ports) values[static_cast<std::size_t>(port - 1)] = value;
    return values;
}

std::vector<int> upTo(int last) {
    std::vector<int> ports;
    for (int port = 1; port <= last; ++port) ports.push_back(port);
    return ports;
}

// ---------------------------------------------------------------------------------------------------- the rule of runs

struct Runs {
    std::vector<int> ports; ///< of 28
    const char *list;
};

const std::vector<Runs> runs = {
    {{}, ""},
    {{1}, "1"},
    {{2}, "2"},
    {{28}, "28"},
    {{1, 2}, "1,2"},
    {{27, 28}, "27,28"},
    {{1, 27, 28}, "1,27,28"},
    {{26, 27, 28}, "26-28"},
    {{1, 26, 27, 28}, "1,26-28"},
    {{1, 28}, "1,28"},
    {{1, 2, 3}, "1-3"},
    {{1, 2, 3, 5}, "1-3,5"},
    {{1, 3}, "1,3"},
    {{1, 3, 5, 7}, "1,3,5,7"},
    {{5, 6, 9}, "5,6,9"},
    {{5, 6, 9, 10}, "5,6,9,10"},
    {{5, 6, 9, 10, 11}, "5,6,9-11"},
    {{1, 3, 4, 5, 6, 10, 11}, "1,3-6,10,11"},
    {{2, 3, 4, 6, 7, 8}, "2-4,6-8"},
    {{2, 3, 4, 5, 7, 9, 10, 11, 12, 28}, "2-5,7,9-12,28"},
    {{1, 2, 3, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28}, "1-3,5,7-28"},
    {upTo(27), "1-27"},
    {upTo(28), "1-28"},
};

TEST(PortList, CompressesRuns) {
    for (const Runs &row : runs) {
        const std::string list = row.list;
        const auto words = valuesAt<std::uint32_t>(row.ports, 5, 4);
        const auto bytes = valuesAt<u8>(row.ports, 5, 4);
        EXPECT_EQ(list + " ", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_INT(words.data(), 5)); }));
        EXPECT_EQ(list + " ", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_INT_NUM(words.data(), 5, 28)); }));
        EXPECT_EQ(list + "\n", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER(bytes.data(), 5)); }));
        EXPECT_EQ(list + "\n", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_NUM(bytes.data(), 5, 28)); }));
    }
}

TEST(PortList, LooksAheadWithinItsCountOnly) {
    const auto words = valuesAt<std::uint32_t>(upTo(64), 1, 0);
    const auto bytes = valuesAt<u8>(upTo(64), 1, 0);
    EXPECT_EQ("1-28 ", appended([&] { APPEND_PORT_MEMBER_INT(words.data(), 1); }));
    EXPECT_EQ("1-28\n", appended([&] { APPEND_PORT_MEMBER(bytes.data(), 1); }));
    EXPECT_EQ("1-24\n", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_24(bytes.data(), 1)); }));
    EXPECT_EQ("1-29\n", appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_29(bytes.data(), 1)); }));
    const struct {
        std::int32_t count;
        const char *list;
    } rows[] = {{INT32_MIN, ""}, {-1, ""}, {0, ""}, {1, "1"}, {2, "1,2"}, {3, "1-3"}, {24, "1-24"}, {64, "1-64"}};
    for (const auto &row : rows) {
        const std::string list = row.list;
        EXPECT_EQ(list + " ", appended([&] { APPEND_PORT_MEMBER_INT_NUM(words.data(), 1, row.count); }));
        EXPECT_EQ(list + "\n", appended([&] { APPEND_PORT_MEMBER_NUM(bytes.data(), 1, row.count); }));
    }
    // The very last member of the count ends a run that goes on after it.
    const auto late = valuesAt<u8>({24, 25, 29, 30}, 1, 0);
    EXPECT_EQ("24\n", appended([&] { APPEND_PORT_MEMBER_24(late.data(), 1); }));
    EXPECT_EQ("24,25\n", appended([&] { APPEND_PORT_MEMBER(late.data(), 1); }));
    EXPECT_EQ("24,25,29\n", appended([&] { APPEND_PORT_MEMBER_29(late.data(), 1); }));
}

TEST(PortList, WordsMatchWhole) {
    const auto words = valuesAt<std::uint32_t>({3}, 0x12345678, 0x78);
    EXPECT_EQ("3 ", appended([&] { APPEND_PORT_MEMBER_INT(words.data(), 0x12345678); }));
    EXPECT_EQ("3 ", appended([&] { APPEND_PORT_MEMBER_INT_NUM(words.data(), 0x12345678, 3); }));
    EXPECT_EQ("1,2 ", appended([&] { APPEND_PORT_MEMBER_INT_NUM(words.data(), 0x78, 3); }));
    EXPECT_EQ(" ", appended([&] { APPEND_PORT_MEMBER_INT_NUM(words.data(), 0x5678, 3); }));
    const auto ones = valuesAt<std::uint32_t>({7}, UINT32_MAX, 0);
    EXPECT_EQ("7 ", appended([&] { APPEND_PORT_MEMBER_INT(ones.data(), UINT32_MAX); }));
}

TEST(PortList, BytesMatchTheLowEightBits) {
    const auto bytes = valuesAt<u8>({3}, 0xfe, 0);
    for (const std::uint32_t match : {0xfeU, 0x1feU, 0xfffffffeU}) {
        EXPECT_EQ("3\n", appended([&] { APPEND_PORT_MEMBER(bytes.data(), match); }));
        EXPECT_EQ("3\n", appended([&] { APPEND_PORT_MEMBER_24(bytes.data(), match); }));
        EXPECT_EQ("3\n", appended([&] { APPEND_PORT_MEMBER_29(bytes.data(), match); }));
        EXPECT_EQ("3\n", appended([&] { APPEND_PORT_MEMBER_NUM(bytes.data(), match, 3); }));
    }
    EXPECT_EQ("1,2,4-28\n", appended([&] { APPEND_PORT_MEMBER(bytes.data(), 256); }));
}

TEST(PortList, JoinsTheLineBefore) {
    const auto words = valuesAt<std::uint32_t>({1}, 1, 0);
    EXPECT_EQ("interface 1 \n", appended([&] {
                  append("interface ");
                  APPEND_PORT_MEMBER_INT(words.data(), 1);
                  APPEND_NL();
              }));
}

// ------------------------------------------------------------------------------------------------------------- bitmaps

/// The list of a bitmap, without what it prints on the console.
std::string bitmapList(const std::vector<u8> &bitmap, int bytes, int ports) {
    testing::internal::CaptureStderr();
    const std::string list = appended([&] { EXPECT_EQ(0, APPEND_PORT_MEMBER_NUM_U8BMP(bitmap.data(), bytes, ports)); });
    testing::internal::GetCapturedStderr();
    return list;
}

TEST(PortList, BitmapCountsFromTheLeastSignificantBit) {
    for (int bit = 0; bit < 32; ++bit) {
        std::vector<u8> bitmap(4);
        bitmap[static_cast<std::size_t>(bit / 8)] = static_cast<u8>(1 << bit % 8);
        EXPECT_EQ(std::to_string(bit + 1) + "\n", bitmapList(bitmap, 4, 32));
    }
    for (const Runs &row : runs) {
        std::vector<u8> bitmap(4);
        for (const int port : row.ports) {
            u8 &byte = bitmap[static_cast<std::size_t>((port - 1) / 8)];
            byte = static_cast<u8>(byte | 1 << (port - 1) % 8);
        }
        EXPECT_EQ(std::string(row.list) + "\n", bitmapList(bitmap, 4, 28));
    }
}

TEST(PortList, BitmapGoesOnOverBytes) {
    EXPECT_EQ("8,9\n", bitmapList({0x80, 0x01}, 2, 16));
    EXPECT_EQ("7-9\n", bitmapList({0xc0, 0x01}, 2, 16));
    EXPECT_EQ("8-10\n", bitmapList({0x80, 0x03}, 2, 16));
    EXPECT_EQ("1,8-17\n", bitmapList({0x81, 0xff, 0x01}, 3, 24));
    EXPECT_EQ("8,16\n", bitmapList({0x80, 0x80}, 2, 16));
    EXPECT_EQ("1,3,5,7,9,11\n", bitmapList({0x55, 0x05}, 2, 16));
}

TEST(PortList, BitmapEndsWithTheFirstOfItsTwoCounts) {
    const std::vector<u8> all = {0xff, 0xff, 0xff, 0xff};
    EXPECT_EQ("1-8\n", bitmapList(all, 1, 28));
    EXPECT_EQ("1-16\n", bitmapList(all, 2, 16));
    EXPECT_EQ("1-16\n", bitmapList(all, 2, 17));
    EXPECT_EQ("1-15\n", bitmapList(all, 2, 15));
    EXPECT_EQ("1-28\n", bitmapList(all, 4, 28));
    EXPECT_EQ("1\n", bitmapList(all, 4, 1));
    EXPECT_EQ("\n", bitmapList(all, 0, 28));
    EXPECT_EQ("\n", bitmapList(all, -1, 28));
    EXPECT_EQ("1-28\n", bitmapList(all, INT32_MAX / 8 + 1, 28)); // more bits than can be counted
    EXPECT_EQ("\n", bitmapList(all, 4, 0));
    EXPECT_EQ("\n", bitmapList(all, 4, -1));
}

TEST(PortList, BitmapTellsItsProgressOnTheConsole) {
    testing::internal::CaptureStderr();
    const u8 bitmap[] = {0x87, 0x01};
    APPEND_PORT_MEMBER_NUM_U8BMP(bitmap, 2, 16);
    std::fflush(stderr);
    std::string told = testing::internal::GetCapturedStderr();
    // The line numbers are the source's own.
    std::string withoutLines;
    for (std::size_t i = 0; i < told.size(); ++i) {
        withoutLines += told[i];
        if (told.compare(i, 3, ": L") != 0) continue;
        withoutLines += " L";
        i += 2; // at the L
        while (i + 1 < told.size() && told[i + 1] >= '0' && told[i + 1] <= '9') ++i;
    }
    EXPECT_EQ("APPEND_PORT_MEMBER_NUM_U8BMP: L idx=0\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L count=1\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L idx=2\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L count=2\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L idx=7\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L count=3\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L idx=8\n"
              "APPEND_PORT_MEMBER_NUM_U8BMP: L count=4\n",
              withoutLines);
    EXPECT_NE(told, withoutLines);
    clearText();
}

// --------------------------------------------------------------------------------------------------- membership tests

TEST(Membership, ExaminesItsElementsOnly) {
    for (int port = 1; port <= 30; ++port) {
        const auto words = valuesAt<std::uint32_t>({port}, 9, 1);
        const auto bytes = valuesAt<u8>({port}, 9, 1);
        EXPECT_EQ(port <= 28, CHECK_HAS_MEMBER(bytes.data(), 9)) << port;
        EXPECT_EQ(port <= 24, CHECK_HAS_MEMBER_24(bytes.data(), 9)) << port;
        EXPECT_EQ(port <= 28, CHECK_HAS_MEMBER_INT(words.data(), 9)) << port;
        for (int count = -1; count <= 30; ++count)
            EXPECT_EQ(port <= count, CHECK_HAS_MEMBER_INT_NUM(words.data(), 9, count)) << port << " of " << count;
    }
    const auto words = valuesAt<std::uint32_t>({}, 9, 1);
    EXPECT_EQ(0, CHECK_HAS_MEMBER_INT_NUM(words.data(), 1, 0));
    EXPECT_EQ(0, CHECK_HAS_MEMBER_INT_NUM(words.data(), 1, INT32_MIN));
    EXPECT_EQ(1, CHECK_HAS_MEMBER_INT_NUM(words.data(), 1, 1));
}

TEST(Membership, ComparesBytesInEightBitsAndWordsWhole) {
    const auto bytes = valuesAt<u8>({3}, 0, 7);
    EXPECT_EQ(1, CHECK_HAS_MEMBER(bytes.data(), 256));
    EXPECT_EQ(1, CHECK_HAS_MEMBER_24(bytes.data(), 256));
    EXPECT_EQ(1, CHECK_HAS_MEMBER(bytes.data(), 0xffffff07));
    EXPECT_EQ(1, CHECK_HAS_MEMBER_24(bytes.data(), 0xffffff07));
    EXPECT_EQ(0, CHECK_HAS_MEMBER(bytes.data(), 257));
    EXPECT_EQ(0, CHECK_HAS_MEMBER_24(bytes.data(), 257));
    const auto words = valuesAt<std::uint32_t>({3}, 0, 0x80000000);
    EXPECT_EQ(0, CHECK_HAS_MEMBER_INT(words.data(), 256));
    EXPECT_EQ(1, CHECK_HAS_MEMBER_INT(words.data(), 0x80000000));
    EXPECT_EQ(0, CHECK_HAS_MEMBER_INT_NUM(words.data(), 256, 28));
    EXPECT_EQ(1, CHECK_HAS_MEMBER_INT_NUM(words.data(), 0x80000000, 28));
}

// ------------------------------------------------------------------------------------------------- lists of other
// things

/// The list of `flags` written over "old"; every byte after its NUL must have been left.
std::string array2Str(const std::vector<u8> &flags, int first, int last) {
    char text[400];
    std::memset(text, '~', sizeof text);
    std::strcpy(text, "old");
    EXPECT_EQ(text, Array2Str(text, flags.data(), first, last));
    for (std::size_t i = std::max(std::strlen(text), std::size_t{3}) + 1; i < sizeof text; ++i)
        EXPECT_EQ('~', text[i]) << i;
    return text;
}

TEST(Array2Str, ListsByTheRuleOfRuns) {
    for (const Runs &row : runs) {
        std::vector<u8> flags(28);
        for (const int port : row.ports) flags[static_cast<std::size_t>(port - 1)] = 1;
        EXPECT_EQ(row.ports.empty() ? "old" : row.list, array2Str(flags, 1, 27));
    }
}

TEST(Array2Str, CountsFromItsFirstNumber) {
    EXPECT_EQ("0", array2Str({1}, 0, 0));
    EXPECT_EQ("0-7", array2Str({1, 1, 1, 1, 1, 1, 1, 1}, 0, 7));
    EXPECT_EQ("1-8", array2Str({1, 1, 1, 1, 1, 1, 1, 1}, 1, 7));
    EXPECT_EQ("9,11", array2Str({1, 0, 1}, 9, 2));
    EXPECT_EQ("99-101", array2Str({1, 1, 1}, 99, 2));
    EXPECT_EQ("-1,0", array2Str({1, 1}, -1, 1));
    EXPECT_EQ("-1-1", array2Str({1, 1, 1}, -1, 2));
    EXPECT_EQ("-12", array2Str({1}, -12, 0));
    EXPECT_EQ("2147483647", array2Str({1}, INT_MAX, 0));
    EXPECT_EQ("-2147483648", array2Str({1}, INT_MIN, 0));
}

TEST(Array2Str, AnyFlagButZeroCountsUpToTheLastIndex) {
    EXPECT_EQ("1-4", array2Str({1, 2, 0x80, 0xff}, 1, 3));
    EXPECT_EQ("1-3", array2Str({1, 1, 1, 1}, 1, 2));
    EXPECT_EQ("1,2", array2Str({1, 1, 1, 1}, 1, 1));
    EXPECT_EQ("1", array2Str({1, 1, 1, 1}, 1, 0));
    EXPECT_EQ("old", array2Str({1, 1, 1, 1}, 1, -1));
    EXPECT_EQ("old", array2Str({0, 0, 0, 1}, 1, 2)) << "no flag leaves the text";
    EXPECT_EQ("4", array2Str({0, 0, 0, 1}, 1, 3));
}

TEST(StormRate, Words) {
    const char *const words[] = {"disable", "1",  "2",  "4",  "8",   "16",  "32",  "64",   "128",  "256",  "512",
                                 "1k",      "2k", "4k", "8k", "16k", "32k", "64k", "128k", "256k", "512k", "1024k"};
    ASSERT_EQ(22U, std::size(words));
    for (std::uint32_t code = 0; code < 22; ++code) EXPECT_STREQ(words[code], GET_STORM_RATE_STR(code)) << code;
    for (const std::uint32_t code : {22U, 23U, 256U, 0x80000000U, UINT32_MAX})
        EXPECT_STREQ("unknown", GET_STORM_RATE_STR(code)) << code;
}

// -------------------------------------------------------------------------------------------------------------- shapes

/// Ports by their numbers.
PortSet portSet(std::initializer_list<std::size_t> numbers) {
    PortSet ports;
    for (const std::size_t number : numbers) ports.add(number - 1);
    return ports;
}

TEST(PortSets, AreArgumentsOfAFormat) {
    EXPECT_EQ("interface 3,4 \n", appended([] { append("interface %s \n", portSet({3, 4})); }));
    EXPECT_EQ("interface 3-5\n", appended([] { append("interface %s\n", portSet({5, 3, 4})); }));
    EXPECT_EQ("interface \n", appended([] { append("interface %s\n", PortSet{}); }));
    EXPECT_EQ("vlan 7 ports 1-28 mode\n", appended([] { append("vlan %d ports %s mode\n", 7, PortSet{0x0fffffff}); }));
    EXPECT_EQ("1-32\n", appended([] { append("%s\n", PortSet{UINT32_MAX}); }));
    EXPECT_EQ("32\n", appended([] { append("%s\n", PortSet{0x80000000}); }));
    EXPECT_EQ("1,32\n", appended([] { append("%s\n", PortSet{0x80000001}); }));
    EXPECT_EQ("31,32\n", appended([] { append("%s\n", PortSet{0xc0000000}); }));
    EXPECT_EQ("interface 3,4,5,28\n", appended([] { append("interface %s\n", EachPort{portSet({3, 4, 5, 28})}); }));
    EXPECT_EQ("interface \n", appended([] { append("interface %s\n", EachPort{}); }));
}

TEST(PortSets, ListByTheRuleOfRuns) {
    for (const Runs &row : runs) {
        PortSet ports;
        for (const int port : row.ports) ports.add(static_cast<std::size_t>(port - 1));
        EXPECT_EQ(std::string(row.list) + "\n", appended([&] { append("%s\n", ports); }));
    }
}

TEST(PortSets, HoldWhatWasAdded) {
    EXPECT_TRUE(PortSet{}.empty());
    const PortSet ports = portSet({1, 28});
    EXPECT_FALSE(ports.empty());
    EXPECT_EQ(0x08000001U, ports.bits);
    EXPECT_TRUE(ports.has(0));
    EXPECT_FALSE(ports.has(1));
    EXPECT_TRUE(ports.has(27));
    EXPECT_TRUE(ports == portSet({28, 1}));
    EXPECT_FALSE(ports == portSet({1}));
    PortValues<28> values{};
    values[2] = values[27] = 9;
    EXPECT_TRUE(portsWith(values, 9) == portSet({3, 28}));
    EXPECT_TRUE(portsWith(values, 8).empty());
    EXPECT_EQ(26, std::popcount(portsWith(values, 0).bits));
}

TEST(Blocks, OneForEachValueInTheirOrder) {
    PortValues<28> values;
    values.fill(7);
    values[0] = 1;
    values[27] = 0;
    const auto write = [&] {
        appendValueBlocks("interface %s \n", values, {{1, "on\n"}, {0, "off\n"}, {2, "never\n"}});
    };
    EXPECT_EQ("interface 1 \non\nexit\ninterface 28 \noff\nexit\n", appended(write));
    values[27] = 256;
    EXPECT_EQ("interface 1 \non\nexit\n", appended(write));
    values = {};
    values[27] = 1;
    EXPECT_EQ("interface 28\non\nexit\ninterface 1-27\noff\nexit\n", appended([&] {
                  appendValueBlocks("interface %s\n", values, {{1, "on\n"}, {0, "off\n"}});
              }));
    PortValues<24> fewer{};
    fewer[23] = 1;
    EXPECT_EQ("interface 24 \non\nexit\n", appended([&] {
                  appendValueBlocks("interface %s \n", fewer, {{1, "on\n"}});
              }));
}

TEST(Blocks, LineOfAValue) {
    EXPECT_EQ("two\n", appended([] { EXPECT_TRUE(appendValueLine(2, {{1, "one\n"}, {2, "two\n"}})); }));
    EXPECT_EQ("", appended([] { EXPECT_FALSE(appendValueLine(258, {{1, "one\n"}, {2, "two\n"}})); }));
}

TEST(Blocks, GatherFieldsOfRecords) {
    static ConfigImage image;
    std::memset(static_cast<void *>(&image), 0, sizeof image);
    image.ports[0].speed = 0x01020304;
    image.ports[27].speed = UINT32_MAX;
    const PortValues<28> speeds = valuesOf(image.ports, &PortSettings::speed);
    EXPECT_EQ(0x01020304U, speeds[0]);
    EXPECT_EQ(0U, speeds[1]);
    EXPECT_EQ(UINT32_MAX, speeds[27]);

    image.poePorts[23].priority = 0xfe;
    image.poePorts[22].budget = -3;
    EXPECT_EQ(0xfeU, valuesOf(image.poePorts, &PoePort::priority)[23]);
    EXPECT_EQ(0xfffffffdU, valuesOf(image.poePorts, &PoePort::budget)[22]);
    image.vlanPorts[27].accessVlan = 0xfffe;
    EXPECT_EQ(0xfffeU, valuesOf(image.vlanPorts, &VlanPort::accessVlan)[27]);

    image.rateLimits.egress[27] = 0x80000001;
    EXPECT_EQ(0x80000001U, valuesOf(image.rateLimits.egress)[27]);
    image.stpPorts.cost[0] = -1;
    EXPECT_EQ(0xffffffffU, valuesOf(image.stpPorts.cost)[0]);

    for (int i = 0; i < 28; ++i) image.lacp.key[i] = static_cast<u8>(i + 200);
    const PortValues<28> keys = valuesOf(image.lacp.key);
    for (std::size_t i = 0; i < 28; ++i) EXPECT_EQ(i + 200, keys[i]);

    image.ports[27].description = "last";
    const auto texts = textsOf(image.ports, &PortSettings::description);
    EXPECT_EQ(28U, texts.size());
    EXPECT_STREQ("last", texts[27].characters);
    EXPECT_TRUE(texts[26].empty());
}

TEST(Blocks, GatherBitmaps) {
    for (unsigned bit = 0; bit < 32; ++bit) {
        PortBitmap bitmap = {};
        bitmap.set(bit);
        const PortValues<28> values = valuesOf(bitmap);
        const PortSet ports = portsIn(bitmap);
        for (std::size_t port = 0; port < 28; ++port) {
            EXPECT_EQ(port == bit, values[port]);
            EXPECT_EQ(port == bit, ports.has(port));
        }
        EXPECT_EQ(bit < 28, std::popcount(ports.bits) == 1);
        EXPECT_EQ(bit >= 28, samePorts(bitmap, PortBitmap{}));
        EXPECT_EQ(bit >= 28, noPort(bitmap));
    }
}

TEST(Blocks, GroupsGoByTheirLowestPort) {
    PortValues<28> values{};
    values[0] = 5;
    values[1] = 9;
    values[4] = 5;
    values[27] = 9;
    values[26] = 7;
    const auto listed = [](const PortGroups &groups) {
        return appended([&] {
            for (const PortGroup &group : groups) append("%u: %s\n", group.value, group.ports);
        });
    };
    EXPECT_EQ("5: 1,5\n9: 2,28\n7: 27\n", listed(groupsOf(values, 0)));

    // A port whose own value is the marker is never written; zero is a value like others then.
    const PortValues<4> few = {9, 0, 9, 0};
    EXPECT_EQ("0: 2,4\n", listed(groupsOf(few, 9)));
    EXPECT_EQ("9: 1,3\n0: 2,4\n", listed(groupsOf(few, UINT32_MAX)));
    PortValues<28> distinct;
    for (std::size_t i = 0; i < 28; ++i) distinct[i] = static_cast<std::uint32_t>(i + 1);
    EXPECT_EQ(28U, groupsOf(distinct, 0).count);
    EXPECT_EQ("", listed(groupsOf(PortValues<28>{}, 0)));
}

TEST(Blocks, NamesShareABlockWithoutRanges) {
    std::array<Text<4>, 6> names = {};
    for (const std::size_t i : {1U, 2U, 3U, 5U}) names[i] = "ab";
    names[4] = "abcd";
    const auto none = [](std::size_t) { return Text<4>{}; };
    EXPECT_EQ("interface 2,3,4,6\nname ab \nexit\n"
              "interface 5\nname abcd \nexit\n",
              appended([&] { appendNameBlocks("interface %s\n", names, none, none, "name %s \n"); }));
    // Both rules are asked for the right port.
    std::vector<std::size_t> defaults;
    std::vector<std::size_t> marks;
    appended([&] {
        appendNameBlocks(
            "interface %s\n", names,
            [&](std::size_t port) {
                defaults.push_back(port);
                return Text<4>{};
            },
            [&](std::size_t port) {
                marks.push_back(port);
                return Text<4>{};
            },
            "name %s\n");
    });
    EXPECT_EQ((std::vector<std::size_t>{0, 1, 2, 3, 4, 5}), defaults);
    EXPECT_EQ((std::vector<std::size_t>{1, 1, 1}), marks);
}

TEST(Blocks, MarkThatIsNotTheDefaultIsWrittenAgain) {
    std::array<Text<4>, 3> names = {};
    names[0] = "ab";
    names[2] = "ab";
    const auto none = [](std::size_t) { return Text<4>{}; };
    const auto mark = [](std::size_t) {
        Text<4> text = {};
        text = "done";
        return text;
    };
    EXPECT_EQ("interface 1,3\nname ab\nexit\n"
              "interface 3\nname done\nexit\n",
              appended([&] { appendNameBlocks("interface %s\n", names, none, mark, "name %s\n"); }));
}

// -------------------------------------------------------------------------------------------------------- address
// texts

constexpr Ipv4 noIpv4 = {};
constexpr Ipv6 noIpv6 = {};
constexpr Ipv4 ipv4 = {{192, 0, 2, 255}};
constexpr Ipv6 ipv6 = {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xab, 0xcd}};
constexpr Ipv6 mapped = {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, 1}};

TEST(AddressTexts, Forms) {
    EXPECT_STREQ("192.0.2.255", textOf(ipv4).text);
    EXPECT_STREQ("0.0.0.0", textOf(noIpv4).text);
    EXPECT_STREQ("2001:db8::abcd", textOf(ipv6).text);
    EXPECT_STREQ("::", textOf(noIpv6).text);
    EXPECT_STREQ("::ffff:192.0.2.1", textOf(mapped).text);
    EXPECT_TRUE(textOf(noIpv4).isUnset());
    EXPECT_FALSE(textOf(ipv4).isUnset());
    EXPECT_FALSE(textOf(noIpv6).isUnset());
    EXPECT_FALSE(AddressText{}.isUnset());
    EXPECT_TRUE(isZero(noIpv4));
    EXPECT_TRUE(isZero(noIpv6));
    for (std::size_t octet = 0; octet < 16; ++octet) {
        Ipv6 address = {};
        address.octets[octet] = 1;
        EXPECT_FALSE(isZero(address)) << octet;
        if (octet < 4) {
            EXPECT_FALSE(isZero(Ipv4{{octet == 0, octet == 1, octet == 2, octet == 3}})) << octet;
        }
    }
    const u8 bytes[2] = {0xab, 0x0f};
    EXPECT_STREQ("AB0F", hexOf(bytes).text);
    EXPECT_EQ("via 192.0.2.255 port 1-3\n", appended([] {
                  PortBitmap ports = {};
                  ports.set(0).set(1).set(2);
                  append("via %s port %s\n", textOf(ipv4), textOf(ports));
              }));
}

TEST(AddressTexts, Choices) {
    EXPECT_STREQ("192.0.2.255", ipv4First(ipv4, ipv6).text);
    EXPECT_STREQ("192.0.2.255", ipv4First(ipv4, noIpv6).text);
    EXPECT_STREQ("2001:db8::abcd", ipv4First(noIpv4, ipv6).text);
    EXPECT_STREQ("::ffff:192.0.2.1", ipv4First(noIpv4, mapped).text);
    EXPECT_STREQ("0.0.0.0", ipv4First(noIpv4, noIpv6).text);

    EXPECT_STREQ("2001:db8::abcd", ipv6First(ipv4, ipv6).text);
    EXPECT_STREQ("192.0.2.255", ipv6First(ipv4, noIpv6).text);
    EXPECT_STREQ("2001:db8::abcd", ipv6First(noIpv4, ipv6).text);
    EXPECT_STREQ("0.0.0.0", ipv6First(noIpv4, noIpv6).text);
    EXPECT_STREQ("::ffff:192.0.2.1", ipv6First(ipv4, mapped).text);

    EXPECT_STREQ("192.0.2.1", mappedOrIpv6(mapped).text);
    EXPECT_STREQ("0.0.0.0", mappedOrIpv6(noIpv6).text);
    EXPECT_STREQ("2001:db8::abcd", mappedOrIpv6(ipv6).text);
}

TEST(AddressTexts, AreComparedAsTexts) {
    AddressText longer = textOf(ipv6);
    AddressText reused = longer;
    writeIpv4First(ipv4, ipv6, reused);
    EXPECT_STREQ("192.0.2.255", reused.text);
    EXPECT_TRUE(reused == textOf(ipv4)) << "whatever was after the NUL";
    EXPECT_FALSE(reused == longer);
    writeIpv4First(noIpv4, ipv6, reused);
    EXPECT_TRUE(reused == longer);
}

TEST(PortSets, TextAndComplement) {
    PortBitmap ports = {};
    EXPECT_STREQ("", textOf(ports).text);
    ports.set(0).set(1).set(27).set(cpuPort).set(31);
    EXPECT_STREQ("1,2,28", textOf(ports).text) << "no port after the last";
    const PortBitmap rest = complementOf(ports);
    EXPECT_STREQ("3-27", textOf(rest).text);
    EXPECT_EQ(0x07, rest.bytes[3]) << "ports 25 to 27, nothing from the CPU port on";
    EXPECT_STREQ("1-28", textOf(complementOf(PortBitmap{})).text);
    EXPECT_TRUE(textOf(ports) == textOf(PortBitmap(ports).clear(31)));
    EXPECT_FALSE(textOf(ports) == textOf(rest));
}

} // namespace
