/// The workstation stand-in: utility operations, transactions, stores, the built-in store and its export.
#include "platform/host/factory.h"
#include "platform/host/store.h"
#include "platform/host/store_export.h"
#include "platform/mapi.h"
#include "platform/util.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;

// ------------------------------------------------------------------------------------------------ utility operations

/// A text buffer as large as the contract says, filled with a sign that no text holds.
template <std::size_t Size> struct Marked {
    char text[Size];

    Marked() { std::memset(text, '~', sizeof text); }

    /// What was written, which must end with one NUL; nothing behind it may have changed.
    std::string written() const {
        const std::size_t length = strnlen(text, Size);
        if (length == Size) return "(not terminated)";
        for (std::size_t i = length + 1; i < Size; ++i)
            if (text[i] != '~') return "(written behind the NUL)";
        return text;
    }
};

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

// ------------------------------------------------------------------------------------------------------------ stores

/// A folder that is gone after the test, and no store named when it begins.
class Store : public ::testing::Test {
protected:
    Store() {
        std::string pattern = (std::filesystem::temp_directory_path() / "textcfg-host-XXXXXX").string();
        EXPECT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        unsetenv("TEXTCFG_STORE");
    }
    ~Store() override {
        unsetenv("TEXTCFG_STORE");
        std::filesystem::remove_all(folder);
    }

    std::string path(const std::string &file) const { return (folder / file).string(); }
    void use() const { setenv("TEXTCFG_STORE", folder.c_str(), 1); }
    void put(const std::string &file, const std::string &bytes) const {
        std::ofstream(path(file), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::string get(const std::string &file) const {
        std::ifstream in(path(file), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    /// What the start of a transaction says and returns.
    std::int32_t start(std::string &said) const {
        CaptureStderr();
        const std::int32_t handle = mapi_start_transc();
        said = GetCapturedStderr();
        return handle;
    }

    std::filesystem::path folder;
};

/// An open transaction.
struct Open {
    const std::int32_t handle = mapi_start_transc();

    Open() { EXPECT_NE(handle, MAPI_NO_TRANSACTION); }
    ~Open() { EXPECT_EQ(mapi_end_transc(handle), 0); }
    Open(const Open &) = delete;
    Open &operator=(const Open &) = delete;
};

template <class Record> std::string bytesAsText(const Record &record) {
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

/// An image of the built-in store.
std::unique_ptr<ConfigImage> composed(std::int32_t selector) {
    auto image = std::make_unique<ConfigImage>();
    factory::composeImage(selector, *image);
    return image;
}

bool contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

using Transactions = Store;

TEST_F(Transactions, AHandleThatWasNotOpenedIsRefused) {
    auto image = std::make_unique<ConfigImage>();
    BoardRecord board = {};
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    const std::int32_t closed = mapi_start_transc();
    ASSERT_EQ(mapi_end_transc(closed), 0);
    for (const std::int32_t handle : {closed, 0, 1000000, -2, INT32_MIN, INT32_MAX}) {
        CaptureStderr();
        EXPECT_NE(mapi_end_transc(handle), 0);
        EXPECT_NE(mapi_sys_eeprom_info_get(handle, &board), 0);
        EXPECT_NE(mapi_sys_config_getconfig(handle, MAPI_CONFIG_DEFAULT, image.get()), 0);
        EXPECT_EQ(mapi_sys_dualimage_state_get(handle), -1);
        EXPECT_EQ(mapi_sys_userauth_method_get(handle), -1);
        EXPECT_NE(mapi_sys_userauth_password_md5_get(handle, "admin", md5), 0);
        const std::string said = GetCapturedStderr();
        const std::string why = ": transaction " + std::to_string(handle) + " is not open\n";
        EXPECT_EQ(said, "mapi_end_transc" + why + "mapi_sys_eeprom_info_get" + why + "mapi_sys_config_getconfig" + why +
                            "mapi_sys_dualimage_state_get" + why + "mapi_sys_userauth_method_get" + why +
                            "mapi_sys_userauth_password_md5_get" + why);
    }
    EXPECT_EQ(md5[0], '\0');
    EXPECT_EQ(bytesAsText(board), std::string(sizeof board, '\0'));
    EXPECT_EQ(bytesAsText(*image), std::string(sizeof *image, '\0'));

    CaptureStderr();
    EXPECT_NE(mapi_sys_eeprom_info_get(MAPI_NO_TRANSACTION, &board), 0);
    EXPECT_NE(mapi_end_transc(MAPI_NO_TRANSACTION), 0);
    GetCapturedStderr();
}

TEST_F(Transactions, NestedOnesWork) {
    const std::int32_t outer = mapi_start_transc();
    const std::int32_t inner = mapi_start_transc();
    ASSERT_NE(outer, MAPI_NO_TRANSACTION);
    ASSERT_NE(inner, MAPI_NO_TRANSACTION);
    EXPECT_NE(outer, inner);
    EXPECT_EQ(mapi_sys_dualimage_state_get(inner), 1);
    EXPECT_EQ(mapi_end_transc(inner), 0);
    BoardRecord board;
    EXPECT_EQ(mapi_sys_eeprom_info_get(outer, &board), 0);
    EXPECT_EQ(mapi_sys_userauth_method_get(outer), 0);
    CaptureStderr();
    EXPECT_NE(mapi_end_transc(inner), 0);
    GetCapturedStderr();
    EXPECT_EQ(mapi_end_transc(outer), 0);
}

TEST_F(Transactions, AClosedHandleIsNotGivenOutAgain) {
    const std::int32_t first = mapi_start_transc();
    mapi_end_transc(first);
    const Open second;
    EXPECT_NE(first, second.handle);
    CaptureStderr();
    EXPECT_EQ(mapi_sys_dualimage_state_get(first), -1);
    GetCapturedStderr();
}

TEST_F(Transactions, EightAreOpenAtMost) {
    std::vector<std::int32_t> handles;
    for (int i = 0; i < 8; ++i) {
        handles.push_back(mapi_start_transc());
        ASSERT_NE(handles.back(), MAPI_NO_TRANSACTION);
    }
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "mapi_start_transc: too many transactions are open\n");
    EXPECT_EQ(mapi_end_transc(handles[3]), 0);
    handles[3] = mapi_start_transc();
    EXPECT_NE(handles[3], MAPI_NO_TRANSACTION);
    for (const std::int32_t handle : handles) EXPECT_EQ(mapi_end_transc(handle), 0);
}

TEST_F(Transactions, AnUnknownImageIsRefused) {
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    for (const std::int32_t selector : {-1, 4, INT32_MAX, INT32_MIN}) {
        CaptureStderr();
        EXPECT_NE(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0);
        EXPECT_EQ(GetCapturedStderr(), "mapi_sys_config_getconfig: unknown image selector; expected 0 to 3\n");
    }
    EXPECT_EQ(bytesAsText(*image), std::string(sizeof *image, '\0'));
}

TEST_F(Store, UnsetOrEmptyIsTheBuiltInOne) {
    for (const bool empty : {false, true}) {
        if (empty) setenv("TEXTCFG_STORE", "", 1);
        const Open transaction;
        BoardRecord board;
        EXPECT_EQ(mapi_sys_eeprom_info_get(transaction.handle, &board), 0);
        EXPECT_EQ(board.boardType.value(), 5028U);
        EXPECT_EQ(mapi_sys_dualimage_state_get(transaction.handle), 1);
        EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0);
        auto image = std::make_unique<ConfigImage>();
        for (std::int32_t selector = 0; selector < 4; ++selector) {
            EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0);
            EXPECT_TRUE(sameBytes(*image, *composed(selector))) << selector;
        }
    }
}

TEST_F(Store, EachImageComesFromItsFile) {
    use();
    put("running.img", std::string(262144, 'r'));
    put("default.img", std::string(262144, 'd'));
    put("startup.img", std::string(262144, 's'));
    put("customer_default.img", std::string(262144, 'c'));
    put("board.img", std::string(244, 'b'));
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    const struct {
        std::int32_t selector;
        char byte;
    } cases[] = {{MAPI_CONFIG_RUNNING, 'r'},
                 {MAPI_CONFIG_DEFAULT, 'd'},
                 {MAPI_CONFIG_STARTUP, 's'},
                 {MAPI_CONFIG_CUSTOMER_DEFAULT, 'c'}};
    for (const auto &row : cases) {
        EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, row.selector, image.get()), 0);
        EXPECT_EQ(bytesAsText(*image), std::string(262144, row.byte));
    }
    struct {
        BoardRecord board;
        char behind[8];
    } filled = {};
    EXPECT_EQ(mapi_sys_eeprom_info_get(transaction.handle, &filled.board), 0);
    EXPECT_EQ(bytesAsText(filled.board), std::string(244, 'b'));
    EXPECT_EQ(std::string(filled.behind, 8), std::string(8, '\0'));
}

void makeFault(const std::string &path, const std::string &name, std::size_t size) {
    if (name == "missing") return;
    if (name == "folder") {
        ASSERT_EQ(mkdir(path.c_str(), 0755), 0);
    } else if (name == "fifo") {
        ASSERT_EQ(mkfifo(path.c_str(), 0644), 0);
    } else {
        std::ofstream(path, std::ios::binary) << std::string(size, 'x');
    }
}

TEST_F(Store, AFileThatIsNotWholeFailsTheOperationThatNeedsIt) {
    use();
    const Open transaction;
    const struct {
        const char *name;
        std::size_t size;
        const char *found;
    } cases[] = {
        {"missing", 0, "No such file or directory"},
        {"empty", 0, "found 0 bytes"},
        {"short by one", 262143, "found 262143 bytes"},
        {"long by one", 262145, "found 262145 bytes"},
        {"folder", 0, "found a folder"},
        {"fifo", 0, "found something that is not a regular file"},
    };
    const char *const names[] = {"running.img", "default.img", "startup.img", "customer_default.img"};
    auto image = std::make_unique<ConfigImage>();
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        for (const auto &row : cases) {
            makeFault(path(names[selector]), row.name, row.size);
            CaptureStderr();
            EXPECT_NE(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0) << row.name;
            EXPECT_EQ(GetCapturedStderr(),
                      "store file " + path(names[selector]) + ": " + row.found + "; expected 262144 bytes\n");
            EXPECT_EQ(bytesAsText(*image), std::string(262144, '\0')) << row.name;
            std::filesystem::remove_all(path(names[selector]));
        }
        put(names[selector], std::string(262144, 'x'));
    }
    EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, 3, image.get()), 0);
}

TEST_F(Store, ABoardThatIsNotWholeFailsTheOperationThatNeedsIt) {
    use();
    const Open transaction;
    const struct {
        const char *name;
        std::size_t size;
        const char *found;
    } cases[] = {
        {"missing", 0, "No such file or directory"},
        {"short by one", 243, "found 243 bytes"},
        {"long by one", 245, "found 245 bytes"},
        {"folder", 0, "found a folder"},
        {"fifo", 0, "found something that is not a regular file"},
    };
    for (const auto &row : cases) {
        makeFault(path("board.img"), row.name, row.size);
        BoardRecord board = {};
        CaptureStderr();
        EXPECT_NE(mapi_sys_eeprom_info_get(transaction.handle, &board), 0) << row.name;
        EXPECT_EQ(GetCapturedStderr(), "store file " + path("board.img") + ": " + row.found + "; expected 244 bytes\n");
        EXPECT_EQ(bytesAsText(board), std::string(244, '\0')) << row.name;
        std::filesystem::remove_all(path("board.img"));
    }
}

TEST_F(Store, AFolderThatIsNotThereFailsTheStart) {
    setenv("TEXTCFG_STORE", path("nowhere").c_str(), 1);
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "store " + path("nowhere") + ": No such file or directory; expected a folder\n");
    put("file", "");
    setenv("TEXTCFG_STORE", path("file").c_str(), 1);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "store " + path("file") + ": Not a directory; expected a folder\n");
}

// ----------------------------------------------------------------------------------------------------- platform.conf

TEST(PlatformConfText, IsUnderstood) {
    const struct {
        std::string text;
        std::int32_t bank;
        bool md5;
    } cases[] = {
        {"", 1, false},
        {"\n", 1, false},
        {"\n\n", 1, false},
        {" \t\n", 1, false},
        {"#", 1, false},
        {"# anything, active_bank=7\n", 1, false},
        {std::string("#\0\n", 3), 1, false},
        {"active_bank=2\n", 2, false},
        {"active_bank=2", 2, false},
        {"active_bank=0\n", 0, false},
        {"active_bank=007\n", 7, false},
        {"active_bank=-1\n", -1, false},
        {"active_bank=-0\n", 0, false},
        {"active_bank=2147483647\n", INT32_MAX, false},
        {"active_bank=-2147483648\n", INT32_MIN, false},
        {"active_bank=0000000000000000000000000000002\n", 2, false},
        {"password_encryption=none\n", 1, false},
        {"password_encryption=md5\n", 1, true},
        {"password_encryption=md5", 1, true},
        {"# bank\nactive_bank=2\n\n# passwords\npassword_encryption=md5\n", 2, true},
        {"active_bank=2\nactive_bank=1\n", 1, false},
        {"password_encryption=md5\npassword_encryption=none", 1, false},
    };
    for (const auto &row : cases) {
        PlatformConf conf;
        const std::vector<char> bytes(row.text.begin(), row.text.end()); // nothing behind the last byte
        EXPECT_EQ(parsePlatformConf(bytes.data(), bytes.size(), conf).line, 0U) << row.text;
        EXPECT_EQ(conf.activeBank, row.bank) << row.text;
        EXPECT_EQ(conf.md5Passwords, row.md5) << row.text;
    }
}

TEST(PlatformConfText, IsNotUnderstood) {
    const char *const number = "a decimal number from -2147483648 to 2147483647 as active_bank";
    const char *const encryption = "none or md5 as password_encryption";
    const char *const setting = "active_bank=N or password_encryption=none or password_encryption=md5";
    const struct {
        std::string text;
        std::size_t line;
        std::string shown;
        const char *expected;
    } cases[] = {
        {"active_bank=", 1, "active_bank=", number},
        {"active_bank=\n", 1, "active_bank=", number},
        {"active_bank=-\n", 1, "active_bank=-", number},
        {"active_bank=+1\n", 1, "active_bank=+1", number},
        {"active_bank=--1\n", 1, "active_bank=--1", number},
        {"active_bank=1 \n", 1, "active_bank=1 ", number},
        {"active_bank= 1\n", 1, "active_bank= 1", number},
        {"active_bank=1\r\n", 1, "active_bank=1\r", number},
        {"active_bank=0x1\n", 1, "active_bank=0x1", number},
        {"active_bank=two\n", 1, "active_bank=two", number},
        {"active_bank=1:\n", 1, "active_bank=1:", number},
        {"active_bank=1/\n", 1, "active_bank=1/", number},
        {"active_bank=2147483648\n", 1, "active_bank=2147483648", number},
        {"active_bank=-2147483649\n", 1, "active_bank=-2147483649", number},
        {"active_bank=4294967297\n", 1, "active_bank=4294967297", number},
        {"active_bank=18446744073709551617\n", 1, "active_bank=18446744073709551617", number},
        {std::string("active_bank=1\0\n", 15), 1, std::string("active_bank=1\0", 14), number},
        {"password_encryption=", 1, "password_encryption=", encryption},
        {"password_encryption=md\n", 1, "password_encryption=md", encryption},
        {"password_encryption=md5 \n", 1, "password_encryption=md5 ", encryption},
        {"password_encryption=MD5\n", 1, "password_encryption=MD5", encryption},
        {"password_encryption=nonesuch\n", 1, "password_encryption=nonesuch", encryption},
        {"active_bank\n", 1, "active_bank", setting},
        {"Active_bank=1\n", 1, "Active_bank=1", setting},
        {" active_bank=1\n", 1, " active_bank=1", setting},
        {" # no comment\n", 1, " # no comment", setting},
        {"x", 1, "x", setting},
        {"\r\n", 1, "\r", setting},
        {std::string("\0", 1), 1, std::string("\0", 1), setting},
        {"# fine\n\nactive_bank=2\nbank=1\n", 4, "bank=1", setting},
        {"active_bank=x\nmore", 1, "active_bank=x", number},
    };
    for (const auto &row : cases) {
        PlatformConf conf;
        const std::vector<char> bytes(row.text.begin(), row.text.end());
        const ConfProblem problem = parsePlatformConf(bytes.data(), bytes.size(), conf);
        EXPECT_EQ(problem.line, row.line) << row.text;
        EXPECT_EQ(std::string(bytes.data() + problem.start, problem.length), row.shown);
        EXPECT_STREQ(problem.expected, row.expected) << row.text;
    }
}

using PlatformConfFile = Store;

TEST_F(PlatformConfFile, SettlesTheTransactionsThatStartAfterIt) {
    use();
    const Open without;
    EXPECT_EQ(mapi_sys_dualimage_state_get(without.handle), 1);
    put("platform.conf", "active_bank=2\n");
    const Open with;
    EXPECT_EQ(mapi_sys_dualimage_state_get(with.handle), 2);
    EXPECT_EQ(mapi_sys_dualimage_state_get(without.handle), 1) << "a transaction keeps what it began with";
    put("platform.conf", "");
    const Open empty;
    EXPECT_EQ(mapi_sys_dualimage_state_get(empty.handle), 1);
}

TEST_F(PlatformConfFile, MayBeLong) {
    use();
    put("platform.conf", "#" + std::string(300000, 'x') + "\n" + std::string(5000, '\n') + "active_bank=7");
    const Open transaction;
    EXPECT_EQ(mapi_sys_dualimage_state_get(transaction.handle), 7);
}

TEST_F(PlatformConfFile, FailsEveryStartIfNotUnderstood) {
    use();
    put("platform.conf", "active_bank=2\npassword=none\n");
    std::string said;
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(said, "store file " + path("platform.conf") +
                            ", line 2: found \"password=none\"; expected active_bank=N or password_encryption=none or "
                            "password_encryption=md5\n");
    }
    put("platform.conf", "active_bank=4294967296");
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "store file " + path("platform.conf") +
                        ", line 1: found \"active_bank=4294967296\"; expected a decimal number from -2147483648 to "
                        "2147483647 as active_bank\n");
    std::filesystem::remove(path("platform.conf"));
    const Open again;
}

TEST_F(PlatformConfFile, ALineIsShownWithoutControlCharactersAndNotWhole) {
    use();
    put("platform.conf", std::string("\x1b[2J\0\xff", 6));
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_TRUE(contains(said, "line 1: found \"\\x1b[2J\\x00\\xff\"; expected ")) << said;
    put("platform.conf", std::string(60, '\x01'));
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_TRUE(contains(said, "\\x01\"; expected ")) << said;
    put("platform.conf", std::string(61, 'y'));
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_TRUE(contains(said, "found \"" + std::string(60, 'y') + "...\"; expected ")) << said;
}

TEST_F(PlatformConfFile, FailsEveryStartIfItCannotBeRead) {
    use();
    std::string said;
    makeFault(path("platform.conf"), "folder", 0);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "store file " + path("platform.conf") + ": found a folder; expected lines of settings\n");
    std::filesystem::remove_all(path("platform.conf"));
    makeFault(path("platform.conf"), "fifo", 0);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "store file " + path("platform.conf") +
                        ": found something that is not a regular file; expected lines of settings\n");
    CaptureStderr();
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), -1);
    EXPECT_TRUE(contains(GetCapturedStderr(), "platform.conf"));
}

TEST_F(PlatformConfFile, NoneMeansPlainPasswords) {
    use();
    put("platform.conf", "password_encryption=none\n");
    const Open transaction;
    EXPECT_EQ(mapi_sys_userauth_method_get(transaction.handle), 0);
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0);
}

#ifdef TEXTCFG_HAS_CRYPT

TEST_F(PlatformConfFile, Md5MeansMd5Passwords) {
    use();
    put("platform.conf", "password_encryption=md5\n");
    {
        const Open transaction;
        EXPECT_NE(mapi_sys_userauth_method_get(transaction.handle), 0);
        EXPECT_NE(mapi_sys_userauth_method_get(-1), 0);
        put("platform.conf", "password_encryption=none\n");
        EXPECT_NE(mapi_sys_userauth_method_get(transaction.handle), 0);
        EXPECT_NE(mapi_sys_userauth_method_get(-1), 0) << "as the open transaction began";
    }
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0) << "without any transaction: as it is now";
}

TEST(PasswordMd5, IsMd5CryptWithAnEmptySalt) {
    const struct {
        const char *password, *expected;
    } cases[] = {
        {"admin", "CoERg7ynjYLsj2j4glJ34."},
        {"operator", "s6dfwPxjplfs0ypK3J6vP1"},
        {"correct-horse", "jPUvDcwQgvlwsmsd5focL/"},
        {"", "qRPK7m23GJusamGpoGLby/"},
    };
    for (const auto &row : cases) {
        Marked<MAPI_PASSWORD_MD5_SIZE> md5;
        EXPECT_EQ(mapi_sys_userauth_password_md5_get(-1, row.password, md5.text), 0);
        EXPECT_EQ(md5.written(), row.expected);
    }
    const Open transaction;
    Marked<MAPI_PASSWORD_MD5_SIZE> md5;
    EXPECT_EQ(mapi_sys_userauth_password_md5_get(transaction.handle, "admin", md5.text), 0);
    EXPECT_EQ(md5.written(), "CoERg7ynjYLsj2j4glJ34.");
}

TEST(PasswordMd5, LeavesTheTextIfItCannotBeMade) {
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    CaptureStderr();
    EXPECT_NE(mapi_sys_userauth_password_md5_get(-1, std::string(100000, 'x').c_str(), md5), 0);
    EXPECT_TRUE(contains(GetCapturedStderr(), "mapi_sys_userauth_password_md5_get"));
    EXPECT_EQ(std::string(md5, sizeof md5), std::string(sizeof md5, '\0'));
}

#else

TEST_F(PlatformConfFile, Md5IsRefusedByName) {
    use();
    put("platform.conf", "password_encryption=md5\n");
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said,
              "mapi_start_transc: password_encryption=md5 is not supported by this build, which has no libcrypt\n");
    CaptureStderr();
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), -1);
    EXPECT_TRUE(contains(GetCapturedStderr(), "password_encryption=md5 is not supported"));
}

TEST(PasswordMd5, IsRefusedByName) {
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    CaptureStderr();
    EXPECT_NE(mapi_sys_userauth_password_md5_get(-1, "admin", md5), 0);
    EXPECT_TRUE(contains(GetCapturedStderr(), "mapi_sys_userauth_password_md5_get: not supported"));
    EXPECT_EQ(md5[0], '\0');
}

#endif

// ------------------------------------------------------------------------------------------------ the built-in store

bool differ(const ConfigImage &a, const ConfigImage &b, const Section &section) {
    return std::memcmp(bytesOf(a, section.offset), bytesOf(b, section.offset), section.size) != 0;
}

std::vector<std::string> differing(std::int32_t a, std::int32_t b) {
    const auto first = composed(a);
    const auto second = composed(b);
    std::vector<std::string> names;
    for (const Section &section : imageSections)
        if (differ(*first, *second, section)) names.emplace_back(section.name);
    return names;
}

TEST(BuiltInStore, IsComposedWholeWhateverStoodThere) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        auto image = std::make_unique<ConfigImage>();
        std::memset(image.get(), 0xa5, sizeof *image);
        factory::composeImage(selector, *image);
        EXPECT_TRUE(sameBytes(*image, *composed(selector))) << selector;
    }
    BoardRecord board;
    std::memset(&board, 0xa5, sizeof board);
    factory::composeBoard(board);
    EXPECT_EQ(board.boardType.value(), 5028U);
    EXPECT_TRUE(board.hasPoe());
    EXPECT_FALSE(board.hasBattery());
    EXPECT_FALSE(board.isType5027());
    const unsigned char mac[] = {0x00, 0x00, 0x5e, 0x00, 0x53, 0x01};
    EXPECT_EQ(std::memcmp(board.macAddress.octets, mac, sizeof mac), 0);
    EXPECT_EQ(std::string(board.versionOfBank1.characters, 10), std::string("V2.4.1\0\0\0\0", 10));
    EXPECT_EQ(std::string(board.versionOfBank2.characters, 10), std::string("V2.4.0\0\0\0\0", 10));
    EXPECT_EQ(board.reserved0.bytes[0], 0);
    EXPECT_EQ(board.reserved224.bytes[19], 0);
}

TEST(BuiltInStore, SelectorsNameTheImages) {
    const auto image = std::make_unique<ConfigImage>();
    factory::composeRunning(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_RUNNING)));
    factory::composeDefault(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_DEFAULT)));
    factory::composeStartup(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_STARTUP)));
    factory::composeCustomerDefault(*image);
    EXPECT_TRUE(sameBytes(*image, *composed(MAPI_CONFIG_CUSTOMER_DEFAULT)));
}

TEST(BuiltInStore, RunningDiffersFromTheDefaultInEverySection) {
    const auto running = composed(MAPI_CONFIG_RUNNING);
    const auto initial = composed(MAPI_CONFIG_DEFAULT);
    for (const Section &section : imageSections) EXPECT_TRUE(differ(*running, *initial, section)) << section.name;
}

TEST(BuiltInStore, StartupLagsAFewChangesBehindRunning) {
    EXPECT_EQ(differing(MAPI_CONFIG_STARTUP, MAPI_CONFIG_RUNNING),
              (std::vector<std::string>{"time", "console", "users", "ports", "vlanPorts", "tagVlans", "macLimit",
                                        "priority", "stpPorts", "acl", "poePorts"}));
}

TEST(BuiltInStore, TheCustomersDefaultIsADefaultWithPresets) {
    EXPECT_EQ(differing(MAPI_CONFIG_CUSTOMER_DEFAULT, MAPI_CONFIG_DEFAULT),
              (std::vector<std::string>{"time", "ipv4", "company", "service", "users", "tagVlans", "loopDetection",
                                        "communities", "log", "stpPorts"}));
}

TEST(BuiltInStore, HoldsNothingThatNeverPrints) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        for (int i = 0; i < portCount; ++i) {
            EXPECT_NE(image->rateLimits.ingress[i].value(), 1U) << "port " << i + 1;
            EXPECT_NE(image->rateLimits.egress[i].value(), 1U) << "port " << i + 1;
            EXPECT_LE(image->priority.userPriority[i], 7) << "port " << i + 1;
            EXPECT_LE(image->vlanPorts[i].mode, 3) << "port " << i + 1;
            EXPECT_LE(image->sourceGuard[i], 2) << "port " << i + 1;
            EXPECT_LE(image->dot1x.portControl[i], 2) << "port " << i + 1;
        }
        for (const PoePort &port : image->poePorts) EXPECT_NE(port.budget.value(), 1);
        EXPECT_LE(image->storm.broadcast.value(), 21U);
        EXPECT_LE(image->storm.multicast.value(), 21U);
        EXPECT_LE(image->storm.unicast.value(), 21U);
    }
}

TEST(BuiltInStore, AnEmptyProfileSlotIsASingleBlank) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        int bound = 0;
        for (const PortFilter &filter : image->portFilters.port)
            for (const auto &profile : filter.profile) {
                EXPECT_FALSE(profile.empty());
                if (std::string(profile.characters) != " ") ++bound;
            }
        const bool service = selector == MAPI_CONFIG_RUNNING || selector == MAPI_CONFIG_STARTUP;
        EXPECT_EQ(bound, service ? 17 : 0);
    }
}

TEST(BuiltInStore, HasRulesOfBothFamilies) {
    const auto image = composed(MAPI_CONFIG_RUNNING);
    int ipv4Rules = 0;
    int ipv6Rules = 0;
    for (const AclRule &rule : image->acl) {
        if (rule.valid == 0) continue;
        const bool ipv4Bits = utilBitmapCheck(rule.match.bytes, AclMatch::sourceIpv4) != 0 ||
                              utilBitmapCheck(rule.match.bytes, AclMatch::destinationIpv4) != 0;
        const bool ipv6Bits = utilBitmapCheck(rule.match.bytes, AclMatch::sourceIpv6) != 0 ||
                              utilBitmapCheck(rule.match.bytes, AclMatch::destinationIpv6) != 0;
        (rule.isIpv6Rule() ? ipv6Rules : ipv4Rules)++;
        EXPECT_FALSE(rule.isIpv6Rule() ? ipv4Bits : ipv6Bits) << rule.number.value();
    }
    EXPECT_EQ(ipv4Rules, 3);
    EXPECT_EQ(ipv6Rules, 2);
}

TEST(BuiltInStore, HasOneManagementVlanInAPackedTable) {
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        const auto image = composed(selector);
        int management = 0;
        bool ended = false;
        for (const TagVlan &vlan : image->tagVlans) {
            if (vlan.inUse == 0) ended = true;
            else EXPECT_FALSE(ended) << vlan.id.value();
            if (utilBitmapCheck(vlan.members.bytes, cpuPort) != 0) ++management;
        }
        EXPECT_EQ(management, 1) << selector;
    }
}

// ------------------------------------------------------------------------------------------------------- the export

class Export : public Store {
protected:
    /// Runs `textcfg-store` with these words. What it said is left in `out` and `error`.
    int run(std::vector<std::string> words) {
        words.insert(words.begin(), "textcfg-store");
        std::vector<char *> argv;
        for (std::string &word : words) argv.push_back(word.data());
        argv.push_back(nullptr);
        CaptureStdout();
        CaptureStderr();
        const int status = storeExportMain(static_cast<int>(words.size()), argv.data());
        out = GetCapturedStdout();
        error = GetCapturedStderr();
        return status;
    }

    std::string out, error;
};

const std::vector<std::string> exported = {"board.img",     "customer_default.img", "default.img",
                                           "platform.conf", "running.img",          "startup.img"};

TEST_F(Export, WritesTheBuiltInStore) {
    for (const bool missing : {false, true}) {
        if (missing) folder /= "new";
        EXPECT_EQ(run({folder.string()}), 0);
        EXPECT_EQ(out, "");
        EXPECT_EQ(error, "");
        EXPECT_EQ(files(), exported);
        EXPECT_EQ(get("running.img"), bytesAsText(*composed(MAPI_CONFIG_RUNNING)));
        EXPECT_EQ(get("default.img"), bytesAsText(*composed(MAPI_CONFIG_DEFAULT)));
        EXPECT_EQ(get("startup.img"), bytesAsText(*composed(MAPI_CONFIG_STARTUP)));
        EXPECT_EQ(get("customer_default.img"), bytesAsText(*composed(MAPI_CONFIG_CUSTOMER_DEFAULT)));
        BoardRecord board;
        factory::composeBoard(board);
        EXPECT_EQ(get("board.img"), bytesAsText(board));
    }
    folder = folder.parent_path();
}

TEST_F(Export, WhatItWroteIsReadAsTheBuiltInStore) {
    ASSERT_EQ(run({folder.string()}), 0);
    use();
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0);
        EXPECT_TRUE(sameBytes(*image, *composed(selector)));
    }
    BoardRecord board, builtIn;
    factory::composeBoard(builtIn);
    EXPECT_EQ(mapi_sys_eeprom_info_get(transaction.handle, &board), 0);
    EXPECT_TRUE(sameBytes(board, builtIn));
    EXPECT_EQ(mapi_sys_dualimage_state_get(transaction.handle), 1);
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0);
    const std::string conf = get("platform.conf");
    EXPECT_TRUE(contains(conf, "\nactive_bank=1\n")) << conf;
    EXPECT_TRUE(contains(conf, "\npassword_encryption=none\n")) << conf;
}

TEST_F(Export, OverwritesNothing) {
    for (const std::string &name : exported) {
        put(name, "mine");
        EXPECT_EQ(run({folder.string()}), 1);
        EXPECT_EQ(error, "textcfg-store: " + path(name) + ": is there already and is not overwritten\n");
        EXPECT_EQ(files(), std::vector<std::string>{name});
        EXPECT_EQ(get(name), "mine");
        std::filesystem::remove(path(name));
    }
    std::filesystem::create_symlink(path("nowhere"), path("running.img"));
    EXPECT_EQ(run({folder.string()}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("running.img") + ": is there already and is not overwritten\n");
    EXPECT_EQ(files(), std::vector<std::string>{"running.img"}) << "a link that leads nowhere is there, too";
    EXPECT_FALSE(std::filesystem::exists(path("nowhere")));
}

TEST_F(Export, LeavesOtherFilesAlone) {
    put("notes.txt", "mine");
    EXPECT_EQ(run({folder.string()}), 0);
    EXPECT_EQ(get("notes.txt"), "mine");
    EXPECT_EQ(files().size(), exported.size() + 1);
}

TEST_F(Export, TellsWhyTheFolderCannotBe) {
    put("file", "");
    EXPECT_EQ(run({path("file")}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("file") + ": expected a folder: Not a directory\n");
    EXPECT_EQ(run({path("no/where")}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("no/where") + ": the folder cannot be made: No such file or directory\n");
    EXPECT_EQ(run({""}), 1);
    EXPECT_EQ(files(), std::vector<std::string>{"file"});
}

TEST_F(Export, RemovesWhatItMadeIfItFails) {
    // A limit on the size of files stands for a full disk.
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit small = before;
    small.rlim_cur = 4096;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    put("notes.txt", "mine");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const int intoOld = run({folder.string()});
    const std::string saidOfOld = error;
    const int intoNew = run({path("new")});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(intoOld, 1);
    EXPECT_EQ(intoNew, 1);
    EXPECT_EQ(saidOfOld, "textcfg-store: " + path("running.img") + ": cannot be written: File too large\n");
    EXPECT_EQ(files(), std::vector<std::string>{"notes.txt"}) << "neither files nor the new folder are left";
    EXPECT_EQ(run({folder.string()}), 0);
}

TEST_F(Export, SaysHowItIsUsed) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_EQ(out.rfind("Usage: textcfg-store DIR\n", 0), 0U) << out;
    EXPECT_EQ(error, "");
    const std::string usage = out;
    const std::vector<std::vector<std::string>> wrong = {
        {}, {path("a"), path("b")}, {"-x"}, {"--helper"}, {"--help", path("a")}};
    for (const auto &words : wrong) {
        EXPECT_EQ(run(words), 2);
        EXPECT_EQ(error, usage);
        EXPECT_EQ(out, "");
    }
    EXPECT_TRUE(files().empty());
}

} // namespace
