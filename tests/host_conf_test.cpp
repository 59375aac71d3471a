/// The workstation stand-in: platform.conf, and the passwords that it settles.
#include "host.h"
#include "host_loads.h"
#include "host_reads.h"

#include "platform/host/store.h"

namespace {

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
        {"active_bank=1987654320\n", 1987654320, false},
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
        // As editors leave it.
        {"active_bank=2\r\n", 2, false},
        {"active_bank=2\r", 2, false},
        {"\r\n\r\n", 1, false},
        {" \r\n# remark\r\nactive_bank=2\r\npassword_encryption=md5\r\n", 2, true},
        {"\xef\xbb\xbf", 1, false},
        {"\xef\xbb\xbf\r\n", 1, false},
        {"\xef\xbb\xbf"
         "active_bank=2\r\npassword_encryption=md5\r\n",
         2, true},
        {"\xef\xbb\xbf# remark\nactive_bank=2", 2, false},
        {"active_bank =2\n", 2, false},
        {"active_bank= 2\n", 2, false},
        {"active_bank \t =\t  -2", -2, false},
        {"password_encryption = md5\r\n", 1, true},
        {"password_encryption\t=\tmd5\n", 1, true},
        {"password_encryption=md5\npassword_encryption = none", 1, false},
        {"password_encryption=md5\npassword_encryption=none", 1, false},
    };
    for (const auto &row : cases) {
        PlatformConf conf;
        const std::vector<char> bytes(row.text.begin(), row.text.end()); // nothing after the last byte
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
        {"active_bank=1 \r\n", 1, "active_bank=1 ", number},
        {"active_bank=1\r\r\n", 1, "active_bank=1\r", number},
        {"active_bank = \n", 1, "active_bank = ", number},
        {"active_bank=x\r\n", 1, "active_bank=x", number},
        {"active_bank==1\n", 1, "active_bank==1", number},
        {"active_bank=1\r2\n", 1, "active_bank=1\r2", number},
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
        {"password_encryption = md 5\r\n", 1, "password_encryption = md 5", encryption},
        {"active_bank\n", 1, "active_bank", setting},
        {"active_bank 1\n", 1, "active_bank 1", setting},
        {"active_banks=1\n", 1, "active_banks=1", setting},
        {"active bank=1\n", 1, "active bank=1", setting},
        {"= 1\n", 1, "= 1", setting},
        {"\n\xef\xbb\xbf\n", 2, "\xef\xbb\xbf", setting},
        {"\xef\xbb\xbf\xef\xbb\xbf\n", 1, "\xef\xbb\xbf", setting},
        {"\xef\xbb", 1, "\xef\xbb", setting},
        {"\xef\xbb\xbf#\n\nbank\r\n", 3, "bank", setting},
        {"Active_bank=1\n", 1, "Active_bank=1", setting},
        {" active_bank=1\n", 1, " active_bank=1", setting},
        {" # no comment\n", 1, " # no comment", setting},
        {"x", 1, "x", setting},
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

TEST_F(PlatformConfFile, SettlesTheRunsThatStartAfterIt) {
    use();
    {
        const Open without;
        EXPECT_EQ(mapi_sys_dualimage_state_get(without.handle), 1);
        put("platform.conf", "active_bank=2\n");
        EXPECT_EQ(mapi_sys_dualimage_state_get(without.handle), 1) << "a transaction keeps what it began with";
    }
    {
        const Open with;
        EXPECT_EQ(mapi_sys_dualimage_state_get(with.handle), 2);
        put("platform.conf", "");
    }
    const Open empty;
    EXPECT_EQ(mapi_sys_dualimage_state_get(empty.handle), 1);
}

TEST_F(PlatformConfFile, IsReadOnceInARun) {
    use();
    put("platform.conf", "active_bank=2\n");
    reads = {};
    {
        const Open outer;
        EXPECT_EQ(reads.calls, 1);
        put("platform.conf", "?\n");
        const Open nested;
        EXPECT_EQ(mapi_sys_dualimage_state_get(nested.handle), 2);
        EXPECT_EQ(mapi_sys_userauth_method_get(nested.handle), 0);
        EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0);
        EXPECT_EQ(reads.calls, 1);
    }
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(reads.calls, 2);
}

TEST_F(PlatformConfFile, SetsWhatHoldsWithoutItIfAbsentOrEmpty) {
    PlatformConf conf = {7, true};
    EXPECT_TRUE(readPlatformConf(folder.c_str(), conf));
    EXPECT_EQ(conf.activeBank, 1);
    EXPECT_FALSE(conf.md5Passwords);
    for (const char *text : {"", "\xef\xbb\xbf", "# nothing\n"}) {
        put("platform.conf", text);
        conf = {7, true};
        EXPECT_TRUE(readPlatformConf(folder.c_str(), conf));
        EXPECT_EQ(conf.activeBank, 1) << text;
        EXPECT_FALSE(conf.md5Passwords) << text;
    }
    put("platform.conf", "active_bank=2\n?\n");
    conf = {7, true};
    CaptureStderr();
    EXPECT_FALSE(readPlatformConf(folder.c_str(), conf));
    GetCapturedStderr();
    EXPECT_EQ(conf.activeBank, 7) << "what fails sets nothing";
    EXPECT_TRUE(conf.md5Passwords);
}

TEST_F(PlatformConfFile, HasALimit) {
    use();
    const std::string last = "\nactive_bank=7";
    put("platform.conf", "#" + std::string(65536 - 1 - last.size(), 'x') + last);
    {
        const Open transaction;
        EXPECT_EQ(mapi_sys_dualimage_state_get(transaction.handle), 7);
    }
    std::string said;
    for (const std::size_t size : {std::size_t{65537}, std::size_t{300000}}) {
        put("platform.conf", std::string(size, '\n'));
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(said, about() + "platform.conf: found " + std::to_string(size) +
                            " bytes; expected lines of settings, at most 65536 bytes\n");
    }
}

TEST_F(PlatformConfFile, FailsTheStartIfItBecomesShorter) {
    use();
    put("platform.conf", "active_bank=2\n");
    reads = {};
    reads.left = 12;
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    reads = {};
    EXPECT_EQ(said, about() + "platform.conf: the file became shorter while it was read; expected lines of settings\n");
}

TEST_F(PlatformConfFile, FailsEveryStartIfNotUnderstood) {
    use();
    put("platform.conf", "active_bank=2\npassword=none\n");
    std::string said;
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(
            said,
            about() +
                "platform.conf, line 2: found \"password=none\"; expected active_bank=N or password_encryption=none or "
                "password_encryption=md5\n");
    }
    put("platform.conf", "active_bank=4294967296");
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(
        said,
        about() +
            "platform.conf, line 1: found \"active_bank=4294967296\"; expected a decimal number from -2147483648 to "
            "2147483647 as active_bank\n");
    std::filesystem::remove(path("platform.conf"));
    const Open again;
}

TEST_F(PlatformConfFile, ALineIsShownWithoutControlCharactersAndNotWhole) {
    use();
    const struct {
        std::string text, shown;
    } cases[] = {
        {std::string("\x1b[2J\0\xff", 6), "\\x1b[2J\\x00\\xff"},
        {std::string(60, '\x01'), "\\x01"},
        {std::string(60, 'y'), std::string(60, 'y')},
        {std::string(61, 'y'), std::string(60, 'y') + "..."},
        {std::string(59, 'y') + "\xc3\x9f", std::string(59, 'y') + "\\xc3..."},
    };
    for (const auto &row : cases) {
        put("platform.conf", row.text);
        std::string said, shown;
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        const std::size_t times = row.text[0] == '\x01' ? 60 : 1;
        for (std::size_t i = 0; i < times; ++i) shown += row.shown;
        EXPECT_EQ(said, about() + "platform.conf, line 1: found \"" + shown +
                            "\"; expected active_bank=N or password_encryption=none or password_encryption=md5\n");
    }
}

TEST_F(PlatformConfFile, FailsEveryStartIfItCannotBeRead) {
    use();
    std::string said;
    makeFault(path("platform.conf"), "folder", 0);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, about() + "platform.conf: found a folder; expected lines of settings\n");
    std::filesystem::remove_all(path("platform.conf"));
    makeFault(path("platform.conf"), "dangling link", 0);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION) << "its settings are not those of an absent file";
    EXPECT_EQ(said, about() + "platform.conf: found a link that leads nowhere; expected lines of settings\n");
    put("nowhere", "active_bank=2\n");
    {
        const Open transaction;
        EXPECT_EQ(mapi_sys_dualimage_state_get(transaction.handle), 2);
    }
    std::filesystem::remove(path("platform.conf"));
    makeFault(path("platform.conf"), "fifo", 0);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said,
              about() + "platform.conf: found something that is not a regular file; expected lines of settings\n");
    CaptureStderr();
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), -1);
    EXPECT_EQ(GetCapturedStderr(), about() + "platform.conf: found something that is not a regular file; expected "
                                             "lines of settings\n");
}

TEST_F(PlatformConfFile, NoneMeansPlainPasswords) {
    use();
    put("platform.conf", "password_encryption=none\n");
    const Open transaction;
    EXPECT_EQ(mapi_sys_userauth_method_get(transaction.handle), 0);
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), 0);
}

using PasswordMd5 = Store;

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

TEST_F(PasswordMd5, IsMd5CryptWithAnEmptySalt) {
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
    use();
    const Open transaction;
    Marked<MAPI_PASSWORD_MD5_SIZE> md5;
    EXPECT_EQ(mapi_sys_userauth_password_md5_get(transaction.handle, "admin", md5.text), 0);
    EXPECT_EQ(md5.written(), "CoERg7ynjYLsj2j4glJ34.");
}

TEST_F(PasswordMd5, LeavesTheTextIfItCannotBeMade) {
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    CaptureStderr();
    EXPECT_NE(mapi_sys_userauth_password_md5_get(-1, std::string(100000, 'x').c_str(), md5), 0);
    EXPECT_EQ(GetCapturedStderr(),
              "textcfg: mapi_sys_userauth_password_md5_get: libcrypt makes no MD5 form of this password\n");
    EXPECT_EQ(std::string(md5, sizeof md5), std::string(sizeof md5, '\0'));
}

#ifndef TEXTCFG_CRYPT_LINKED

TEST_F(PasswordMd5, LoadsLibcryptWhenItIsNeeded) {
    const int before = libraryLoads.calls;
    use();
    put("platform.conf", "password_encryption=none\n");
    {
        const Open transaction;
        EXPECT_EQ(mapi_sys_userauth_method_get(transaction.handle), 0);
    }
    EXPECT_EQ(libraryLoads.calls, before) << "no MD5 form, no libcrypt";
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    EXPECT_EQ(mapi_sys_userauth_password_md5_get(-1, "admin", md5), 0);
    EXPECT_GT(libraryLoads.calls, before);
    EXPECT_EQ(libraryLoads.name, "libcrypt.so.1");
}

TEST_F(PasswordMd5, IsRefusedIfLibcryptCannotBeLoaded) {
    use();
    put("platform.conf", "password_encryption=md5\n");
    for (const LibraryLoads::Failure failure : {LibraryLoads::Failure::library, LibraryLoads::Failure::function}) {
        libraryLoads.failure = failure;
        std::string said;
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(said, about() + "mapi_start_transc: password_encryption=md5 is not possible: libcrypt.so.1 cannot be "
                                  "loaded\n");
        char md5[MAPI_PASSWORD_MD5_SIZE] = "";
        CaptureStderr();
        EXPECT_NE(mapi_sys_userauth_password_md5_get(-1, "admin", md5), 0);
        EXPECT_EQ(GetCapturedStderr(), about() + "mapi_sys_userauth_password_md5_get: not possible: libcrypt.so.1 "
                                                 "cannot be loaded\n");
        EXPECT_EQ(md5[0], '\0');
        libraryLoads.failure = LibraryLoads::Failure::none;
    }
    put("platform.conf", "password_encryption=none\n");
    const int calls = libraryLoads.calls;
    { const Open transaction; }
    EXPECT_EQ(libraryLoads.calls, calls) << "what needs no libcrypt works without it";
}

#endif

#else

TEST_F(PlatformConfFile, Md5IsRefusedByName) {
    use();
    put("platform.conf", "password_encryption=md5\n");
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said,
              about() +
                  "mapi_start_transc: password_encryption=md5 is not supported by this build, which has no libcrypt\n");
    CaptureStderr();
    EXPECT_EQ(mapi_sys_userauth_method_get(-1), -1);
    EXPECT_EQ(GetCapturedStderr(), about() +
                                       "mapi_sys_userauth_method_get: password_encryption=md5 is not supported by "
                                       "this build, which has no libcrypt\n");
}

TEST_F(PasswordMd5, IsRefusedByName) {
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    CaptureStderr();
    EXPECT_NE(mapi_sys_userauth_password_md5_get(-1, "admin", md5), 0);
    EXPECT_EQ(GetCapturedStderr(),
              "textcfg: mapi_sys_userauth_password_md5_get: not supported by this build, which has "
              "no libcrypt\n");
    EXPECT_EQ(md5[0], '\0');
}

#endif

} // namespace
