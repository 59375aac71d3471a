/// The text buffer: appending, formatting, overflow, the header and the trace.
#include "rows.h"

#include "app/header.h"
#include "app/text/line_writer.h"
#include "app/text/text.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <iterator>

namespace {

class TextBuffer : public testing::Test {
protected:
    void SetUp() override { resetAll(); }
    void TearDown() override { clearText(); }
};

/// What `body` appends to an empty text; `LineBuffer` must be empty after it.
template <class Body> std::string appended(Body body) {
    clearText();
    std::strcpy(LineBuffer, "left over");
    body();
    EXPECT_EQ('\0', LineBuffer[0]);
    EXPECT_FALSE(textOverflowed());
    return Temp_Configuration;
}

/// Makes the text `length` characters long.
void fillText(std::size_t length) {
    clearText();
    std::memset(Temp_Configuration, 'x', length);
}

/// A text that no `LineBuffer` formats, of `length` characters, for `append("%s", …)`.
const char *longText(std::size_t length) {
    static char text[300000];
    std::memset(text, 'y', length);
    text[length] = '\0';
    return text;
}

// ----------------------------------------------------------------------------------------------------------- appending

TEST_F(TextBuffer, Sizes) {
    EXPECT_EQ(262144U, sizeof Temp_Configuration);
    EXPECT_EQ(16384U, sizeof LineBuffer);
}

TEST_F(TextBuffer, JoinsLinesAndEmptiesTheLineBuffer) {
    append("first\n");
    EXPECT_STREQ("first\n", Temp_Configuration);
    EXPECT_EQ('\0', LineBuffer[0]);
    append("second %d\n", 2);
    EXPECT_STREQ("first\nsecond 2\n", Temp_Configuration);
    EXPECT_EQ('\0', LineBuffer[0]);
    EXPECT_EQ(0, APPEND_NL());
    EXPECT_STREQ("first\nsecond 2\n\n", Temp_Configuration);
    EXPECT_EQ('\0', LineBuffer[0]);
    append("%s", "no newline is added");
    EXPECT_STREQ("first\nsecond 2\n\nno newline is added", Temp_Configuration);
    append("");
    append("%s", "");
    EXPECT_STREQ("first\nsecond 2\n\nno newline is added", Temp_Configuration);
}

TEST_F(TextBuffer, EveryAppendEmptiesTheLineBuffer) {
    const auto emptied = [](auto write) {
        std::strcpy(LineBuffer, "left over");
        write();
        EXPECT_EQ('\0', LineBuffer[0]);
    };
    emptied([] { append("literal\n"); });
    emptied([] { append("%d\n", 1); });
    emptied([] { APPEND_NL(); });
    emptied([] { append("%s", longText(16384)); }); // and every one that fails
    emptied([] { append("literal\n"); });
}

TEST_F(TextBuffer, TerminatesWhateverStoodBehindTheText) {
    append("abc");
    std::memset(Temp_Configuration + 4, 'z', 100);
    append("de");
    EXPECT_STREQ("abcde", Temp_Configuration);
    EXPECT_EQ('z', Temp_Configuration[6]);
}

TEST_F(TextBuffer, GoesOnWhereTheTextEndsWhoeverChangedIt) {
    append("one\n");
    append("two\n");
    Temp_Configuration[0] = '\0'; // cleared by its first byte
    append("three\n");
    EXPECT_STREQ("three\n", Temp_Configuration);

    std::memset(Temp_Configuration, 0, sizeof Temp_Configuration); // cleared whole
    append("four\n");
    EXPECT_STREQ("four\n", Temp_Configuration);

    Temp_Configuration[4] = '\0'; // its last character taken back
    append(" and a half\n");
    EXPECT_STREQ("four and a half\n", Temp_Configuration);

    std::strcat(Temp_Configuration, "five\n"); // continued
    append("six\n");
    EXPECT_STREQ("four and a half\nfive\nsix\n", Temp_Configuration);

    std::strcpy(Temp_Configuration, "a text of another hand that is longer than the one before\n");
    append("end\n");
    EXPECT_STREQ("a text of another hand that is longer than the one before\nend\n", Temp_Configuration);

    Temp_Configuration[0] = '\0'; // cleared again and begun anew
    std::strcat(Temp_Configuration, "x");
    Temp_Configuration[1] = '\0';
    Temp_Configuration[0] = '\0';
    append("y\n");
    append("z\n");
    EXPECT_STREQ("y\nz\n", Temp_Configuration);

    clearText(); // of a text of one character
    append("a");
    Temp_Configuration[0] = '\0';
    append("b");
    EXPECT_STREQ("b", Temp_Configuration);
    clearText(); // begun by someone else
    std::strcpy(Temp_Configuration, "begun ");
    append("here");
    EXPECT_STREQ("begun here", Temp_Configuration);
}

TEST_F(TextBuffer, ClearTextClearsEveryByte) {
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    append("does not fit");
    EXPECT_TRUE(textOverflowed());
    clearText();
    EXPECT_FALSE(textOverflowed());
    EXPECT_TRUE(std::all_of(std::begin(Temp_Configuration), std::end(Temp_Configuration),
                            [](char character) { return character == '\0'; }));
    append("fits");
    EXPECT_STREQ("fits", Temp_Configuration);
}

TEST_F(TextBuffer, ClearTextClearsAByteOnItsOwn) {
    for (std::size_t page = 0; page < textBufferSize; page += 4096)
        for (const std::size_t at : {0U, 1U, 2U, 2048U, 4094U, 4095U}) {
            Temp_Configuration[page + at] = 1;
            clearText();
            EXPECT_EQ(0, Temp_Configuration[page + at]) << page << " " << at;
            Temp_Configuration[page + at] = 0;
        }
    for (std::size_t at = 1; at < textBufferSize; at += 2) Temp_Configuration[at] = 'x';
    clearText();
    for (std::size_t at = 0; at < textBufferSize; ++at) ASSERT_EQ(0, Temp_Configuration[at]) << at;
}

TEST_F(TextBuffer, AppendDoesNotLookThroughTheText) {
    fillText(240000);
    append("a");                       // finds the end once
    Temp_Configuration[120000] = '\0'; // where a search from the front would end
    append("ab");
    append("%d\n", 7);
    EXPECT_STREQ("aab7\n", Temp_Configuration + 240000);
    EXPECT_EQ(std::string(120000, 'x'), Temp_Configuration);
    EXPECT_EQ('x', Temp_Configuration[120001]);
}

// ---------------------------------------------------------------------------------------------------------- formatting

TEST_F(TextBuffer, SignedNumbers) {
    const struct {
        std::int32_t number;
        const char *text;
        const char *twoDigits;
    } rows[] = {
        {0, "0", "00"},
        {1, "1", "01"},
        {9, "9", "09"},
        {10, "10", "10"},
        {42, "42", "42"},
        {99, "99", "99"},
        {100, "100", "100"},
        {1234567890, "1234567890", "1234567890"},
        {INT32_MAX, "2147483647", "2147483647"},
        {-1, "-1", "-1"},
        {-9, "-9", "-9"},
        {-10, "-10", "-10"},
        {-100, "-100", "-100"},
        {INT32_MIN, "-2147483648", "-2147483648"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(row.text, appended([&] { append("%d", row.number); }));
        EXPECT_EQ(row.text, appended([&] { append("%ld", row.number); }));
        EXPECT_EQ(row.twoDigits, appended([&] { append("%02d", row.number); }));
        be_i32 field = {};
        field = row.number;
        EXPECT_EQ(row.text, appended([&] { append("%d", field); }));
        EXPECT_EQ(row.text, appended([&] { append("%ld", field); }));
        be32 word = {};
        word = static_cast<std::uint32_t>(row.number);
        EXPECT_EQ(row.text, appended([&] { append("%d", word); })) << "a word prints signed under %d";
    }
}

TEST_F(TextBuffer, UnsignedNumbers) {
    const struct {
        std::uint32_t number;
        const char *text;
        const char *hex;
        const char *twoHex;
        const char *twoSmallHex;
    } rows[] = {
        {0, "0", "0", "00", "00"},
        {9, "9", "9", "09", "09"},
        {10, "10", "A", "0A", "0a"},
        {15, "15", "F", "0F", "0f"},
        {16, "16", "10", "10", "10"},
        {0xbd, "189", "BD", "BD", "bd"},
        {255, "255", "FF", "FF", "ff"},
        {256, "256", "100", "100", "100"},
        {0xce1, "3297", "CE1", "CE1", "ce1"},
        {0x8100, "33024", "8100", "8100", "8100"},
        {0xdeadbeef, "3735928559", "DEADBEEF", "DEADBEEF", "deadbeef"},
        {UINT32_MAX, "4294967295", "FFFFFFFF", "FFFFFFFF", "ffffffff"},
    };
    for (const auto &row : rows) {
        be32 word = {};
        word = row.number;
        EXPECT_EQ(row.text, appended([&] { append("%u", row.number); }));
        EXPECT_EQ(row.text, appended([&] { append("%u", word); }));
        EXPECT_EQ(row.hex, appended([&] { append("%X", row.number); }));
        EXPECT_EQ(row.hex, appended([&] { append("%X", word); }));
        EXPECT_EQ(row.twoHex, appended([&] { append("%02X", row.number); }));
        EXPECT_EQ(row.twoSmallHex, appended([&] { append("%02x", row.number); }));
    }
}

TEST_F(TextBuffer, SmallNumbersKeepTheirSign) {
    EXPECT_EQ("255 255 -1 -128 65535 65535", appended([] {
                  be16 field = {};
                  field = 65535;
                  append("%d %u %d %d %d %d", u8{255}, u8{255}, i8{-1}, i8{-128}, std::uint16_t{65535}, field);
              }));
}

/// A literal with `Count` characters before its conversion.
template <std::size_t Count> struct LongLiteral {
    char text[Count + sizeof "%d"];
    constexpr LongLiteral() : text() {
        for (std::size_t i = 0; i < Count; ++i) text[i] = static_cast<char>('a' + i % 26);
        text[Count] = '%';
        text[Count + 1] = 'd';
    }
};

TEST_F(TextBuffer, LongLiterals) {
    static constexpr LongLiteral<127> half;
    static constexpr LongLiteral<128> more;
    static constexpr LongLiteral<255> longest;
    EXPECT_EQ(letters(127) + "7", appended([] { append(half.text, 7); }));
    EXPECT_EQ(letters(128) + "7", appended([] { append(more.text, 7); }));
    EXPECT_EQ(letters(255) + "7", appended([] { append(longest.text, 7); }));
}

TEST_F(TextBuffer, Addresses) {
    const Mac mac = {{0x0a, 0x00, 0xff, 0xbc, 0x01, 0x9f}};
    EXPECT_EQ("0a:00:ff:bc:01:9f", appended([&] { append("%02x:%02x:%02x:%02x:%02x:%02x", mac); }));
    EXPECT_EQ("0A-00-FF-BC-01-9F.", appended([&] { append("%02X-%02X-%02X-%02X-%02X-%02X.", mac); }));
    const Ipv4 address = {{192, 0, 2, 255}};
    EXPECT_EQ("7 192.0.2.255 8", appended([&] { append("%d %d.%d.%d.%d %d", 7, address, 8); }));
}

TEST_F(TextBuffer, Texts) {
    EXPECT_EQ("[]", appended([] { append("[%s]", ""); }));
    EXPECT_EQ("[a text]", appended([] { append("[%s]", "a text"); }));
    Text<8> field = {};
    EXPECT_EQ("[]", appended([&] { append("[%s]", field); }));
    field = "short";
    EXPECT_EQ("[short]", appended([&] { append("[%s]", field); }));
    field = "exactly8 and more";
    EXPECT_EQ("[exactly8]", appended([&] { append("[%s]", field); })) << "a full field has no terminator";
    field.characters[3] = '\0';
    EXPECT_EQ("[exa]", appended([&] { append("[%s]", field); })) << "up to the first NUL";
    const char buffer[4] = {'f', 'u', 'l', 'l'};
    EXPECT_EQ("[full]", appended([&] { append("[%s]", buffer); }));
    const char terminated[6] = "ab";
    EXPECT_EQ("[ab]", appended([&] { append("[%s]", terminated); }));
    const char *const pointer = "pointer";
    EXPECT_EQ("[pointer]", appended([&] { append("[%s]", pointer); }));
}

TEST_F(TextBuffer, TextsAreNeverRead) {
    // Percent signs, control characters and bytes from 0x80 on are written as they are.
    const char *const odd = "%s%d%n%% \x01\t\r\n\x1b\x7f\x80\xff";
    EXPECT_EQ(std::string("<") + odd + ">", appended([&] { append("<%s>", odd); }));
    Text<16> field = {};
    field = odd;
    EXPECT_EQ(std::string(odd, 16), appended([&] { append("%s", field); }));
}

TEST_F(TextBuffer, SeveralConversions) {
    Text<4> name = {};
    name = "name";
    be16 id = {};
    id = 4094;
    EXPECT_EQ("a name 4094 -5 05 FFF0 x\n",
              appended([&] { append("a %s %d %d %02d %X %s\n", name, id, -5, 5, 0xfff0U, "x"); }));
}

TEST_F(TextBuffer, LineWriter) {
    LineWriter line;
    line.put('a');
    line.put("bcdef", 2);
    line.putDecimal(0);
    line.putDecimal(UINT32_MAX);
    EXPECT_STREQ("", Temp_Configuration) << "not before it is finished";
    line.finish();
    EXPECT_STREQ("abc04294967295", Temp_Configuration);
    EXPECT_EQ('\0', LineBuffer[0]);
}

/// What `write` puts into a line that has room for `room` more characters; "too long" if it does not fit.
template <class Write> std::string written(std::size_t room, Write write) {
    clearText();
    LineWriter line;
    for (std::size_t used = 16383 - room; used > 0; --used) line.put('z');
    write(line);
    line.finish();
    return textOverflowed() ? "too long" : Temp_Configuration + 16383 - room;
}

TEST_F(TextBuffer, EntriesOfALine) {
    const auto entry = [](std::size_t room, char separator, std::uint32_t number) {
        return written(room, [=](LineWriter &line) { line.putEntry(separator, number); });
    };
    const struct {
        std::uint32_t number;
        const char *text;
    } numbers[] = {{0, ",0"},     {1, ",1"},     {9, ",9"},       {10, ",10"},
                   {11, ",11"},   {28, ",28"},   {99, ",99"},     {100, ",100"},
                   {101, ",101"}, {999, ",999"}, {4094, ",4094"}, {UINT32_MAX, ",4294967295"}};
    for (const auto &[number, text] : numbers) {
        EXPECT_EQ(text, entry(1000, ',', number));
        EXPECT_EQ(text + 1, entry(1000, '\0', number)) << number;
        // The last of a line that is as long as can be.
        const std::size_t length = std::strlen(text);
        EXPECT_EQ(text, entry(length, ',', number));
        EXPECT_EQ(text + 1, entry(length - 1, '\0', number)) << number;
        EXPECT_EQ("too long", entry(length - 1, ',', number)) << number;
        EXPECT_EQ("too long", entry(length - 2, '\0', number)) << number;
    }
    EXPECT_EQ("x7", entry(2, 'x', 7)) << "any separator";
}

TEST_F(TextBuffer, ListsOfALine) {
    const struct {
        std::uint32_t set;
        const char *runs;
        const char *each;
    } lists[] = {
        {0, "", ""},
        {1, "1", "1"},
        {0x80000000, "32", "32"},
        {0x80000001, "1,32", "1,32"},
        {0xc0000000, "31,32", "31,32"},
        {0xe0000000, "30-32", "30,31,32"},
        {0x0000001b, "1,2,4,5", "1,2,4,5"},
        {0x000000ef, "1-4,6-8", "1,2,3,4,6,7,8"},
        {0x7fffffff, "1-31", "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31"},
        {0xfffffffe, "2-32", "2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31,32"},
        {0xffffffff, "1-32", "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30,31,32"},
    };
    for (const auto &list : lists) {
        EXPECT_EQ(list.runs, written(1000, [&](LineWriter &line) { line.putRuns(list.set); }));
        EXPECT_EQ(list.each, written(1000, [&](LineWriter &line) { line.putEach(list.set); }));
    }
    EXPECT_EQ("7", written(1000, [](LineWriter &line) { line.putRun('\0', 7, 7); }));
    EXPECT_EQ(";7,8", written(1000, [](LineWriter &line) { line.putRun(';', 7, 8); }));
    EXPECT_EQ(",98-100", written(1000, [](LineWriter &line) { line.putRun(',', 98, 100); }));
}

// ------------------------------------------------------------------------------------------------------------ overflow

/// Appends that put `length` characters into the text, 1 to 10.
void appendLiteral(std::size_t length) {
    switch (length) {
    case 1: append("1"); break;
    case 2: append("12"); break;
    case 3: append("123"); break;
    default: append("1234567890");
    }
}

TEST_F(TextBuffer, HoldsOneCharacterLessThanItsSize) {
    for (const std::size_t length : {1U, 2U, 3U, 10U}) {
        fillText(262143 - length);
        appendLiteral(length);
        EXPECT_FALSE(textOverflowed()) << length;
        EXPECT_EQ(262143U, std::strlen(Temp_Configuration)) << length;
        EXPECT_EQ(length == 10 ? '0' : static_cast<char>('0' + length), Temp_Configuration[262142]);

        fillText(262144 - length);
        appendLiteral(length);
        EXPECT_TRUE(textOverflowed()) << length;
        EXPECT_EQ(std::string(262144 - length, 'x'), Temp_Configuration) << "nothing of it";
    }
    fillText(262143);
    append("");
    EXPECT_FALSE(textOverflowed());
    append("%s", "");
    EXPECT_FALSE(textOverflowed());
    append("%s", "1");
    EXPECT_TRUE(textOverflowed());
    EXPECT_EQ('\0', LineBuffer[0]);
}

TEST_F(TextBuffer, FormattedLinesFitOrDoNot) {
    fillText(262143 - 16383);
    append("%s", longText(16383));
    EXPECT_FALSE(textOverflowed());
    EXPECT_EQ(262143U, std::strlen(Temp_Configuration));
    EXPECT_EQ('y', Temp_Configuration[262142]);

    fillText(262144 - 16383);
    append("%s", longText(16383));
    EXPECT_TRUE(textOverflowed());
    EXPECT_EQ(262144U - 16383, std::strlen(Temp_Configuration));
}

TEST_F(TextBuffer, LineHoldsOneCharacterLessThanItsSize) {
    EXPECT_EQ(std::string(16383, 'y'), appended([] { append("%s", longText(16383)); }));
    EXPECT_EQ(std::string(16381, 'y') + "-7", appended([] { append("%s%d", longText(16381), -7); }));
    EXPECT_EQ(std::string(16382, 'y') + "\n", appended([] { append("%s\n", longText(16382)); }));
    EXPECT_EQ(std::string(16382, 'y') + "A", appended([] { append("%s%X", longText(16382), 10U); }));

    const auto tooLong = [](auto line) {
        clearText();
        line();
        EXPECT_TRUE(textOverflowed());
        EXPECT_STREQ("", Temp_Configuration);
        EXPECT_EQ('\0', LineBuffer[0]);
    };
    tooLong([] { append("%s", longText(16384)); });
    tooLong([] { append("%s", longText(299000)); });
    tooLong([] { append("%s\n", longText(16383)); });
    tooLong([] { append("%s%d", longText(16382), -7); });
    tooLong([] { append("%s%u", longText(16374), UINT32_MAX); });
    tooLong([] { append("%s%X", longText(16383), 10U); });
    tooLong([] { append("%s%02d", longText(16382), -1); });
    // What comes after the part that did not fit does not save the line.
    tooLong([] { append("%s%s%s", longText(16383), "ab", ""); });
    tooLong([] { append("%s%sab", longText(16000), longText(16000)); });
}

TEST_F(TextBuffer, LineBufferIsNotOverrun) {
    // Its last byte is for the NUL and stays what it is.
    LineBuffer[16383] = 'g';
    append("%s", longText(16383));
    EXPECT_EQ('g', LineBuffer[16383]);
    append("%s", longText(16384));
    EXPECT_EQ('g', LineBuffer[16383]);
    append("%s%u", longText(16374), UINT32_MAX);
    EXPECT_EQ('g', LineBuffer[16383]);
    LineWriter line;
    for (int i = 0; i < 20000; ++i) line.put('z');
    EXPECT_EQ('g', LineBuffer[16383]);
    line.finish();
    EXPECT_EQ('g', LineBuffer[16383]);
    EXPECT_TRUE(textOverflowed());
    LineBuffer[16383] = '\0';
}

TEST_F(TextBuffer, NothingIsAppendedBehindALineThatDidNotFit) {
    append("begun\n");
    append("%s", longText(16384));
    append("literal\n");
    append("%d\n", 1);
    APPEND_NL();
    EXPECT_STREQ("begun\n", Temp_Configuration);
    EXPECT_TRUE(textOverflowed());
    Temp_Configuration[0] = '\0';
    append("literal\n");
    EXPECT_STREQ("", Temp_Configuration) << "clearing from outside does not mend it";
    EXPECT_TRUE(textOverflowed());
    initHtmlConfig();
    EXPECT_STREQ("configure\n", Temp_Configuration);
    EXPECT_FALSE(textOverflowed());

    fillText(262143);
    append("1");
    EXPECT_TRUE(textOverflowed());
    Temp_Configuration[100] = '\0';
    append("1");
    EXPECT_EQ(100U, std::strlen(Temp_Configuration));
}

TEST_F(TextBuffer, TextWithoutTerminatorIsFull) {
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    append("");
    EXPECT_TRUE(textOverflowed());
    append("1");
    EXPECT_EQ(262144U, strnlen(Temp_Configuration, sizeof Temp_Configuration));
}

// -------------------------------------------------------------------------------------------------------------- header

class Header : public TextBuffer, public testing::WithParamInterface<void (*)()> {
protected:
    std::string text() {
        GetParam()();
        EXPECT_EQ('\0', LineBuffer[0]);
        return Temp_Configuration;
    }
};
INSTANTIATE_TEST_SUITE_P(Text, Header, testing::Values(initTempConfig, initDefConfig));

TEST_P(Header, TellsVersionAndAddress) {
    g_EEPROM.versionOfBank1 = "V1.0.0";
    g_EEPROM.versionOfBank2 = "V2.0.0";
    g_EEPROM.macAddress = {{0x00, 0x11, 0x22, 0x33, 0x44, 0x55}};
    EXPECT_EQ("# VERSION 5036 6000 V1.0.0 MAC 00:11:22:33:44:55\nconfigure\n", text());
    EXPECT_EQ((std::vector<std::string>{"start", "bank 1", "end 1"}), platform.calls);
}

TEST_P(Header, TakesTheVersionOfTheBankInUse) {
    g_EEPROM.versionOfBank1 = "one";
    g_EEPROM.versionOfBank2 = "two";
    const auto version = [this](std::int32_t bank) {
        platform.bank = bank;
        return text();
    };
    EXPECT_EQ("# VERSION 5036 6000 one MAC 00:00:00:00:00:00\nconfigure\n", version(1));
    EXPECT_EQ("# VERSION 5036 6000 two MAC 00:00:00:00:00:00\nconfigure\n", version(2));
    for (const std::int32_t bank : {0, 3, -1, 257, INT32_MIN, INT32_MAX})
        EXPECT_EQ("# VERSION 5036 6000  MAC 00:00:00:00:00:00\nconfigure\n", version(bank)) << bank;
}

TEST_P(Header, VersionMayFillItsField) {
    g_EEPROM.versionOfBank1 = "V123456789 and more";
    g_EEPROM.versionOfBank2 = "W123456789 and more";
    g_EEPROM.reserved224.bytes[0] = 'x';
    EXPECT_EQ("# VERSION 5036 6000 V123456789 MAC 00:00:00:00:00:00\nconfigure\n", text());
    platform.bank = 2;
    EXPECT_EQ("# VERSION 5036 6000 W123456789 MAC 00:00:00:00:00:00\nconfigure\n", text());
}

TEST_P(Header, AddressIsInSmallLetters) {
    g_EEPROM.macAddress = {{0x0a, 0xb0, 0xcd, 0xef, 0xe9, 0xff}};
    EXPECT_EQ("# VERSION 5036 6000  MAC 0a:b0:cd:ef:e9:ff\nconfigure\n", text());
}

TEST_P(Header, ClearsTheTextWhole) {
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    append("does not fit");
    EXPECT_EQ("# VERSION 5036 6000  MAC 00:00:00:00:00:00\nconfigure\n", text());
    EXPECT_FALSE(textOverflowed());
    EXPECT_TRUE(std::all_of(Temp_Configuration + std::strlen(Temp_Configuration), std::end(Temp_Configuration),
                            [](char character) { return character == '\0'; }));
}

TEST_P(Header, IsLeftOutWithoutATransaction) {
    append("what stood there\n");
    platform.failingCall = 0;
    EXPECT_EQ("what stood there\n", text());
    EXPECT_EQ((std::vector<std::string>{"start"}), platform.calls);
}

TEST_P(Header, ClosesWhateverHandleItGot) {
    platform.lastHandle = -3;
    EXPECT_EQ("# VERSION 5036 6000  MAC 00:00:00:00:00:00\nconfigure\n", text());
    EXPECT_EQ((std::vector<std::string>{"start", "bank -2", "end -2"}), platform.calls);
}

TEST_P(Header, ResultOfTheEndIsNotLookedAt) {
    platform.failingCall = 2;
    EXPECT_EQ("# VERSION 5036 6000  MAC 00:00:00:00:00:00\nconfigure\n", text());
}

TEST_F(TextBuffer, HeaderOfAPage) {
    std::memset(Temp_Configuration, 'x', sizeof Temp_Configuration);
    g_EEPROM.versionOfBank1 = "V1.0.0";
    initHtmlConfig();
    EXPECT_STREQ("configure\n", Temp_Configuration);
    EXPECT_TRUE(std::all_of(Temp_Configuration + std::strlen(Temp_Configuration), std::end(Temp_Configuration),
                            [](char character) { return character == '\0'; }));
    EXPECT_TRUE(platform.calls.empty());
}

// --------------------------------------------------------------------------------------------------------------- trace

TEST_F(TextBuffer, Trace) {
    EXPECT_EQ(0, gCfgDebug);
    EXPECT_EQ("", printedBy([] { EXPECT_EQ(0, trace("emitter")); }));
    for (const std::int32_t debug : {1, -1, 256, INT32_MIN}) {
        gCfgDebug = debug;
        EXPECT_EQ("[emitter]\n", printedBy([] { EXPECT_EQ(0, trace("emitter")); })) << debug;
    }
    EXPECT_EQ("[a]\n[%d%s%n]\n", printedBy([] {
                  trace("a");
                  trace("%d%s%n");
              }));
    EXPECT_STREQ("", Temp_Configuration) << "never in the text";
}

} // namespace
