/// The workstation stand-in: `textcfg-store`.
#include "host.h"
#include "host_reads.h"

#include "platform/host/store_export.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

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
        rlimit before = {};
        EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
        rlimit fewer = before;
        const int free = dup(STDOUT_FILENO);
        close(free);
        fewer.rlim_cur = std::min(before.rlim_cur, static_cast<rlim_t>(free) + descriptors);
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &fewer), 0);
        const int status = storeExportMain(static_cast<int>(words.size()), argv.data());
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
        out = GetCapturedStdout();
        error = GetCapturedStderr();
        return status;
    }

    rlim_t descriptors = 16; ///< so many can be opened at a time
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
    EXPECT_EQ(get("platform.conf"), "# The image bank in use: 1 or 2. Any other number leaves the version in the\n"
                                    "# header of a text empty.\n"
                                    "active_bank=1\n"
                                    "\n"
                                    "# How passwords of users are shown: none (as they are) or md5.\n"
                                    "password_encryption=none\n");
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

TEST_F(Export, RefusesAStoreThatIsThere) {
    ASSERT_EQ(run({folder.string()}), 0);
    EXPECT_EQ(run({folder.string()}), 1);
    std::string expected;
    for (const char *name :
         {"platform.conf", "board.img", "running.img", "default.img", "startup.img", "customer_default.img"})
        expected += "textcfg-store: " + path(name) + ": is there already and is not overwritten\n";
    EXPECT_EQ(error, expected);
    EXPECT_EQ(files(), exported);
}

TEST_F(Export, RefusesWhatIsNoBeginningOfItsFile) {
    for (const std::string &name : exported) {
        ASSERT_EQ(run({folder.string()}), 0);
        const std::string whole = get(name);
        std::string lastChanged = whole, firstChanged = whole;
        lastChanged.back() ^= 1;
        firstChanged.front() ^= 1;
        std::filesystem::remove(path(name == "board.img" ? "running.img" : "board.img"));
        // The images lie one after the other in memory: a file that goes on with the next one is too long all the same.
        const std::string next = name == "running.img" ? get("default.img").substr(0, 5000) : "x";
        for (const std::string &other :
             {lastChanged, firstChanged, lastChanged.substr(whole.size() - 1), whole + next}) {
            put(name, other);
            EXPECT_EQ(run({folder.string()}), 1) << name;
            EXPECT_EQ(error, "textcfg-store: " + path(name) + ": is there already and is not overwritten\n");
            EXPECT_EQ(get(name), other) << name;
            EXPECT_EQ(files().size(), exported.size() - 1) << "nothing else is made";
        }
        for (const char *kind : {"folder", "fifo", "dangling link"}) {
            std::filesystem::remove(path(name));
            makeFault(path(name), kind, 0);
            EXPECT_EQ(run({folder.string()}), 1) << name << " " << kind;
            EXPECT_EQ(error, "textcfg-store: " + path(name) + ": is there already and is not overwritten\n");
            EXPECT_EQ(files().size(), exported.size() - 1);
        }
        std::filesystem::remove(path(name));
        put("whole", whole);
        std::filesystem::create_symlink("whole", path(name));
        EXPECT_EQ(run({folder.string()}), 1) << "a link to the same bytes";
        for (const std::string &file : files()) std::filesystem::remove(path(file));
    }
}

TEST_F(Export, CompletesWhatAnInterruptedRunLeft) {
    ASSERT_EQ(run({folder.string()}), 0);
    std::map<std::string, std::string> whole;
    for (const std::string &name : exported) whole[name] = get(name);
    const char *const inOrder[] = {"platform.conf", "board.img",   "running.img",
                                   "default.img",   "startup.img", "customer_default.img"};
    for (std::size_t last = 0; last < 6; ++last) {
        const std::size_t size = whole[inOrder[last]].size();
        for (const std::size_t length : {std::size_t{0}, std::size_t{1}, size / 2, size - 1, size}) {
            if (last == 5 && length == size) continue; // nothing is missing
            for (std::size_t i = last; i < 6; ++i) std::filesystem::remove(path(inOrder[i]));
            put(inOrder[last], whole[inOrder[last]].substr(0, length));
            EXPECT_EQ(run({folder.string()}), 0) << inOrder[last] << " " << length;
            EXPECT_EQ(error, "");
            EXPECT_EQ(files(), exported);
            for (const auto &[name, bytes] : whole) EXPECT_TRUE(get(name) == bytes) << name;
        }
    }
}

TEST_F(Export, TakesNothingForItsOwnThatItCannotRead) {
    ASSERT_EQ(run({folder.string()}), 0);
    std::filesystem::remove(path("customer_default.img"));
    for (const int fault : {0, EIO}) {
        reads = {};
        reads.left = 10000; // within running.img
        reads.error = fault;
        EXPECT_EQ(run({folder.string()}), 1);
        reads = {};
        std::string expected;
        for (const char *name : {"running.img", "default.img", "startup.img"})
            expected += "textcfg-store: " + path(name) + ": is there already and is not overwritten\n";
        EXPECT_EQ(error, expected);
        EXPECT_EQ(files().size(), 5U);
    }
    reads.most = 1000;
    reads.interruptions = 3;
    EXPECT_EQ(run({folder.string()}), 0) << "parts and interruptions are none of that";
    reads = {};
    EXPECT_EQ(files(), exported);
}

TEST_F(Export, WritesOnWhereACallStopped) {
    writes = {};
    writes.most = 100000;
    writes.interruptions = 3;
    EXPECT_EQ(run({folder.string()}), 0);
    EXPECT_GE(writes.calls, 3 + 4 * 3 + 2) << "three parts of each image";
    writes = {};
    EXPECT_EQ(error, "");
    EXPECT_EQ(get("running.img"), bytesAsText(*composed(MAPI_CONFIG_RUNNING)));
    EXPECT_EQ(get("customer_default.img"), bytesAsText(*composed(MAPI_CONFIG_CUSTOMER_DEFAULT)));
}

TEST_F(Export, WritesNothingWhereItCannotLook) {
    writes = {};
    writes.lookError = EIO;
    EXPECT_EQ(run({folder.string()}), 1);
    writes = {};
    std::string expected;
    for (const char *name :
         {"platform.conf", "board.img", "running.img", "default.img", "startup.img", "customer_default.img"})
        expected += "textcfg-store: " + path(name) + ": cannot be looked for: Input/output error\n";
    EXPECT_EQ(error, expected);
    EXPECT_EQ(files(), std::vector<std::string>{});
}

TEST_F(Export, LeavesNoDescriptorOpen) {
    const auto open = [] {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    };
    const auto before = open();
    EXPECT_EQ(run({folder.string()}), 0);
    EXPECT_EQ(run({folder.string()}), 1);
    EXPECT_EQ(open(), before);
}

TEST_F(Export, NeedsTwoDescriptors) {
    put("startup.img", "");
    descriptors = 1; // that is the folder's
    EXPECT_EQ(run({folder.string()}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("startup.img") + ": is there already and is not overwritten\n");
    std::filesystem::remove(path("startup.img"));
    EXPECT_EQ(run({folder.string()}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("platform.conf") + ": cannot be made: Too many open files\n");
    EXPECT_EQ(files(), std::vector<std::string>{});
    descriptors = 2;
    EXPECT_EQ(run({folder.string()}), 0);
}

TEST_F(Export, HelpThatCannotBeWrittenIsAFailure) {
    std::fflush(stdout);
    const int before = dup(STDOUT_FILENO);
    const int full = open("/dev/full", O_WRONLY);
    ASSERT_NE(full, -1);
    dup2(full, STDOUT_FILENO);
    char program[] = "textcfg-store";
    char help[] = "-h";
    char *argv[] = {program, help, nullptr};
    const int status = storeExportMain(2, argv);
    dup2(before, STDOUT_FILENO);
    std::clearerr(stdout);
    close(full);
    close(before);
    EXPECT_EQ(status, 1);
}

TEST_F(Export, AFileIsWholeWhenItIsClosed) {
    writes = {};
    writes.closeError = EDQUOT;
    EXPECT_EQ(run({folder.string()}), 1);
    writes = {};
    EXPECT_EQ(error, "textcfg-store: " + path("platform.conf") + ": cannot be written: Disk quota exceeded\n");
    EXPECT_EQ(files(), std::vector<std::string>{});
}

TEST_F(Export, LeavesPermissionsToTheUmask) {
    const mode_t before = umask(0);
    EXPECT_EQ(run({path("new")}), 0);
    umask(027);
    EXPECT_EQ(run({path("other")}), 0);
    umask(before);
    const auto permissions = [&](const char *name) {
        struct stat status = {};
        EXPECT_EQ(stat(path(name).c_str(), &status), 0);
        return status.st_mode & 07777;
    };
    EXPECT_EQ(permissions("new"), 0777U);
    EXPECT_EQ(permissions("new/board.img"), 0666U);
    EXPECT_EQ(permissions("other"), 0750U);
    EXPECT_EQ(permissions("other/board.img"), 0640U);
}

TEST_F(Export, CanBeRunAgainAfterASignal) {
    // A limit on the size of files ends the program in the middle of a file.
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none = {0, 0}, small = {100000, 100000};
        setrlimit(RLIMIT_CORE, &none);
        setrlimit(RLIMIT_FSIZE, &small);
        std::string program = "textcfg-store", word = folder.string();
        char *words[] = {program.data(), word.data(), nullptr};
        _exit(storeExportMain(2, words));
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << status;
    EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
    EXPECT_EQ(files(), (std::vector<std::string>{"board.img", "platform.conf", "running.img"}));
    EXPECT_EQ(get("running.img").size(), 100000U);
    EXPECT_EQ(run({folder.string()}), 0);
    EXPECT_EQ(error, "");
    EXPECT_EQ(files(), exported);
    EXPECT_EQ(get("running.img"), bytesAsText(*composed(MAPI_CONFIG_RUNNING)));
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
    EXPECT_EQ(files(), std::vector<std::string>{"file"});
}

TEST_F(Export, RemovesWhatItMadeIfItFails) {
    // A limit on the size of files has the effect of a full disk.
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

TEST_F(Export, KeepsWhatWasThereIfItCannotBeCompleted) {
    ASSERT_EQ(run({folder.string()}), 0);
    const std::string running = get("running.img");
    std::filesystem::remove(path("platform.conf"));
    put("running.img", running.substr(0, 1000));
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {4096, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const int status = run({folder.string()});
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(error, "textcfg-store: " + path("running.img") + ": cannot be written: File too large\n");
    EXPECT_EQ(files(), (std::vector<std::string>{"board.img", "customer_default.img", "default.img", "running.img",
                                                 "startup.img"}))
        << "the settings that were made are gone, and nothing else";
    EXPECT_EQ(get("running.img"), running.substr(0, 4096));
    EXPECT_EQ(run({folder.string()}), 0);
    EXPECT_EQ(get("running.img"), running);
}

TEST_F(Export, SaysHowItIsUsed) {
    const std::string usage =
        "Usage: textcfg-store [--] DIR\n"
        "       textcfg-store -h | --help | --version\n"
        "\n"
        "Writes the built-in store of textcfg to the folder DIR, which is made if it is missing:\n"
        "  running.img, default.img, startup.img, customer_default.img\n"
        "                 configuration images, 262144 bytes each\n"
        "  board.img      board information record, 244 bytes\n"
        "  platform.conf  settings of the platform\n"
        "Files that are there are not overwritten; a store that was left incomplete is\n"
        "completed. Words that begin with a hyphen are options, up to a word --.\n"
        "textcfg reads the folder when the environment variable TEXTCFG_STORE names it.\n";
    for (const char *word : {"-h", "--help"}) {
        EXPECT_EQ(run({word}), 0);
        EXPECT_EQ(out, usage);
        EXPECT_EQ(error, "");
    }
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {path("a"), path("b")},
                                                         {"--help", path("a")},
                                                         {path("a"), "--help"},
                                                         {"-h", "-h"},
                                                         {"--version", path("a")},
                                                         {"--", path("a"), path("b")},
                                                         {path("a"), "--"},
                                                         {"--", "--", "--"}};
    for (const auto &words : wrong) {
        EXPECT_EQ(run(words), 2);
        EXPECT_EQ(error, usage);
        EXPECT_EQ(out, "");
    }
    for (const std::string word : {"-x", "--helper", "--", "-", "-help", "--versions", "-\x1b"}) {
        EXPECT_EQ(run({word}), 2);
        const std::string shown = word == "-\x1b" ? "-\\x1b" : word;
        EXPECT_EQ(error, "textcfg-store: " + shown + ": there is no such option; a folder of that name is ./" + shown +
                             "\n" + usage);
        EXPECT_EQ(out, "");
    }
    for (const std::vector<std::string> &words : {std::vector<std::string>{""}, {"--", ""}}) {
        EXPECT_EQ(run(words), 2);
        EXPECT_EQ(error, "textcfg-store: the name of the folder is empty\n");
        EXPECT_EQ(out, "");
    }
    EXPECT_TRUE(files().empty());
}

TEST_F(Export, SaysItsVersion) {
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_EQ(out, "textcfg-store " TEXTCFG_VERSION "\n");
    EXPECT_EQ(error, "");
}

TEST_F(Export, WritesToAFolderNamedLikeAWord) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    const int results[] = {run({"--", "--help"}), run({"./-x"}), run({"--", "--"}), run({"help"})};
    std::filesystem::current_path(before);
    for (const int result : results) EXPECT_EQ(result, 0);
    EXPECT_EQ(files(), (std::vector<std::string>{"--", "--help", "-x", "help"}));
    for (const std::string &name : files()) EXPECT_EQ(get(name + "/board.img").size(), 244U) << name;
}

TEST_F(Export, NamesAreShownWithoutControlCharacters) {
    EXPECT_EQ(run({path("no\nwhere/\x1b[31m")}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("no\\x0awhere/\\x1b[31m") +
                         ": the folder cannot be made: No such file or directory\n");
    std::filesystem::create_directory(path("a\tb"));
    put("a\tb/board.img", "mine");
    EXPECT_EQ(run({path("a\tb")}), 1);
    EXPECT_EQ(error, "textcfg-store: " + path("a\\x09b") + "/board.img: is there already and is not overwritten\n");
}

} // namespace
