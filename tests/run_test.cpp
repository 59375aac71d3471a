/// The run: command line, order of calls to the platform, failures, output file.
#include "file.h"
#include "output_file.h"
#include "rows.h"

#include "app/run.h"
#include "app/verbs.h"
#include "platform/mapi.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Calls = std::vector<std::string>;

constexpr const char *usage = "\n"
                              "Usage: \n"
                              "    default_config  [-f filename] [-F filename]\n"
                              "    running_config  [-f filename] [-F filename]\n"
                              "    startup_config  [-f filename] [-F filename]\n"
                              "    customer_def_config  [-f filename] [-F filename]\n";

void put(const fs::path &path, const std::string &text) { std::ofstream(path, std::ios::binary) << text; }

/// The calls of the run itself, without those that rendering the users makes.
Calls runCalls() {
    Calls calls;
    for (const std::string &call : platform.calls)
        if (call.rfind("method", 0) != 0 && call.rfind("md5", 0) != 0) calls.push_back(call);
    return calls;
}

/// The next run's calls are recorded alone, and its first handle is 1.
void forgetCalls() {
    platform.calls.clear();
    platform.lastHandle = 0;
}

struct Result {
    int status;
    std::string printed;

    bool operator==(const Result &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Result &result) {
    return out << "status " << result.status << ", printed \"" << result.printed << '"';
}

const Result silentSuccess = {0, ""};
const Result silentFailure = {-1, ""};

/// Runs the program with `words`, the first being its name.
Result runNamed(std::vector<std::string> words) {
    std::vector<char *> argv;
    for (std::string &word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    Result result{};
    result.printed = printedBy([&] { result.status = textcfgMain(static_cast<int>(words.size()), argv.data()); });
    return result;
}

/// Runs the program "tool" with `words` after its name.
Result run(std::vector<std::string> words) {
    words.insert(words.begin(), "tool");
    return runNamed(std::move(words));
}

/// Each selector's image has another port shut down: port 1 in the running one, 2 in the default, 3 in the startup, 4
/// in the customer default.
class Run : public testing::Test {
protected:
    void SetUp() override {
        resetAll();
        for (int selector = 0; selector < 4; ++selector)
            platform.images[selector].ports[selector].administrativeState = 1;
        platform.board.versionOfBank1 = "V1.0.0";
        platform.board.versionOfBank2 = "V2.0.0";
        platform.board.macAddress = {{0x00, 0x11, 0x22, 0x33, 0x44, 0x55}};
        std::memset(ConfigFile, 0, sizeof ConfigFile);

        std::string name = (fs::temp_directory_path() / "textcfg-run-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        path = (folder / "out.txt").string();
        byDefault = (folder / "default.txt").string();
        outputFile = {};
        outputFile.standsForDefault = byDefault;
    }
    void TearDown() override {
        EXPECT_EQ(0, ConfigFile[255]) << "the byte after the path";
        // Nothing holds the mutex between runs.
        ASSERT_EQ(0, pthread_mutex_trylock(&CfgFileMutex));
        pthread_mutex_unlock(&CfgFileMutex);
        outputFile = {};
        fs::remove_all(folder);
    }

    bool nothingWritten() const { return fs::is_empty(folder); }

    fs::path folder;
    std::string path;
    std::string byDefault; ///< the file in place of /tmp/config
};

/// A path of `length` characters in `folder`.
std::string pathOf(const fs::path &folder, std::size_t length) {
    std::string path = folder.string() + "/";
    return path + std::string(length - path.size(), 'p');
}

const Calls withHeader(int selector) {
    return {"start", "eeprom 1", "config 1 " + std::to_string(selector), "config 1 1", "start", "bank 2",
            "end 2", "end 1"};
}
const Calls asPage(int selector) {
    return {"start", "eeprom 1", "config 1 " + std::to_string(selector), "config 1 1", "end 1"};
}

// --------------------------------------------------------------------------------------------------------- good runs

struct ExpectedVerb {
    const char *word;
    int selector;
    int portDown; ///< the port that its image shuts down
    bool delta;
    bool page;
};

const ExpectedVerb expectedVerbs[] = {
    {"default_config", 1, 2, false, false},          {"running_config", 0, 1, false, false},
    {"startup_config", 2, 3, false, false},          {"customer_def_config", 3, 4, false, false},
    {"default_config_delta", 1, 2, true, false},     {"running_config_delta", 0, 1, true, false},
    {"startup_config_delta", 2, 3, true, false},     {"customer_def_config_delta", 3, 4, true, false},
    {"default_config_page", 1, 2, false, true},      {"running_config_page", 0, 1, false, true},
    {"startup_config_page", 2, 3, false, true},      {"customer_def_config_page", 3, 4, false, true},
    {"default_config_delta_page", 1, 2, true, true}, {"running_config_delta_page", 0, 1, true, true},
    {"startup_config_delta_page", 2, 3, true, true}, {"customer_def_config_delta_page", 3, 4, true, true},
};

TEST(VerbTable, HasTheWordsThatAreTried) {
    std::multiset<std::string> tried;
    std::multiset<std::string> words;
    for (const ExpectedVerb &verb : expectedVerbs) tried.insert(verb.word);
    for (const Verb &verb : verbs) words.insert(verb.word);
    EXPECT_EQ(tried, words);
}

class Verbs : public Run, public testing::WithParamInterface<ExpectedVerb> {};

TEST_P(Verbs, RendersItsImageWithItsDriver) {
    const ExpectedVerb &verb = GetParam();
    std::vector<std::pair<int, const void *>> fetched;
    platform.onConfig = [&](std::int32_t selector, const void *image) { fetched.emplace_back(selector, image); };
    EXPECT_EQ(silentSuccess, run({verb.word, "-f", path}));

    EXPECT_EQ(verb.page ? asPage(verb.selector) : withHeader(verb.selector), runCalls());
    const std::vector<std::pair<int, const void *>> expected = {{verb.selector, gSysConfig}, {1, gDefConfig}};
    EXPECT_EQ(expected, fetched);

    const std::string text = bytesOfFile(path);
    EXPECT_EQ(Temp_Configuration, text);
    const std::string head = verb.page ? "configure\n"
                                       : "# VERSION 5036 6000 V1.0.0 MAC 00:11:22:33:44:55\n"
                                         "configure\n";
    EXPECT_EQ(head, text.substr(0, head.size()));
    EXPECT_EQ(text.find("configure\n"), text.find("# VERSION") == std::string::npos ? 0 : head.size() - 10);

    const std::string down = "\ninterface " + std::to_string(verb.portDown) + " \nshutdown\nexit\n";
    const bool differs = verb.selector != 1;
    EXPECT_EQ(!verb.delta || differs, text.find(down) != std::string::npos) << text;
    // What is the same in both images is written in full mode only.
    EXPECT_EQ(!verb.delta, text.find("\ninterface 1-28 \nno duplex\nexit\n") != std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(Run, Verbs, testing::ValuesIn(expectedVerbs),
                         [](const auto &verb) { return std::string(verb.param.word); });

TEST_F(Run, FetchesWholeImagesAndTheBoard) {
    for (int selector = 0; selector < 2; ++selector) {
        platform.images[selector].reserved207141.bytes[0] = static_cast<u8>(11 + selector);
        platform.images[selector].reserved207141.bytes[55002] = static_cast<u8>(21 + selector);
    }
    platform.board.reserved224.bytes[19] = 33;
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_TRUE(sameBytes(platform.images[0], *gSysConfig));
    EXPECT_TRUE(sameBytes(platform.images[1], *gDefConfig));
    EXPECT_TRUE(sameBytes(platform.board, g_EEPROM));
}

TEST_F(Run, ClearsTheBoardBeforeItsFetch) {
    std::memset(static_cast<void *>(&g_EEPROM), 0xee, sizeof g_EEPROM);
    int asked = 0;
    platform.onBoard = [&](const void *record) {
        ++asked;
        EXPECT_EQ(&g_EEPROM, record);
        EXPECT_TRUE(sameBytes(BoardRecord{}, g_EEPROM));
    };
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(1, asked);
}

TEST_F(Run, ClearsTheBoardAlsoWhenNoTransactionOpens) {
    std::memset(static_cast<void *>(&g_EEPROM), 0xee, sizeof g_EEPROM);
    platform.failingCall = 0;
    EXPECT_EQ(silentFailure, run({"running_config", "-f", path}));
    EXPECT_TRUE(sameBytes(BoardRecord{}, g_EEPROM));
}

TEST_F(Run, ClearsTheFirstWordOfTheCurrentImageBeforeItsFetch) {
    std::memset(static_cast<void *>(gSysConfig), 0xee, sizeof *gSysConfig);
    std::memset(static_cast<void *>(gDefConfig), 0xee, sizeof *gDefConfig);
    int asked = 0;
    platform.onConfig = [&](std::int32_t, const void *image) {
        const unsigned char *const bytes = static_cast<const unsigned char *>(image);
        if (asked++ == 0) {
            for (int i = 0; i < 4; ++i) EXPECT_EQ(0, bytes[i]) << i;
            for (int i = 4; i < 16; ++i) EXPECT_EQ(0xee, bytes[i]) << i;
        } else {
            EXPECT_EQ(0xee, bytes[0]);
        }
    };
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(2, asked);
}

TEST_F(Run, TakesAnyHandleButMinusOne) {
    for (const std::int32_t handle : {0, -2, INT32_MIN, INT32_MAX - 1}) {
        platform.calls.clear();
        platform.lastHandle = handle - (handle == INT32_MIN ? 0 : 1);
        const std::int32_t outer = handle == INT32_MIN ? INT32_MIN + 1 : handle;
        EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
        const std::string name = std::to_string(outer);
        EXPECT_EQ("eeprom " + name, platform.calls.at(1));
        EXPECT_EQ("end " + name, platform.calls.back());
    }
}

TEST_F(Run, OldContentsOfTheFileAreGone) {
    put(path, std::string(300000, 'o'));
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(Temp_Configuration, bytesOfFile(path));
}

// ------------------------------------------------------------------------------------------------------ command line

/// What a refused command line does: prints, touches nothing.
void expectRefused(const std::vector<std::string> &words, const std::string &printed) {
    forgetCalls();
    EXPECT_EQ((Result{-1, printed}), run(words));
    EXPECT_EQ(Calls{}, platform.calls);
}

TEST_F(Run, ItsNameIsNoWord) {
    for (const char *name : {"startup_config", "-f", "-x"}) {
        forgetCalls();
        EXPECT_EQ(silentSuccess, runNamed({name, "-f", path})) << name;
        EXPECT_EQ(withHeader(1), runCalls()) << name; // the default configuration
    }
}

TEST_F(Run, NeedsOneToThreeWords) {
    const std::string refusal = std::string("tool: Bad argument: tool\n") + usage;
    expectRefused({}, refusal);
    expectRefused({"running_config", "startup_config", "-f", path}, refusal);
    expectRefused({"running_config", "running_config", "running_config", "running_config"}, refusal);
    expectRefused({"-x", "-f", path, "-x", "more"}, refusal);
    EXPECT_TRUE(nothingWritten());
    EXPECT_EQ(Calls{}, outputFile.opened);

    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(silentSuccess, run({"running_config"}));
}

TEST_F(Run, NeedsNoNameToRefuse) {
    char *words[] = {nullptr};
    Result result{};
    result.printed = printedBy([&] { result.status = textcfgMain(0, words); });
    EXPECT_EQ(-1, result.status);
    EXPECT_EQ(std::string("textcfg: Bad argument: textcfg\n") + usage, result.printed);
}

TEST_F(Run, RefusesOtherOptions) {
    for (const char *option : {"-x", "-", "--", "--file", "-e", "-g", "-E", "-G", "- f", "-\xe6"})
        expectRefused({"running_config", option}, std::string("tool: Invalid option: ") + option + "\n" + usage);
    // The first word that cannot be understood decides.
    expectRefused({"-x", "running_config", "-f"}, std::string("tool: Invalid option: -x\n") + usage);
    expectRefused({"-f", path, "-x"}, std::string("tool: Invalid option: -x\n") + usage);
    expectRefused({"-y", "-x"}, std::string("tool: Invalid option: -y\n") + usage);
    EXPECT_TRUE(nothingWritten());
}

TEST_F(Run, FileOptionNeedsAPath) {
    for (const char *option : {"-f", "-F", "-fxyz"}) {
        expectRefused({"running_config", option}, usage);
        expectRefused({option}, usage);
        expectRefused({"-f", path, option}, usage);
    }
    EXPECT_TRUE(nothingWritten());
}

TEST_F(Run, FileOptionIsAnyWordWithTheLetter) {
    for (const char *option : {"-f", "-F", "-fxyz", "-File", "-f-x"}) {
        fs::remove(path);
        EXPECT_EQ(silentSuccess, run({"running_config", option, path})) << option;
        EXPECT_EQ(Temp_Configuration, bytesOfFile(path)) << option;
    }
    fs::remove(path);
    EXPECT_EQ(silentSuccess, run({"-f", path, "running_config"}));
    forgetCalls();
    EXPECT_EQ(silentSuccess, run({"-F", path, "running_config"}));
    EXPECT_EQ(withHeader(0), runCalls());
    EXPECT_EQ(Temp_Configuration, bytesOfFile(path));
}

TEST_F(Run, WordBehindAFileOptionIsAPathWhateverItIs) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    EXPECT_EQ(silentSuccess, run({"-f", "-f"}));
    EXPECT_EQ(silentSuccess, run({"-f", "-x"}));
    forgetCalls();
    EXPECT_EQ(silentSuccess, run({"-f", "running_config"}));
    fs::current_path(before);
    EXPECT_EQ(withHeader(1), runCalls()) << "the path is no verb";
    for (const char *name : {"-f", "-x", "running_config"})
        EXPECT_EQ(Temp_Configuration, bytesOfFile(folder / name)) << name;
}

TEST_F(Run, LastVerbWins) {
    const auto selectorOf = [](const std::vector<std::string> &words) {
        forgetCalls();
        EXPECT_EQ(silentSuccess, run(words));
        return platform.calls.at(2);
    };
    EXPECT_EQ("config 1 2", selectorOf({"running_config", "startup_config"}));
    EXPECT_EQ("config 1 0", selectorOf({"startup_config", "running_config"}));
    EXPECT_EQ("config 1 1", selectorOf({"customer_def_config", "default_config"}));
    EXPECT_EQ("config 1 3", selectorOf({"running_config", "startup_config", "customer_def_config"}));
    EXPECT_EQ("config 1 1", selectorOf({"-f", path})) << "no verb: the default configuration";
    // Words that are no verb change nothing.
    EXPECT_EQ("config 1 0", selectorOf({"running_config", "bogus"}));
    EXPECT_EQ("config 1 0", selectorOf({"running_config", ""}));
    EXPECT_EQ("config 1 1", selectorOf({"bogus"}));
    EXPECT_EQ("config 1 1", selectorOf({""}));
    for (const char *word : {"running_confi", "running_configs", "Running_config", " running_config", "running_config ",
                             "running_config_", "running_config_page_delta", "running_config_html"})
        EXPECT_EQ("config 1 2", selectorOf({"startup_config", word, ""})) << word;
}

// ------------------------------------------------------------------------------------------------------------- paths

TEST_F(Run, DefaultPath) {
    // Without a path, also after a word that is no verb; an empty path is none.
    for (const Calls &words : {Calls{"running_config"}, {"running_config", "bogus"}, {"running_config", "-f", ""}}) {
        outputFile.opened.clear();
        EXPECT_EQ(silentSuccess, run(words));
        EXPECT_STREQ("/tmp/config", ConfigFile);
        EXPECT_EQ(Calls{"/tmp/config"}, outputFile.opened);
        EXPECT_EQ(Temp_Configuration, bytesOfFile(byDefault));
        fs::remove(byDefault);
        EXPECT_TRUE(nothingWritten());
    }

    // A path of an earlier run is forgotten.
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_FALSE(fs::exists(byDefault));
    fs::remove(path);
    EXPECT_EQ(silentSuccess, run({"running_config"}));
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::exists(byDefault));
}

TEST_F(Run, DefaultPathIsNotTakenWithoutABoard) {
    platform.failingCall = 1;
    EXPECT_EQ(silentFailure, run({"running_config"}));
    EXPECT_STREQ("", ConfigFile);
}

TEST_F(Run, PathOfOneCharacterIsTaken) {
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", "p"}));
    fs::current_path(before);
    EXPECT_EQ(Temp_Configuration, bytesOfFile(folder / "p"));
}

TEST_F(Run, PathOf255CharactersIsTaken) {
    const std::string longest = pathOf(folder, 255);
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", longest}));
    EXPECT_EQ(longest, ConfigFile);
    EXPECT_EQ(Temp_Configuration, bytesOfFile(longest));
}

TEST_F(Run, PathOf256CharactersIsRefused) {
    for (const std::size_t length : {std::size_t{256}, std::size_t{257}, std::size_t{5000}})
        expectRefused({"running_config", "-f", pathOf(folder, length)},
                      "tool: ConfigFile path too long (limit 255 chars)\n");
    EXPECT_TRUE(nothingWritten());
    EXPECT_STREQ("", ConfigFile);
}

TEST_F(Run, ShorterPathLeavesNoTraceOfALongerOne) {
    std::memset(ConfigFile, 'z', 255);
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    for (std::size_t i = path.size(); i < 256; ++i) EXPECT_EQ(0, ConfigFile[i]) << i;

    // Also when the words are refused.
    std::memset(ConfigFile, 'z', 255);
    expectRefused({}, std::string("tool: Bad argument: tool\n") + usage);
    for (int i = 0; i < 256; ++i) EXPECT_EQ(0, ConfigFile[i]) << i;

    std::memset(ConfigFile, 'z', 255);
    EXPECT_EQ(silentSuccess, run({"running_config"}));
    for (int i = 11; i < 256; ++i) EXPECT_EQ(0, ConfigFile[i]) << i;
}

TEST_F(Run, ByteBehindThePathIsNeverWritten) {
    ConfigFile[255] = 'z';
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ('z', ConfigFile[255]);
    expectRefused({"running_config", "-f", pathOf(folder, 256)}, "tool: ConfigFile path too long (limit 255 chars)\n");
    EXPECT_EQ('z', ConfigFile[255]);
    ConfigFile[255] = 0;
}

// ----------------------------------------------------------------------------------------------------------- failures

struct Failure {
    const char *name;
    const char *word;
    int failingCall;
    Calls calls;
};

class Failures : public Run, public testing::WithParamInterface<Failure> {};

TEST_P(Failures, EndSilentlyWithoutAFile) {
    const Failure &failure = GetParam();
    for (const std::int32_t result : {5, -1, 1, INT32_MIN, 256, 0x10000}) {
        forgetCalls();
        platform.failure = result;
        platform.failingCall = failure.failingCall;
        EXPECT_EQ(silentFailure, run({failure.word, "-f", path}));
        EXPECT_EQ(failure.calls, platform.calls);
        EXPECT_TRUE(nothingWritten());
    }
    put(path, "kept");
    forgetCalls();
    EXPECT_EQ(silentFailure, run({failure.word, "-f", path}));
    EXPECT_EQ("kept", bytesOfFile(path));
    EXPECT_STREQ("", Temp_Configuration) << "nothing is rendered";
}

INSTANTIATE_TEST_SUITE_P(
    Run, Failures,
    testing::Values(
        Failure{"transaction", "running_config", 0, {"start"}},
        Failure{"board", "running_config", 1, {"start", "eeprom 1", "end 1"}},
        Failure{"running", "running_config", 2, {"start", "eeprom 1", "config 1 0", "end 1"}},
        Failure{"default", "default_config", 2, {"start", "eeprom 1", "config 1 1", "end 1"}},
        Failure{"startup", "startup_config", 2, {"start", "eeprom 1", "config 1 2", "end 1"}},
        Failure{"customer_default", "customer_def_config", 2, {"start", "eeprom 1", "config 1 3", "end 1"}},
        Failure{
            "customer_default_page", "customer_def_config_delta_page", 2, {"start", "eeprom 1", "config 1 3", "end 1"}},
        Failure{"compared_default", "running_config", 3, {"start", "eeprom 1", "config 1 0", "config 1 1", "end 1"}},
        Failure{"compared_default_delta",
                "running_config_delta",
                3,
                {"start", "eeprom 1", "config 1 0", "config 1 1", "end 1"}}),
    [](const auto &failure) { return std::string(failure.param.name); });

TEST_F(Run, FailingHeaderTransactionDropsTheHeaderOnly) {
    EXPECT_EQ(silentSuccess, run({"running_config_page", "-f", path}));
    const std::string body = bytesOfFile(path).substr(std::strlen("configure\n"));
    clearText();
    forgetCalls();
    platform.failingCall = 4;
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ((Calls{"start", "eeprom 1", "config 1 0", "config 1 1", "start", "end 1"}), runCalls());
    EXPECT_EQ(Temp_Configuration, bytesOfFile(path));
    EXPECT_EQ(std::string::npos, bytesOfFile(path).find("# VERSION"));
    EXPECT_EQ(std::string::npos, bytesOfFile(path).find("configure\n"));
    EXPECT_EQ(body, bytesOfFile(path));
}

TEST_F(Run, ResultsOfTheOtherCallsDoNotEndTheRun) {
    platform.board.versionOfBank1 = "V1.0";
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    const Calls good = platform.calls;
    const std::string text = bytesOfFile(path);
    for (std::size_t failing = 5; failing < good.size(); ++failing) {
        fs::remove(path);
        forgetCalls();
        platform.failingCall = static_cast<int>(failing);
        EXPECT_EQ(silentSuccess, run({"running_config", "-f", path})) << good[failing];
        EXPECT_EQ(good, platform.calls) << good[failing];
        // A bank that cannot be told leaves the version empty; nothing else shows.
        std::string expected = text;
        if (good[failing].starts_with("bank")) expected.erase(expected.find("V1.0"), 4);
        EXPECT_EQ(expected, bytesOfFile(path)) << good[failing];
    }
}

TEST_F(Run, PathThatCannotBeOpenedIsNotTold) {
    for (const std::string &bad : {(folder / "missing" / "out.txt").string(), folder.string(), path + "/"}) {
        forgetCalls();
        EXPECT_EQ(silentSuccess, run({"running_config", "-f", bad})) << bad;
        EXPECT_EQ(withHeader(0), runCalls()) << bad;
        EXPECT_TRUE(nothingWritten());
        EXPECT_EQ(-1, TextCfg2file(bad.c_str()));
    }
}

// -------------------------------------------------------------------------------------------------- text that is too
// long

/// Lets the run begin with `length` characters in the text: the header, which would clear it, is dropped.
void beginWith(std::size_t length) {
    forgetCalls();
    platform.failingCall = 4;
    clearText();
    std::memset(Temp_Configuration, 'x', length);
}

TEST_F(Run, TextThatIsTooLongIsToldAndNotWritten) {
    beginWith(0);
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    const std::string body = bytesOfFile(path);

    // The longest text that fits.
    beginWith(262143 - body.size());
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(std::string(262143 - body.size(), 'x') + body, bytesOfFile(path));
    fs::remove(path);

    const Result tooLong = {-1, "tool: text configuration too long (limit 262143 bytes)\n"};
    beginWith(262144 - body.size());
    EXPECT_EQ(tooLong, run({"running_config", "-f", path}));
    EXPECT_EQ((Calls{"start", "eeprom 1", "config 1 0", "config 1 1", "start", "end 1"}), runCalls());
    EXPECT_TRUE(nothingWritten());

    put(path, "kept");
    beginWith(262143);
    EXPECT_EQ(tooLong, run({"running_config", "-f", path}));
    EXPECT_EQ("kept", bytesOfFile(path));

    // The next run in the same process starts afresh.
    platform.failingCall = -1;
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", path}));
    EXPECT_EQ(Temp_Configuration, bytesOfFile(path));
}

// ---------------------------------------------------------------------------------------------------- the output file

class TextFile : public Run {
protected:
    void fill(std::size_t length) {
        clearText();
        std::memset(Temp_Configuration, 't', length);
    }
};

TEST_F(TextFile, HoldsTheTextAndNothingElse) {
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, std::size_t{5000}, std::size_t{262143}}) {
        fill(length);
        EXPECT_EQ(0, TextCfg2file(path.c_str()));
        EXPECT_EQ(std::string(length, 't'), bytesOfFile(path));
    }
    fill(100);
    Temp_Configuration[40] = '\0';
    EXPECT_EQ(0, TextCfg2file(path.c_str()));
    EXPECT_EQ(std::string(40, 't'), bytesOfFile(path)) << "up to the first NUL";
    std::memset(Temp_Configuration, 't', 262144);
    EXPECT_EQ(0, TextCfg2file(path.c_str()));
    EXPECT_EQ(std::string(262144, 't'), bytesOfFile(path)) << "never beyond the buffer";
    clearText();
}

TEST_F(TextFile, FollowsALinkAndKeepsItsTarget) {
    put(folder / "target", "old and longer than the text");
    fs::create_symlink(folder / "target", path);
    fill(4);
    EXPECT_EQ(0, TextCfg2file(path.c_str()));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ("tttt", bytesOfFile(folder / "target"));
}

TEST_F(TextFile, FullDeviceIsNotToldByTheRun) {
    struct stat before {};
    ASSERT_EQ(0, stat("/dev/full", &before));
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", "/dev/full"}));
    EXPECT_EQ(withHeader(0), runCalls());
    for (const std::size_t length : {std::size_t{10}, std::size_t{200000}}) { // fails when closed, and when written
        fill(length);
        EXPECT_EQ(-1, TextCfg2file("/dev/full")) << length;
    }
    struct stat after {};
    ASSERT_EQ(0, stat("/dev/full", &after));
    EXPECT_TRUE(S_ISCHR(after.st_mode));
    EXPECT_EQ(before.st_rdev, after.st_rdev);
}

/// No file may grow beyond `bytes` while this lives, as if the disk were full there.
class SmallFiles {
public:
    explicit SmallFiles(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallFiles() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    SmallFiles(const SmallFiles &) = delete;
    SmallFiles &operator=(const SmallFiles &) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

TEST_F(TextFile, PartOfATextIsNotLeftBehind) {
    for (const std::size_t length : {std::size_t{1001}, std::size_t{262143}}) {
        fill(length);
        put(path, "old");
        int result = 0;
        {
            const SmallFiles small(1000);
            result = TextCfg2file(path.c_str());
        }
        EXPECT_EQ(-1, result) << length;
        EXPECT_TRUE(fs::exists(path));
        EXPECT_EQ("", bytesOfFile(path)) << length;
    }
    fill(1000);
    int result = -1;
    {
        const SmallFiles small(1000);
        result = TextCfg2file(path.c_str());
    }
    EXPECT_EQ(0, result);
    EXPECT_EQ(std::string(1000, 't'), bytesOfFile(path));

    int status = -1;
    {
        const SmallFiles small(10);
        char program[] = "tool";
        char verb[] = "running_config_page";
        char option[] = "-f";
        char *words[] = {program, verb, option, path.data(), nullptr};
        status = textcfgMain(4, words);
    }
    EXPECT_EQ(0, status);
    EXPECT_EQ("", bytesOfFile(path));
}

/// The calls that the kernel was asked for by this process to write something, or -1 if it does not count them.
long long kernelWrites() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    for (long long number; counters >> name >> number;)
        if (name == "syscw:") return number;
    return -1;
}

TEST_F(TextFile, ReachesTheKernelInOneWrite) {
    if (kernelWrites() < 0) GTEST_SKIP() << "this kernel does not count writes";
    for (const std::size_t length : {std::size_t{1}, std::size_t{4096}, std::size_t{5000}, std::size_t{262143}}) {
        fill(length);
        const long long before = kernelWrites();
        EXPECT_EQ(0, TextCfg2file(path.c_str()));
        EXPECT_EQ(before + 1, kernelWrites()) << length;
        EXPECT_EQ(std::string(length, 't'), bytesOfFile(path));
    }
}

/// The output file is only recorded, so that it can fail in every way and the order of the steps shows.
class TextFileSteps : public TextFile {
protected:
    void SetUp() override {
        TextFile::SetUp();
        outputFile.recorded = true;
        fill(262143);
    }

    const std::string open = "open anywhere w+";
    const std::string write = "write 262143";
    const std::string empty = "truncate anywhere 0";
};

TEST_F(TextFileSteps, AreOneWriteWithTheMutexHeld) {
    EXPECT_EQ(0, TextCfg2file("anywhere"));
    EXPECT_EQ((Calls{open, "lock", write, "close", "unlock"}), outputFile.events);
    EXPECT_EQ(std::string(262143, 't'), outputFile.contents);
}

TEST_F(TextFileSteps, LeaveTheMutexAloneIfTheFileCannotBeOpened) {
    outputFile.cannotBeOpened = true;
    EXPECT_EQ(-1, TextCfg2file("anywhere"));
    EXPECT_EQ(Calls{open}, outputFile.events);
}

TEST_F(TextFileSteps, EmptyAFileThatIsNotWhole) {
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{262142}}) {
        outputFile.events.clear();
        outputFile.contents.clear();
        outputFile.room = room;
        EXPECT_EQ(-1, TextCfg2file("anywhere")) << room;
        EXPECT_EQ((Calls{open, "lock", write, "close", empty, "unlock"}), outputFile.events) << room;
        EXPECT_EQ("", outputFile.contents) << room;
    }
}

TEST_F(TextFileSteps, EmptyAFileThatCannotBeClosed) {
    outputFile.closeFails = true;
    EXPECT_EQ(-1, TextCfg2file("anywhere"));
    EXPECT_EQ((Calls{open, "lock", write, "close", empty, "unlock"}), outputFile.events);
    EXPECT_EQ("", outputFile.contents);
}

TEST_F(TextFileSteps, EmptyItAlsoAfterInterruptions) {
    outputFile.room = 5000;
    outputFile.interruptions = 2;
    EXPECT_EQ(-1, TextCfg2file("anywhere"));
    EXPECT_EQ((Calls{open, "lock", write, "close", empty, empty, empty, "unlock"}), outputFile.events);
    EXPECT_EQ("", outputFile.contents);
}

TEST_F(TextFileSteps, EndWithAFileThatCannotBeEmptied) {
    outputFile.room = 5000;
    outputFile.cannotBeEmptied = true;
    EXPECT_EQ(-1, TextCfg2file("anywhere"));
    EXPECT_EQ((Calls{open, "lock", write, "close", empty, "unlock"}), outputFile.events);
}

TEST_F(TextFileSteps, DoNotFailTheRun) {
    outputFile.room = 100;
    outputFile.cannotBeEmptied = true;
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", "anywhere"}));
    outputFile.cannotBeOpened = true;
    EXPECT_EQ(silentSuccess, run({"running_config", "-f", "anywhere"}));
}

} // namespace
