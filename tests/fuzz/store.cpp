/// Reading a store: one file of it as the input has it (whole, short, long, absent, something else), fetched as the
/// program fetches it; and the text of platform.conf, any bytes.
#include "target.h"

#include "platform/host/store.h"
#include "platform/mapi.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

enum State { whole, shorter, longer, absent, folder, pipe, danglingLink, states };
constexpr const char *stateNames[] = {"whole", "short", "long", "absent", "a folder", "a pipe", "a dangling link"};

constexpr const char *files[] = {imageFiles[0], imageFiles[1], imageFiles[2],
                                 imageFiles[3], boardFile,     platformConfFile};
constexpr std::size_t fileCount = std::size(files);
constexpr std::size_t boardIndex = 4;
constexpr std::size_t confIndex = 5;

/// What can be complained of.
constexpr const char *complaints[] = {
    "expected a folder",
    "expected 262144 bytes",
    "expected 244 bytes",
    "found a folder",
    "found something that is not a regular file",
    "No such file or directory",
    "found a link that leads nowhere",
    "expected lines of settings, at most 65536 bytes",
    "expected a decimal number from -2147483648 to 2147483647 as active_bank",
    "expected none or md5 as password_encryption",
    "expected active_bank=N or password_encryption=none or password_encryption=md5",
    "...\"; expected",
};

struct Reached {
    bool state[fileCount][states];
    bool complaint[std::size(complaints)];
    bool conf[2]; ///< plain and MD5 passwords
} reached;

/// A folder with a good store, removed at the end.
class Scratch {
public:
    Scratch() {
        std::string name = (fs::temp_directory_path() / "textcfg-fuzz-XXXXXX").string();
        DEMAND(mkdtemp(name.data()) != nullptr);
        path = name;
        for (std::size_t i = 0; i < fileCount; ++i) makeGood(i);
        setenv("TEXTCFG_STORE", path.c_str(), 1);
    }
    ~Scratch() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;

    std::string of(std::size_t file) const { return path + "/" + files[file]; }

    void write(std::size_t file, const void *bytes, std::size_t size, std::size_t wholeSize) const {
        const int descriptor = open(of(file).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        DEMAND(descriptor != -1);
        if (size > wholeSize) size = wholeSize;
        DEMAND(size == 0 || ::write(descriptor, bytes, size) == static_cast<ssize_t>(size));
        DEMAND(ftruncate(descriptor, static_cast<off_t>(wholeSize)) == 0);
        close(descriptor);
    }
    void makeGood(std::size_t file) const {
        fs::remove(of(file));
        if (file != confIndex) write(file, "", 0, sizeOf(file));
    }
    static std::size_t sizeOf(std::size_t file) {
        return file == boardIndex ? sizeof(BoardRecord) : sizeof(ConfigImage);
    }

    std::string path;
};

/// Keeps what is written to standard error while it lives.
class Heard {
public:
    Heard() : stream_(open_memstream(&text_, &size_)), before_(stderr) { stderr = stream_; }
    ~Heard() {
        stop();
        std::free(text_);
    }
    Heard(const Heard &) = delete;
    Heard &operator=(const Heard &) = delete;

    std::string_view stop() {
        if (stream_ != nullptr) {
            stderr = before_;
            std::fclose(stream_);
            stream_ = nullptr;
        }
        return {text_, size_};
    }

private:
    char *text_ = nullptr;
    std::size_t size_ = 0;
    std::FILE *stream_;
    std::FILE *before_;
};

/// Demands that `said` is one line about `folder` and, unless that is empty, the file, and notes what it complains of.
void note(std::string_view said, const std::string &folder, std::string_view file) {
    DEMAND(!said.empty() && said.back() == '\n');
    for (const char character : said.substr(0, said.size() - 1)) {
        const unsigned char byte = static_cast<unsigned char>(character);
        DEMAND(byte >= ' ' && byte != 0x7f);
    }
    const std::string about = ": TEXTCFG_STORE=" + folder + ": " + std::string(file);
    DEMAND(said.find(about) == said.find(": "));
    DEMAND(said.find("; expected ") != std::string_view::npos);
    for (std::size_t i = 0; i < std::size(complaints); ++i)
        if (said.find(complaints[i]) != std::string_view::npos) reached.complaint[i] = true;
}

/// Whether a line of platform.conf is understood, read in another way than the stand-in does.
bool understood(std::string_view line, PlatformConf &conf) {
    if (line.find_first_not_of(" \t") == std::string_view::npos || line[0] == '#') return true;
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return false;
    std::string_view name = line.substr(0, sign);
    while (!name.empty() && (name.back() == ' ' || name.back() == '\t')) name.remove_suffix(1);
    std::string_view value = line.substr(sign + 1);
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    if (name == "password_encryption") {
        conf.md5Passwords = value == "md5";
        return value == "md5" || value == "none";
    }
    if (name != "active_bank") return false;
    const std::string number(value);
    const std::size_t digits = number.empty() || number[0] != '-' ? 0 : 1;
    if (number.size() == digits || number.find_first_not_of("0123456789", digits) != std::string::npos) return false;
    errno = 0;
    const long long bank = std::strtoll(number.c_str(), nullptr, 10);
    if (errno != 0 || bank < INT32_MIN || bank > INT32_MAX) return false;
    conf.activeBank = static_cast<std::int32_t>(bank);
    return true;
}

/// Reads a platform.conf in both ways. Returns whether all of it is understood.
bool readConf(const char *bytes, std::size_t length, PlatformConf &conf) {
    const ConfProblem problem = parsePlatformConf(bytes, length, conf);

    PlatformConf expected;
    const std::string_view all(bytes, length);
    std::size_t number = 0;
    for (std::size_t start = all.substr(0, 3) == "\xef\xbb\xbf" ? 3 : 0; start < length; ++start) {
        const std::string_view whole = all.substr(start, all.find('\n', start) - start);
        const std::string_view line = whole.substr(0, whole.size() - (!whole.empty() && whole.back() == '\r' ? 1 : 0));
        ++number;
        if (!understood(line, expected)) {
            DEMAND(problem.line == number && problem.start == start && problem.length == line.size());
            DEMAND(problem.expected[0] != '\0');
            return false;
        }
        start += whole.size();
    }
    DEMAND(problem.line == 0);
    DEMAND(conf.activeBank == expected.activeBank && conf.md5Passwords == expected.md5Passwords);
    return true;
}

/// Makes `file` what the input has. Returns its size if it is a regular file, else -1.
long long make(const Scratch &store, std::size_t file, State state, std::size_t by, const Input &contents) {
    const std::string path = store.of(file);
    fs::remove(path);
    if (file == confIndex && state == shorter) state = whole; // has no least size
    switch (state) {
    case absent:
    case states: return -1;
    case folder: DEMAND(mkdir(path.c_str(), 0700) == 0); return -1;
    case pipe: DEMAND(mkfifo(path.c_str(), 0600) == 0); return -1;
    case danglingLink: DEMAND(symlink("missing", path.c_str()) == 0); return -1;
    case whole:
    case shorter:
    case longer: break;
    }
    std::size_t size = file == confIndex ? contents.left() : Scratch::sizeOf(file);
    if (state == shorter) size -= by < size ? by : size;
    if (state == longer) size = (file == confIndex ? platformConfLimit : size) + by;
    store.write(file, contents.rest(), contents.left(), size);
    return static_cast<long long>(size);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const Scratch store;

    Input input(data, size);
    const std::size_t file = input.byte() % fileCount;
    const State state = static_cast<State>(input.byte() % states);
    const std::size_t by = std::size_t{1} << input.byte() % 20;

    // A copy of exactly its size, so that a read beyond it is noticed.
    const std::string conf(reinterpret_cast<const char *>(input.rest()), input.left());
    char *const exact = static_cast<char *>(std::malloc(conf.size()));
    if (!conf.empty()) std::memcpy(exact, conf.data(), conf.size());
    PlatformConf settings;
    const bool confUnderstood = readConf(exact, conf.size(), settings);
    std::free(exact);

    const long long made = make(store, file, state, by, input);
    reached.state[file][state] = true;

    // An absent file of settings is none, and one that is not understood or too long fails the start; so does MD5 in a
    // build that cannot do it.
    bool starts = true;
    if (file == confIndex) {
        const bool readable = made >= 0 && made <= static_cast<long long>(platformConfLimit);
        starts = made < 0 ? state == absent : readable && confUnderstood;
        if (made < 0) settings = {};
    } else settings = {};
#ifndef TEXTCFG_HAS_CRYPT
    const bool refusesMd5 = starts && settings.md5Passwords;
#else
    const bool refusesMd5 = false;
#endif
    Heard start;
    const std::int32_t handle = mapi_start_transc();
    const std::string_view said = start.stop();
    DEMAND((handle > 0) == (starts && !refusesMd5));
    if (handle > 0) DEMAND(said.empty());
    else if (!refusesMd5) note(said, store.path, files[file]);

    if (handle > 0) {
        static ConfigImage image;
        static BoardRecord board;
        std::memset(static_cast<void *>(&image), 0xee, sizeof image);
        std::memset(static_cast<void *>(&board), 0xee, sizeof board);
        unsigned char *const record =
            file == boardIndex ? reinterpret_cast<unsigned char *>(&board) : reinterpret_cast<unsigned char *>(&image);
        Heard fetch;
        if (file == confIndex) {
            DEMAND(mapi_sys_dualimage_state_get(handle) == settings.activeBank);
            DEMAND(mapi_sys_userauth_method_get(handle) == (settings.md5Passwords ? 1 : 0));
            DEMAND(mapi_sys_userauth_method_get(MAPI_NO_TRANSACTION) == (settings.md5Passwords ? 1 : 0));
            reached.conf[settings.md5Passwords] = true;
            DEMAND(fetch.stop().empty());
        } else {
            const std::int32_t result =
                file == boardIndex ? mapi_sys_eeprom_info_get(handle, record)
                                   : mapi_sys_config_getconfig(handle, static_cast<std::int32_t>(file), record);
            const std::string_view complaint = fetch.stop();
            const std::size_t wanted = Scratch::sizeOf(file);
            const bool good = made == static_cast<long long>(wanted);
            DEMAND((result == 0) == good);
            if (good) {
                DEMAND(complaint.empty());
                for (std::size_t i = 0; i < wanted; ++i)
                    DEMAND(record[i] == (i < conf.size() ? static_cast<unsigned char>(conf[i]) : 0));
            } else {
                note(complaint, store.path, files[file]);
                for (std::size_t i = 0; i < wanted; ++i) DEMAND(record[i] == 0xee);
            }
        }
        DEMAND(mapi_end_transc(handle) == 0);
    }
    store.makeGood(file);

    // A folder that is not there fails every start.
    if (state == absent) {
        const std::string missing = store.path + "/missing";
        setenv("TEXTCFG_STORE", missing.c_str(), 1);
        Heard noFolder;
        DEMAND(mapi_start_transc() == MAPI_NO_TRANSACTION);
        note(noFolder.stop(), missing, "");
        setenv("TEXTCFG_STORE", store.path.c_str(), 1);
    }
    return 0;
}

bool everythingReached() {
    bool everything = true;
    for (std::size_t file = 0; file < fileCount; ++file)
        for (int state = 0; state < states; ++state) {
            if (reached.state[file][state] || (file == confIndex && state == shorter)) continue;
            std::printf("not reached: %s is %s\n", files[file], stateNames[state]);
            everything = false;
        }
    for (std::size_t i = 0; i < std::size(complaints); ++i)
        if (!reached.complaint[i]) {
            std::printf("not complained: %s\n", complaints[i]);
            everything = false;
        }
#ifdef TEXTCFG_HAS_CRYPT
    const bool confs = reached.conf[0] && reached.conf[1];
#else
    const bool confs = reached.conf[0];
#endif
    if (!confs) std::printf("not reached: settings for both kinds of passwords\n");
    return everything && confs;
}
