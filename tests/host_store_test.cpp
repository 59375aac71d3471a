/// The workstation stand-in: transactions, and the files of a store.
#include "host.h"

namespace {

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

} // namespace
