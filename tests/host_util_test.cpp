/// The workstation stand-in: utility operations.
#include "host.h"

#include "platform/host/message.h"

#include "platform/image.h"
#include "platform/util.h"

namespace {

TEST(UtilBitmap, ChecksEachBitLeastSignificantFirst) {
    for (int set = 0; set < 40; ++set) {
        unsigned char bitmap[5] = {};
        bitmap[set / 8] = static_cast<unsigned char>(1 << set % 8);
        for (int bit = 0; bit < 40; ++bit) EXPECT_EQ(utilBitmapCheck(bitmap, bit), bit == set ? 1 : 0) << bit;
    }
    const unsigned char bytes[] = {0x01, 0x80, 0x10, 0xff};
    EXPECT_EQ(utilBitmapCheck(bytes, 0), 1);
    EXPECT_EQ(utilBitmapCheck(bytes, 15), 1);
    EXPECT_EQ(utilBitmapCheck(bytes, 20), 1);
    EXPECT_EQ(utilBitmapCheck(bytes, 31), 1);
    EXPECT_EQ(utilBitmapCheck(bytes, 1), 0);
}

TEST(UtilBitmap, IsAllClearLooksAtTheFirstBitsOnly) {
    for (int set = 0; set < 32; ++set) {
        unsigned char bitmap[4] = {};
        bitmap[set / 8] = static_cast<unsigned char>(1 << set % 8);
        for (int count = 0; count <= 32; ++count)
            EXPECT_EQ(utilBitmapIsAllClear(bitmap, count), set >= count ? 1 : 0) << set << " of " << count;
    }
    const unsigned char none[4] = {};
    EXPECT_EQ(utilBitmapIsAllClear(none, 32), 1);
}

TEST(Names, AreShownAsTheyAreOrAsBytes) {
    const struct {
        const char *name;
        const char *shown;
    } rows[] = {
        {"", ""},
        {" ~", " ~"},
        {"\x1f", "\\x1f"},
        {"\x7f", "\\x7f"},
        {"a\nb", "a\\x0ab"},
        // Two bytes: no overlong ASCII, no control characters.
        {"\xc1\xbf", "\\xc1\\xbf"},
        {"\xc2\x9f", "\\xc2\\x9f"},
        {"\xc2\xa0", "\xc2\xa0"},
        {"\xdf\xbf", "\xdf\xbf"},
        {"\xc3(", "\\xc3("},
        {"\xc3\xc3", "\\xc3\\xc3"},
        {"\xc3", "\\xc3"},
        {"\xbf", "\\xbf"},
        // Three: nothing overlong, no surrogates.
        {"\xe0\x9f\xbf", "\\xe0\\x9f\\xbf"},
        {"\xe0\xa0\x80", "\xe0\xa0\x80"},
        {"\xe1\x80\x80", "\xe1\x80\x80"},
        {"\xe1\x80(", "\\xe1\\x80("},
        {"\xed\x9f\xbf", "\xed\x9f\xbf"},
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},
        {"\xef\xbf\xbf", "\xef\xbf\xbf"},
        {"\xe2\x82", "\\xe2\\x82"},
        // Four: nothing overlong, nothing beyond Unicode.
        {"\xf0\x8f\xbf\xbf", "\\xf0\\x8f\\xbf\\xbf"},
        {"\xf0\x90\x80\x80", "\xf0\x90\x80\x80"},
        {"\xf4\x8f\xbf\xbf", "\xf4\x8f\xbf\xbf"},
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
        {"\xf5\x80\x80\x80", "\\xf5\\x80\\x80\\x80"},
        {"\xf0\x9f\x98", "\\xf0\\x9f\\x98"},
    };
    for (const auto &row : rows) EXPECT_STREQ(Shown(row.name).text(), row.shown);
}

TEST(Names, AreShownUpToALength) {
    const std::string longest(4096, 'n');
    const auto tooLong = std::make_unique<Shown>((longest + "n").c_str());
    EXPECT_EQ(tooLong->text(), longest + "...");
    EXPECT_EQ(std::make_unique<Shown>(longest.c_str())->text(), longest);
    EXPECT_EQ(std::make_unique<Shown>((longest + "n").data(), 4097, 5000)->text(), longest + "...");
    // The longest text of all: every byte takes four characters.
    std::string allEscaped;
    for (int i = 0; i < 4096; ++i) allEscaped += "\\x01";
    EXPECT_EQ(std::make_unique<Shown>(std::string(4097, '\x01').c_str())->text(), allEscaped + "...");
    EXPECT_STREQ(std::make_unique<Shown>("abc", 3, 3)->text(), "abc");
    EXPECT_STREQ(std::make_unique<Shown>("abc", 3, 2)->text(), "ab...");
    EXPECT_STREQ(std::make_unique<Shown>("a\xc3\xa4", 3, 2)->text(), "a\\xc3...");
}

TEST(UtilBitmap, SetAllSetsTheFirstBitsOnly) {
    const struct {
        int count;
        std::vector<unsigned char> expected;
    } cases[] = {
        {0, {0, 0, 0, 0}},
        {1, {0x01, 0, 0, 0}},
        {7, {0x7f, 0, 0, 0}},
        {8, {0xff, 0, 0, 0}},
        {9, {0xff, 0x01, 0, 0}},
        {27, {0xff, 0xff, 0xff, 7}},
        {28, {0xff, 0xff, 0xff, 0x0f}},
        {29, {0xff, 0xff, 0xff, 0x1f}},
        {32, {0xff, 0xff, 0xff, 0xff}},
    };
    for (const auto &row : cases) {
        std::vector<unsigned char> bitmap(4);
        utilBitmapSetAll(bitmap.data(), row.count);
        EXPECT_EQ(bitmap, row.expected) << row.count;
    }
    std::vector<unsigned char> longer(12);
    utilBitmapSetAll(longer.data(), 81);
    EXPECT_EQ(longer,
              (std::vector<unsigned char>{0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x01, 0}));
    const std::vector<unsigned char> source = {0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0a, 0xff, 0xff};
    utilBitmapNand(longer.data(), source.data(), 81);
    EXPECT_EQ(longer,
              (std::vector<unsigned char>{0xfe, 0xfd, 0xfc, 0xfb, 0xfa, 0xf9, 0xf8, 0xf7, 0xf6, 0xf5, 0x00, 0}));
    unsigned char kept[] = {0x80, 0x40};
    utilBitmapSetAll(kept, 3);
    EXPECT_EQ(kept[0], 0x87);
    EXPECT_EQ(kept[1], 0x40);
}

TEST(UtilBitmap, NandClearsWhatTheSourceSetsWithinTheCount) {
    const struct {
        int count;
        std::vector<unsigned char> source, expected;
    } cases[] = {
        {29, {0, 0, 0, 0}, {0xff, 0xff, 0xff, 0xff}},       {29, {0xff, 0xff, 0xff, 0xff}, {0, 0, 0, 0xe0}},
        {28, {0xff, 0xff, 0xff, 0xff}, {0, 0, 0, 0xf0}},    {27, {0xff, 0xff, 0xff, 0xff}, {0, 0, 0, 0xf8}},
        {29, {0, 0, 0, 0x10}, {0xff, 0xff, 0xff, 0xef}},    {28, {0, 0, 0, 0x10}, {0xff, 0xff, 0xff, 0xff}},
        {29, {0x05, 0x80, 0, 0}, {0xfa, 0x7f, 0xff, 0xff}}, {0, {0xff, 0xff, 0xff, 0xff}, {0xff, 0xff, 0xff, 0xff}},
        {32, {0, 0, 0, 0x80}, {0xff, 0xff, 0xff, 0x7f}},
    };
    for (const auto &row : cases) {
        std::vector<unsigned char> bitmap(4, 0xff);
        utilBitmapNand(bitmap.data(), row.source.data(), row.count);
        EXPECT_EQ(bitmap, row.expected) << row.count;
    }
    unsigned char clear[] = {0x02};
    const unsigned char source[] = {0x01};
    utilBitmapNand(clear, source, 8);
    EXPECT_EQ(clear[0], 0x02) << "a bit that is not set stays so";
}

TEST(UtilPortList, CompressesRuns) {
    const struct {
        std::vector<int> ports;
        const char *expected;
    } cases[] = {
        {{}, ""},
        {{1}, "1"},
        {{28}, "28"},
        {{1, 2}, "1,2"},
        {{27, 28}, "27,28"},
        {{1, 2, 3}, "1-3"},
        {{26, 27, 28}, "26-28"},
        {{1, 27, 28}, "1,27,28"},
        {{1, 26, 27, 28}, "1,26-28"},
        {{1, 2, 3, 5}, "1-3,5"},
        {{5, 6, 9}, "5,6,9"},
        {{1, 3, 4, 5, 6, 10, 11}, "1,3-6,10,11"},
        {{1, 2, 4, 5, 7, 8}, "1,2,4,5,7,8"},
        {{8, 9}, "8,9"},
        {{7, 8, 9, 10}, "7-10"},
        {{1, 2, 3, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28},
         "1-3,5,7-28"},
        {{29}, ""}, // the CPU port is no front port
        {{32}, ""},
        {{28, 29}, "28"},
        {{26, 27, 28, 29, 30}, "26-28"},
        {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29},
         "1-28"},
    };
    for (const auto &row : cases) {
        PortBitmap bitmap = {};
        for (int port : row.ports) bitmap.set(static_cast<unsigned>(port - 1));
        Marked<UTIL_PORT_LIST_SIZE> text;
        utilPortBitmap2str(text.text, bitmap.bytes, 28, 28);
        EXPECT_EQ(text.written(), row.expected);
    }
}

TEST(UtilPortList, CountsAsFarAsThePortsGo) {
    const unsigned char all[4] = {0xff, 0xff, 0xff, 0xff};
    const struct {
        int portCount, maximumPort;
        const char *expected;
    } cases[] = {{28, 28, "1-28"}, {27, 28, "1-27"}, {28, 27, "1-27"}, {29, 29, "1-29"},
                 {2, 28, "1,2"},   {1, 28, "1"},     {0, 28, ""},      {28, 0, ""}};
    for (const auto &row : cases) {
        Marked<UTIL_PORT_LIST_SIZE> text;
        utilPortBitmap2str(text.text, all, row.portCount, row.maximumPort);
        EXPECT_EQ(text.written(), row.expected);
    }
}

TEST(UtilPortList, TheLongestListFits) {
    PortBitmap bitmap = {};
    for (unsigned bit = 0; bit < 28; ++bit)
        if (bit % 3 != 2) bitmap.set(bit);
    Marked<UTIL_PORT_LIST_SIZE> text;
    utilPortBitmap2str(text.text, bitmap.bytes, 28, 28);
    EXPECT_EQ(text.written(), "1,2,4,5,7,8,10,11,13,14,16,17,19,20,22,23,25,26,28");
}

TEST(UtilPortList, AListOfManyMorePortsIsCutAtAWholePort) {
    const std::vector<unsigned char> everySecond(16, 0x55);
    Marked<UTIL_PORT_LIST_SIZE> text;
    utilPortBitmap2str(text.text, everySecond.data(), 128, 128);
    EXPECT_EQ(text.written(), "1,3,5,7,9,11,13,15,17,19,21,23,25,27,29,31,33,35,37,39,41,43,45,47,49,51,53,55");

    // The next port would end at the last byte, which is the NUL's.
    Bitmap<16> pairs = {};
    for (unsigned bit = 0; bit < 128; ++bit)
        if (bit % 3 != 2) pairs.set(bit);
    Marked<UTIL_PORT_LIST_SIZE> full;
    utilPortBitmap2str(full.text, pairs.bytes, 128, 128);
    EXPECT_EQ(full.written(), "1,2,4,5,7,8,10,11,13,14,16,17,19,20,22,23,25,26,28,29,31,32,34,35,37,38,40,41");
}

TEST(UtilAddress, Ipv4) {
    const struct {
        unsigned char address[4];
        const char *expected;
    } cases[] = {{{0, 0, 0, 0}, "0.0.0.0"},
                 {{192, 0, 2, 1}, "192.0.2.1"},
                 {{255, 255, 255, 255}, "255.255.255.255"},
                 {{0, 0, 0, 1}, "0.0.0.1"},
                 {{1, 0, 0, 0}, "1.0.0.0"}};
    for (const auto &row : cases) {
        Marked<UTIL_ADDRESS_SIZE> text;
        utilIp2IpStr(row.address, text.text);
        EXPECT_EQ(text.written(), row.expected);
    }
    EXPECT_NE(utilIpIsZero(0), 0);
    EXPECT_EQ(utilIpIsZero(1), 0);
    EXPECT_EQ(utilIpIsZero(0x80000000), 0);
    EXPECT_EQ(utilIpIsZero(0xc0000200), 0);
}

TEST(UtilAddress, Ipv6) {
    const struct {
        unsigned char address[16];
        const char *expected;
        int zero, ipv4;
    } cases[] = {
        {{}, "::", 1, 0},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}, "::1", 0, 0},
        {{1}, "100::", 0, 0},
        {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1}, "2001:db8::1", 0, 0},
        {{0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0xab, 0xcd}, "2001:db8:0:1::abcd", 0, 0},
        {{0x20, 0x01, 0x0d, 0xb8, 0, 1, 0, 2, 0, 3, 0, 4, 0, 5, 0, 6}, "2001:db8:1:2:3:4:5:6", 0, 0},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, 1}, "::ffff:192.0.2.1", 0, 1},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 0, 0, 0, 0}, "::ffff:0.0.0.0", 0, 1},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0xff, 0xff, 192, 0, 2, 1}, "::1:ffff:c000:201", 0, 0},
        {{1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 192, 0, 2, 1}, "100::ffff:c000:201", 0, 0},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xfe, 0xff, 192, 0, 2, 1}, "::feff:c000:201", 0, 0},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xfe, 192, 0, 2, 1}, "::fffe:c000:201", 0, 0},
        {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 192, 0, 2, 1}, "::192.0.2.1", 0, 0},
        {{0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff},
         "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff",
         0,
         0},
    };
    for (const auto &row : cases) {
        unsigned char odd[17];
        std::memcpy(odd + 1, row.address, 16);
        Marked<UTIL_ADDRESS_SIZE> text;
        EXPECT_EQ(utilIPv6Addr2Str(text.text, odd + 1), text.text);
        EXPECT_EQ(text.written(), row.expected);
        EXPECT_EQ(utilIpv6AddrIsZero(odd + 1) != 0, row.zero != 0) << row.expected;
        EXPECT_EQ(utilIpv6AddrIsIpv4(odd + 1) != 0, row.ipv4 != 0) << row.expected;
    }
}

TEST(UtilHex, UpperCaseTwoDigitsAByte) {
    const unsigned char bytes[] = {0x08, 0x00, 0xff, 0xab, 0xcd};
    Marked<32> text;
    utilAry2Str(bytes, 2, text.text);
    EXPECT_EQ(text.written(), "0800");
    Marked<32> more;
    utilAry2Str(bytes, 5, more.text);
    EXPECT_EQ(more.written(), "0800FFABCD");
    Marked<32> none;
    utilAry2Str(bytes, 0, none.text);
    EXPECT_EQ(none.written(), "");
}

TEST(UtilFields, AreSplitAtEachSeparator) {
    const struct {
        const char *text;
        std::vector<std::string> expected;
    } cases[] = {
        {"08:00,1,3,2025", {"08:00", "1", "3", "2025"}},
        {"", {"", "", "", ""}},
        {"one", {"one", "", "", ""}},
        {"one,", {"one", "", "", ""}},
        {",one", {"", "one", "", ""}},
        {",,,", {"", "", "", ""}},
        {"a,,c,d", {"a", "", "c", "d"}},
        {"a,b,c,d,e,f", {"a", "b", "c", "d,e,f"}},
        {"a,b,c,", {"a", "b", "c", ""}},
        {"a,b", {"a", "b"}},
        {"a,b,c", {"a", "b,c"}},
        {"a,b,c", {"a,b,c"}},
        {" a , b ", {" a ", " b "}},
    };
    for (const auto &row : cases) {
        Marked<UTIL_FIELD_SIZE> fields[5];
        char raw[5][UTIL_FIELD_SIZE];
        std::memset(raw, '~', sizeof raw);
        utilParseArgs(row.text, ",", static_cast<int>(row.expected.size()), raw);
        for (std::size_t i = 0; i < row.expected.size(); ++i) {
            std::memcpy(fields[i].text, raw[i], sizeof raw[i]);
            EXPECT_EQ(fields[i].written(), row.expected[i]) << row.text;
        }
        for (std::size_t i = row.expected.size(); i < 5; ++i) EXPECT_EQ(raw[i][0], '~') << "a field too many";
    }
}

TEST(UtilFields, StayWithinTheirSize) {
    const std::string longest(UTIL_FIELD_SIZE - 1, 'x');
    char fields[2][UTIL_FIELD_SIZE];
    utilParseArgs((longest + "," + longest).c_str(), ",", 2, fields);
    EXPECT_EQ(fields[0], longest);
    EXPECT_EQ(fields[1], longest);
    utilParseArgs((longest + "yy,tail").c_str(), ",", 2, fields);
    EXPECT_EQ(fields[0], longest);
    EXPECT_STREQ(fields[1], "tail");
}

TEST(UtilConsole, PrintsOnStandardError) {
    CaptureStderr();
    osPrintfConsole("%s: L%d idx=%d\n", "here", 7, -1);
    EXPECT_EQ(GetCapturedStderr(), "here: L7 idx=-1\n");
}

} // namespace
