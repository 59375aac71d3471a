/// The workstation stand-in: transactions, and the files of a store.
#include "host.h"
#include "host_reads.h"

namespace {

using Transactions = Store;

TEST_F(Transactions, AHandleThatWasNotOpenedIsRefused) {
    auto image = std::make_unique<ConfigImage>();
    BoardRecord board = {};
    char md5[MAPI_PASSWORD_MD5_SIZE] = "";
    use();
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
        std::string expected;
        for (const char *operation :
             {"mapi_end_transc", "mapi_sys_eeprom_info_get", "mapi_sys_config_getconfig",
              "mapi_sys_dualimage_state_get", "mapi_sys_userauth_method_get", "mapi_sys_userauth_password_md5_get"})
            expected += about() + operation + ": transaction " + std::to_string(handle) + " is not open\n";
        EXPECT_EQ(said, expected);
    }
    EXPECT_EQ(md5[0], '\0');
    EXPECT_EQ(bytesAsText(board), std::string(sizeof board, '\0'));
    EXPECT_EQ(bytesAsText(*image), std::string(sizeof *image, '\0'));

    unsetenv("TEXTCFG_STORE");
    CaptureStderr();
    EXPECT_NE(mapi_sys_eeprom_info_get(MAPI_NO_TRANSACTION, &board), 0);
    EXPECT_NE(mapi_end_transc(MAPI_NO_TRANSACTION), 0);
    EXPECT_NE(mapi_sys_config_getconfig(MAPI_NO_TRANSACTION, 0, image.get()), 0);
    EXPECT_EQ(mapi_sys_dualimage_state_get(MAPI_NO_TRANSACTION), -1);
    EXPECT_EQ(GetCapturedStderr(), "textcfg: mapi_sys_eeprom_info_get: transaction -1 is not open\n"
                                   "textcfg: mapi_end_transc: transaction -1 is not open\n"
                                   "textcfg: mapi_sys_config_getconfig: transaction -1 is not open\n"
                                   "textcfg: mapi_sys_dualimage_state_get: transaction -1 is not open\n");
}

TEST_F(Transactions, NestedOnesWork) {
    use();
    put("board.img", std::string(244, 'b'));
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
    use();
    const std::int32_t first = mapi_start_transc();
    mapi_end_transc(first);
    const Open second;
    EXPECT_NE(first, second.handle);
    CaptureStderr();
    EXPECT_EQ(mapi_sys_dualimage_state_get(first), -1);
    GetCapturedStderr();
}

TEST_F(Transactions, EightAreOpenAtMost) {
    use();
    std::vector<std::int32_t> handles;
    for (int i = 0; i < 8; ++i) {
        handles.push_back(mapi_start_transc());
        ASSERT_NE(handles.back(), MAPI_NO_TRANSACTION);
    }
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, about() + "mapi_start_transc: too many transactions are open\n");
    EXPECT_EQ(mapi_end_transc(handles[3]), 0);
    handles[3] = mapi_start_transc();
    EXPECT_NE(handles[3], MAPI_NO_TRANSACTION);
    for (const std::int32_t handle : handles) EXPECT_EQ(mapi_end_transc(handle), 0);
}

TEST_F(Transactions, AnUnknownImageIsRefused) {
    use();
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    for (const std::int32_t selector : {-1, 4, INT32_MAX, INT32_MIN}) {
        CaptureStderr();
        EXPECT_NE(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0);
        EXPECT_EQ(GetCapturedStderr(),
                  about() + "mapi_sys_config_getconfig: unknown image selector; expected 0 to 3\n");
    }
    EXPECT_EQ(bytesAsText(*image), std::string(sizeof *image, '\0'));
    CaptureStderr();
    EXPECT_NE(mapi_sys_config_getconfig(MAPI_NO_TRANSACTION, 4, image.get()), 0);
    EXPECT_EQ(GetCapturedStderr(), about() + "mapi_sys_config_getconfig: transaction -1 is not open\n");
}

TEST_F(Store, UnsetOrEmptyIsTheBuiltInOneAndIsReported) {
    for (const bool empty : {false, true}) {
        if (empty) setenv("TEXTCFG_STORE", "", 1);
        CaptureStderr();
        const Open transaction;
        EXPECT_EQ(GetCapturedStderr(), empty ? "textcfg: TEXTCFG_STORE is empty: this is the built-in example\n"
                                             : "textcfg: TEXTCFG_STORE is not set: this is the built-in example\n");
        CaptureStderr();
        { const Open nested; }
        EXPECT_EQ(GetCapturedStderr(), "") << "once, also where the header asks in a transaction of its own";
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
        char after[8];
    } filled = {};
    EXPECT_EQ(mapi_sys_eeprom_info_get(transaction.handle, &filled.board), 0);
    EXPECT_EQ(bytesAsText(filled.board), std::string(244, 'b'));
    EXPECT_EQ(std::string(filled.after, 8), std::string(8, '\0'));
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
        {"dangling link", 0, "found a link that leads nowhere"},
    };
    const char *const names[] = {"running.img", "default.img", "startup.img", "customer_default.img"};
    auto image = std::make_unique<ConfigImage>();
    for (std::int32_t selector = 0; selector < 4; ++selector) {
        for (const auto &row : cases) {
            makeFault(path(names[selector]), row.name, row.size);
            CaptureStderr();
            EXPECT_NE(mapi_sys_config_getconfig(transaction.handle, selector, image.get()), 0) << row.name;
            EXPECT_EQ(GetCapturedStderr(), about() + names[selector] + ": " + row.found + "; expected 262144 bytes\n");
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
        {"dangling link", 0, "found a link that leads nowhere"},
    };
    for (const auto &row : cases) {
        makeFault(path("board.img"), row.name, row.size);
        BoardRecord board = {};
        CaptureStderr();
        EXPECT_NE(mapi_sys_eeprom_info_get(transaction.handle, &board), 0) << row.name;
        EXPECT_EQ(GetCapturedStderr(), about() + "board.img: " + row.found + "; expected 244 bytes\n");
        EXPECT_EQ(bytesAsText(board), std::string(244, '\0')) << row.name;
        std::filesystem::remove_all(path("board.img"));
    }
}

TEST_F(Store, AFolderThatIsNotThereFailsTheStart) {
    setenv("TEXTCFG_STORE", path("nowhere").c_str(), 1);
    std::string said;
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "textcfg: TEXTCFG_STORE=" + path("nowhere") + ": No such file or directory; expected a folder\n");
    put("file", "");
    setenv("TEXTCFG_STORE", path("file").c_str(), 1);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    EXPECT_EQ(said, "textcfg: TEXTCFG_STORE=" + path("file") + ": Not a directory; expected a folder\n");
}

TEST_F(Store, NamesAreShownWithoutControlCharacters) {
    const struct {
        std::string name, shown;
    } cases[] = {
        {"a\nb", "a\\x0ab"},
        {"\x1b[2J", "\\x1b[2J"},
        {"\x01\x1f\x7f ~", "\\x01\\x1f\\x7f ~"},
        {"stra\xc3\x9f"
         "e \xe2\x9c\x93 \xf0\x9f\x98\x80",
         "stra\xc3\x9f"
         "e \xe2\x9c\x93 \xf0\x9f\x98\x80"},                          // UTF-8
        {"\xc2\x9b\xc2\x9f\xc2\xa0", "\\xc2\\x9b\\xc2\\x9f\xc2\xa0"}, // the control characters beyond ASCII
        {"\x80\x9b\xbf\xc0\xaf\xff", "\\x80\\x9b\\xbf\\xc0\\xaf\\xff"},
        {"\xc3(", "\\xc3("},
        {"\xe2\x9c", "\\xe2\\x9c"},                   // cut off
        {"\xe0\x9f\xbf", "\\xe0\\x9f\\xbf"},          // longer than it need be
        {"\xed\xa0\x80", "\\xed\\xa0\\x80"},          // half of a character
        {"\xed\x9f\xbf", "\xed\x9f\xbf"},             // the last one before those
        {"\xf0\x8f\xbf\xbf", "\\xf0\\x8f\\xbf\\xbf"}, // longer than it need be
        {"\xf4\x8f\xbf\xbf", "\xf4\x8f\xbf\xbf"},     // the last character
        {"\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"}, // beyond it
        {"\xf5\x80\x80\x80", "\\xf5\\x80\\x80\\x80"},
    };
    std::string said;
    BoardRecord board;
    for (const auto &row : cases) {
        setenv("TEXTCFG_STORE", path(row.name).c_str(), 1);
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(said,
                  "textcfg: TEXTCFG_STORE=" + path(row.shown) + ": No such file or directory; expected a folder\n");

        std::filesystem::create_directory(path(row.name));
        put(row.name + "/platform.conf", "?");
        EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
        EXPECT_EQ(said, "textcfg: TEXTCFG_STORE=" + path(row.shown) +
                            ": platform.conf, line 1: found \"?\"; expected active_bank=N or "
                            "password_encryption=none or password_encryption=md5\n");
        put(row.name + "/platform.conf", "");
        const Open transaction;
        CaptureStderr();
        EXPECT_NE(mapi_sys_eeprom_info_get(transaction.handle, &board), 0);
        EXPECT_NE(mapi_end_transc(-1), 0);
        EXPECT_EQ(GetCapturedStderr(), "textcfg: TEXTCFG_STORE=" + path(row.shown) +
                                           ": board.img: No such file or directory; expected 244 bytes\n"
                                           "textcfg: TEXTCFG_STORE=" +
                                           path(row.shown) + ": mapi_end_transc: transaction -1 is not open\n");
    }
    static char program[] = "text\x1b[1mcfg";
    program_invocation_short_name = program;
    setenv("TEXTCFG_STORE", (folder.string() + "/" + std::string(4096, 'x')).c_str(), 1);
    EXPECT_EQ(start(said), MAPI_NO_TRANSACTION);
    const std::string shown = folder.string() + "/" + std::string(4096 - folder.string().size() - 1, 'x') + "...";
    EXPECT_EQ(said, "text\\x1b[1mcfg: TEXTCFG_STORE=" + shown + ": File name too long; expected a folder\n");
}

// ------------------------------------------------------------------------------------------------- reading the files

/// So many descriptors are open.
std::ptrdiff_t openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
}

TEST_F(Store, NoDescriptorStaysOpen) {
    use();
    put("running.img", std::string(262144, 'r'));
    put("startup.img", "short");
    put("board.img", std::string(244, 'b'));
    auto image = std::make_unique<ConfigImage>();
    BoardRecord board;
    CaptureStderr();
    const std::ptrdiff_t before = openDescriptors();
    for (const char *conf : {"", "active_bank=2\n", "?\n"}) {
        put("platform.conf", conf);
        const std::int32_t handle = mapi_start_transc();
        for (std::int32_t selector = 0; selector < 4; ++selector)
            mapi_sys_config_getconfig(handle, selector, image.get());
        mapi_sys_eeprom_info_get(handle, &board);
        mapi_end_transc(handle);
        EXPECT_EQ(openDescriptors(), before) << conf;
    }
    std::filesystem::remove(path("platform.conf"));
    std::filesystem::create_symlink("nowhere", path("platform.conf"));
    EXPECT_EQ(mapi_start_transc(), MAPI_NO_TRANSACTION);
    setenv("TEXTCFG_STORE", path("nowhere").c_str(), 1);
    EXPECT_EQ(mapi_start_transc(), MAPI_NO_TRANSACTION);
    EXPECT_EQ(openDescriptors(), before);
    GetCapturedStderr();
}

using Reading = Store;

TEST_F(Reading, GoesOnAfterInterruptionsAndParts) {
    use();
    put("running.img", std::string(131072, 'a') + std::string(131072, 'b'));
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    reads = {};
    reads.most = 1000;
    reads.interruptions = 3;
    EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, MAPI_CONFIG_RUNNING, image.get()), 0);
    EXPECT_EQ(reads.asked, 144U) << "no more than there is room for after 262 parts";
    reads = {};
    EXPECT_EQ(bytesAsText(*image), std::string(131072, 'a') + std::string(131072, 'b'));
}

TEST_F(Reading, LeavesNoDescriptorToOtherPrograms) {
    use();
    put("running.img", std::string(262144, 'r'));
    put("board.img", std::string(244, 'b'));
    put("platform.conf", "active_bank=2\n");
    reads = {};
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    BoardRecord board;
    EXPECT_EQ(mapi_sys_config_getconfig(transaction.handle, MAPI_CONFIG_RUNNING, image.get()), 0);
    EXPECT_EQ(mapi_sys_eeprom_info_get(transaction.handle, &board), 0);
    EXPECT_GE(reads.calls, 3);
    EXPECT_EQ(reads.inherited, 0);
}

TEST_F(Reading, LeavesZerosWhereItFails) {
    use();
    put("running.img", std::string(262144, 'r'));
    put("board.img", std::string(244, 'b'));
    const Open transaction;
    auto image = std::make_unique<ConfigImage>();
    BoardRecord board = {};
    for (const int error : {0, EIO}) {
        std::memset(static_cast<void *>(image.get()), 0xa5, sizeof *image);
        std::memset(static_cast<void *>(&board), 0xa5, sizeof board);
        reads = {};
        reads.most = 100;
        reads.left = 200;
        reads.error = error;
        CaptureStderr();
        EXPECT_NE(mapi_sys_config_getconfig(transaction.handle, MAPI_CONFIG_RUNNING, image.get()), 0);
        reads.left = 200;
        EXPECT_NE(mapi_sys_eeprom_info_get(transaction.handle, &board), 0);
        reads = {};
        const std::string why = error == 0 ? "the file became shorter while it was read" : "Input/output error";
        EXPECT_EQ(GetCapturedStderr(), about() + "running.img: " + why + "; expected 262144 bytes\n" + about() +
                                           "board.img: " + why + "; expected 244 bytes\n");
        EXPECT_EQ(bytesAsText(*image), std::string(262144, '\0'));
        EXPECT_EQ(bytesAsText(board), std::string(244, '\0'));
    }
}

} // namespace
