/// The command line: any words, a platform that fails anywhere, an output file that fails anyhow. No path of an input
/// is ever opened: the linker puts the functions below in the place of the C library's.
#include "target.h"

#include "platform.h"

#include "app/run.h"
#include "app/text/text.h"
#include "app/verbs.h"

#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

using fuzz::platform;

namespace {

enum Outcome { written, notOpened, diskFull, closeFails, outcomes };
enum Flag { tooLong = 1, noName = 2 };

enum Refusal { badArgument, invalidOption, noPath, pathTooLong, textTooLong, refusals };
constexpr const char *refusalNames[] = {"bad argument", "invalid option", "no path after the option",
                                        "path that is too long", "text that is too long"};

constexpr std::string_view usage = "\nUsage: \n"
                                   "    default_config  [-f filename] [-F filename]\n"
                                   "    running_config  [-f filename] [-F filename]\n"
                                   "    startup_config  [-f filename] [-F filename]\n"
                                   "    customer_def_config  [-f filename] [-F filename]\n";

struct Reached {
    bool refusal[refusals];
    bool outcome[outcomes];
    bool failingCall[5]; ///< the calls of the run whose failure can be seen
    bool verb[4][2][2];  ///< by selector, delta and page
    bool defaultPath;
} reached;

/// The output file of a run: what was asked for, and what arrived.
struct Output {
    bool active = false; ///< a run is under way
    Outcome outcome = written;
    int opened = 0;
    int truncated = 0;
    std::string path;
    std::string contents;
} output;

ssize_t accept(void *, const char *bytes, std::size_t size) {
    if (output.outcome == diskFull) return 0;
    output.contents.append(bytes, size);
    return static_cast<ssize_t>(size);
}
int closeFile(void *) {
    if (output.outcome != closeFails) return 0;
    errno = EIO;
    return -1;
}

} // namespace

extern "C" {

std::FILE *__real_fopen(const char *path, const char *mode);
std::FILE *__wrap_fopen(const char *path, const char *mode);
std::FILE *__wrap_fopen(const char *path, const char *mode) {
    if (!output.active) return __real_fopen(path, mode);
    ++output.opened;
    output.path = path;
    DEMAND(std::strcmp(mode, "w+") == 0);
    if (output.outcome == notOpened) return nullptr;
    return fopencookie(nullptr, mode, {nullptr, accept, nullptr, closeFile});
}

int __real_truncate(const char *path, off_t length);
int __wrap_truncate(const char *path, off_t length);
int __wrap_truncate(const char *path, off_t length) {
    if (!output.active) return __real_truncate(path, length);
    DEMAND(output.path == path && length == 0);
    ++output.truncated;
    output.contents.clear();
    return 0;
}

int __real_open(const char *path, int flags, mode_t mode);
int __wrap_open(const char *path, int flags, mode_t mode);
int __wrap_open(const char *path, int flags, mode_t mode) {
    DEMAND(!output.active);
    return __real_open(path, flags, mode);
}
}

namespace {

/// What a run must do, worked out from its words in another way than the program's.
struct Expected {
    int status = 0;
    std::string printed;
    bool transaction = false;
    int selector = 1;
    bool delta = false;
    bool page = false;
    std::string path = "/tmp/config";

    Expected refused(Refusal refusal, const std::string &line, bool withUsage) const {
        reached.refusal[refusal] = true;
        Expected expected;
        expected.status = -1;
        expected.printed = line;
        if (withUsage) expected.printed += usage;
        return expected;
    }
};

Expected expectationOf(const std::vector<std::string> &words) {
    Expected expected;
    const std::string name = words.empty() ? "textcfg" : words[0];
    if (words.size() < 2 || words.size() > 4)
        return expected.refused(badArgument, name + ": Bad argument: " + name + "\n", true);
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string &word = words[i];
        if (word.empty() || word[0] != '-') {
            for (const Verb &verb : verbs)
                if (word == verb.word) {
                    expected.selector = verb.selector;
                    expected.page = word.ends_with("_page");
                    expected.delta = word.find("_delta") != word.npos;
                }
        } else if (word.size() < 2 || (word[1] != 'f' && word[1] != 'F')) {
            return expected.refused(invalidOption, name + ": Invalid option: " + word + "\n", true);
        } else if (i + 1 == words.size()) {
            return expected.refused(noPath, "", true);
        } else if (const std::string &path = words[++i]; path.size() > 255) {
            return expected.refused(pathTooLong, name + ": ConfigFile path too long (limit 255 chars)\n", false);
        } else expected.path = path.empty() ? "/tmp/config" : path;
    }
    expected.transaction = true;
    return expected;
}

struct Images {
    ConfigImage empty{};
    ConfigImage full{}; ///< its text is too long
    BoardRecord board{};

    Images() {
        for (TagVlan &vlan : full.tagVlans) {
            vlan.inUse = 1;
            std::memset(vlan.name.characters, 'v', sizeof vlan.name);
            vlan.members.set(0).set(2).set(4).set(6);
        }
        // The running and the startup image have no text in common.
        empty.ports[0].administrativeState = 1;
        board.versionOfBank1 = "V1";
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Images images;
    static const ConfigImage defaults{};

    Input input(data, size);
    const Outcome outcome = static_cast<Outcome>(input.byte() % outcomes);
    const int failing = input.byte() % 8;
    const std::uint8_t flags = input.byte();
    std::vector<std::string> words;
    if ((flags & noName) == 0) {
        words.emplace_back("textcfg");
        // Words end with a NUL, the last one may lack it.
        while (!input.empty() && words.size() < 8) {
            std::string word;
            while (!input.empty()) {
                const char character = static_cast<char>(input.byte());
                if (character == '\0') break;
                word += character;
            }
            words.push_back(word);
        }
    }

    fuzz::forgetCalls();
    platform.failingCall = failing == 7 ? -1 : failing;
    platform.bank = 1;
    platform.board = &images.board;
    const bool overflows = (flags & tooLong) != 0;
    for (const ConfigImage *&image : platform.images) image = overflows ? &images.full : &images.empty;
    platform.images[1] = overflows ? &images.full : &defaults;

    clearText(); // a header that is refused leaves the text as it was
    output = {};
    output.outcome = outcome;
    std::vector<std::vector<char>> copies;
    for (const std::string &word : words) {
        copies.emplace_back(word.begin(), word.end());
        copies.back().push_back('\0');
    }
    std::vector<char *> argv;
    for (std::vector<char> &copy : copies) argv.push_back(copy.data());
    argv.push_back(nullptr);

    char *printed = nullptr;
    std::size_t printedSize = 0;
    std::FILE *const before = stdout;
    std::FILE *const heard = open_memstream(&printed, &printedSize);
    DEMAND(heard != nullptr);
    stdout = heard;
    output.active = true;
    const int status = textcfgMain(static_cast<int>(words.size()), argv.data());
    output.active = false;
    stdout = before;
    std::fclose(heard);
    const std::string said(printed, printedSize);
    std::free(printed);

    Expected expected = expectationOf(words);
    DEMAND(platform.open == 0);
    if (!expected.transaction) {
        DEMAND(status == expected.status && said == expected.printed);
        DEMAND(platform.calls == 0 && output.opened == 0 && output.truncated == 0);
        return 0;
    }

    // A call that fails ends the run without a word: the start, the board, the image, the default image.
    if (failing < 4) {
        DEMAND(status == -1 && said.empty() && output.opened == 0);
        DEMAND(platform.calls == failing + (failing == 0 ? 1 : 2));
        reached.failingCall[failing] = true;
        return 0;
    }
    DEMAND(platform.selector == expected.selector && platform.fetched == 2);
    DEMAND(platform.starts == (expected.page || failing == 4 ? 1 : 2));
    if (textOverflowed()) {
        DEMAND(overflows);
        DEMAND(status == -1 && output.opened == 0);
        DEMAND(said == "textcfg: text configuration too long (limit 262143 bytes)\n");
        reached.refusal[textTooLong] = true;
        return 0;
    }
    DEMAND(status == 0 && said.empty() && output.opened == 1 && output.path == expected.path);
    const bool whole = outcome == written;
    DEMAND(output.truncated == (outcome == diskFull || outcome == closeFails ? 1 : 0));
    DEMAND(output.contents == (whole ? std::string_view(Temp_Configuration) : std::string_view()));

    // The text is that of the verb: its header, and a line that only full mode writes.
    const std::string_view text = Temp_Configuration;
    const bool noHeader = failing == 4 && !expected.page;
    const std::string_view head = noHeader        ? ""
                                  : expected.page ? "configure\n"
                                                  : "# VERSION 5036 6000 V1 MAC 00:00:00:00:00:00\nconfigure\n";
    DEMAND(text.substr(0, head.size()) == head);
    DEMAND(text.find("configure\n", head.size()) == std::string_view::npos);
    DEMAND((text.find("\nno duplex\n") == std::string_view::npos) == expected.delta);
    reached.outcome[outcome] = true;
    reached.verb[expected.selector][expected.delta][expected.page] = true;
    if (failing == 4 && !expected.page) reached.failingCall[4] = true;
    if (expected.path == "/tmp/config") reached.defaultPath = true;
    return 0;
}

bool everythingReached() {
    bool everything = true;
    const auto need = [&everything](bool isReached, const char *what, int which) {
        if (!isReached) std::printf("not reached: %s %d\n", what, which);
        everything = everything && isReached;
    };
    for (int i = 0; i < refusals; ++i) need(reached.refusal[i], refusalNames[i], i);
    for (int i = 0; i < outcomes; ++i) need(reached.outcome[i], "outcome of the file", i);
    for (int i = 0; i < 5; ++i) need(reached.failingCall[i], "failing call", i);
    for (int selector = 0; selector < 4; ++selector)
        for (int delta = 0; delta < 2; ++delta)
            for (int page = 0; page < 2; ++page)
                need(reached.verb[selector][delta][page], "verb", selector * 100 + delta * 10 + page);
    need(reached.defaultPath, "default path", 0);
    return everything;
}
