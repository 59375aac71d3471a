/// The workstation stand-in: `textcfg-store`.
#include "host.h"

#include "platform/host/store_export.h"

#include <csignal>
#include <sys/resource.h>

namespace {

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
