#include "platform/host/store.h"

#include "platform/host/message.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A file of a store, closed when it goes out of sight.
class StoreFile {
public:
    StoreFile(const char *folder, const char *file) : folder_(folder), file_(file) {
        const int directory = open(folder, O_PATH | O_DIRECTORY | O_CLOEXEC);
        if (directory == -1) {
            folderError_ = errno;
            return;
        }
        // Without blocking: a FIFO that nobody writes to must not hang the program.
        descriptor_ = openat(directory, file, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (descriptor_ == -1) fileError_ = errno;
        struct stat status = {};
        danglingLink_ = fileError_ == ENOENT && fstatat(directory, file, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                        S_ISLNK(status.st_mode);
        close(directory);
    }
    ~StoreFile() {
        if (descriptor_ != -1) close(descriptor_);
    }
    StoreFile(const StoreFile &) = delete;
    StoreFile &operator=(const StoreFile &) = delete;

    /// Whether the folder is there and has no such file.
    bool absent() const { return fileError_ == ENOENT && !danglingLink_; }

    /// Whether this is a regular file that was opened. Fills `size`; reports on standard error what it is otherwise,
    /// `expected` being what it should be.
    bool isRegular(const char *expected, off_t &size) const {
        if (folderError_ != 0) {
            std::fprintf(stderr, "%s: TEXTCFG_STORE=%s: %s; expected a folder\n", Shown(programName()).text(),
                         Shown(folder_).text(), std::strerror(folderError_));
            return false;
        }
        if (danglingLink_) return complain("found a link that leads nowhere", expected);
        if (fileError_ != 0) return complain(std::strerror(fileError_), expected);
        struct stat status = {};
        if (fstat(descriptor_, &status) != 0) return complain(std::strerror(errno), expected);
        if (S_ISDIR(status.st_mode)) return complain("found a folder", expected);
        if (!S_ISREG(status.st_mode)) return complain("found something that is not a regular file", expected);
        size = status.st_size;
        return true;
    }

    /// Reads exactly `size` bytes to `bytes`. Reports on standard error if it cannot.
    bool read(void *bytes, std::size_t size, const char *expected) const {
        unsigned char *const to = static_cast<unsigned char *>(bytes);
        std::size_t count = 0;
        while (count < size) {
            const ssize_t step = ::read(descriptor_, to + count, size - count);
            if (step == -1 && errno == EINTR) continue;
            if (step == -1) return complain(std::strerror(errno), expected);
            if (step == 0) return complain("the file became shorter while it was read", expected);
            count += static_cast<std::size_t>(step);
        }
        return true;
    }

    /// Reports that the file has another size than `expected`.
    bool complainOfSize(off_t size, const char *expected) const {
        char found[48];
        std::snprintf(found, sizeof found, "found %lld bytes", static_cast<long long>(size));
        return complain(found, expected);
    }

    bool complain(const char *found, const char *expected) const {
        std::fprintf(stderr, "%s: TEXTCFG_STORE=%s: %s: %s; expected %s\n", Shown(programName()).text(),
                     Shown(folder_).text(), file_, found, expected);
        return false;
    }

private:
    const char *folder_;
    const char *file_;
    int folderError_ = 0;
    int fileError_ = 0;
    bool danglingLink_ = false;
    int descriptor_ = -1;
};

/// Has the kernel back the bytes with memory in one go, where it can: half the time of a run went into doing so page by
/// page.
void prepareMemory(void *bytes, std::size_t size) {
#ifdef MADV_POPULATE_WRITE
    const std::uintptr_t pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t before = reinterpret_cast<std::uintptr_t>(bytes) % pageSize;
    static_cast<void>(madvise(static_cast<char *>(bytes) - before, size + before, MADV_POPULATE_WRITE));
#else
    static_cast<void>(bytes);
    static_cast<void>(size);
#endif
}

/// Fills `record` from a file that has exactly its size. A record that could not be read whole is zero.
template <class Record> bool readRecord(const char *folder, const char *name, Record &record) {
    char expected[32];
    std::snprintf(expected, sizeof expected, "%zu bytes", sizeof record);
    const StoreFile file(folder, name);
    off_t size = 0;
    if (!file.isRegular(expected, size)) return false;
    if (size != static_cast<off_t>(sizeof record)) return file.complainOfSize(size, expected);
    prepareMemory(&record, sizeof record);
    if (file.read(&record, sizeof record, expected)) return true;
    std::memset(&record, 0, sizeof record);
    return false;
}

/// A line, or a part of one; not terminated.
struct Span {
    const char *start;
    std::size_t length;

    bool is(const char *text) const { return length == std::strlen(text) && std::memcmp(start, text, length) == 0; }
    /// Takes `text` away from the front, if it is there.
    bool skip(const char *text) {
        const std::size_t size = std::strlen(text);
        if (length < size || std::memcmp(start, text, size) != 0) return false;
        start += size;
        length -= size;
        return true;
    }
    void skipBlanks() {
        while (length != 0 && (*start == ' ' || *start == '\t')) {
            ++start;
            --length;
        }
    }
    /// Takes the name of a setting and the sign after it away from the front, if they are there, so that the value
    /// is left. Blanks around the sign do not count.
    bool skipSetting(const char *name) {
        Span rest = *this;
        if (!rest.skip(name)) return false;
        rest.skipBlanks();
        if (!rest.skip("=")) return false;
        rest.skipBlanks();
        *this = rest;
        return true;
    }
    bool blank() const {
        Span rest = *this;
        rest.skipBlanks();
        return rest.length == 0;
    }
};

/// Reads all of `digits` as a decimal number of 32 bits.
bool parseNumber(Span digits, std::int32_t &number) {
    const bool negative = digits.skip("-");
    const std::int64_t limit = negative ? -static_cast<std::int64_t>(INT32_MIN) : INT32_MAX;
    if (digits.length == 0) return false;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < digits.length; ++i) {
        const char digit = digits.start[i];
        if (digit < '0' || digit > '9') return false;
        value = value * 10 + (digit - '0');
        if (value > limit) return false;
    }
    number = static_cast<std::int32_t>(negative ? -value : value);
    return true;
}

/// Reads one line. Returns what should have stood there, or null if it is understood.
const char *parseLine(Span line, PlatformConf &conf) {
    if (line.blank() || line.start[0] == '#') return nullptr;
    if (line.skipSetting("active_bank"))
        return parseNumber(line, conf.activeBank) ? nullptr
                                                  : "a decimal number from -2147483648 to 2147483647 as active_bank";
    if (line.skipSetting("password_encryption")) {
        const bool md5 = line.is("md5");
        if (!md5 && !line.is("none")) return "none or md5 as password_encryption";
        conf.md5Passwords = md5;
        return nullptr;
    }
    return "active_bank=N or password_encryption=none or password_encryption=md5";
}

/// Reports a line that is not understood.
void complainOfLine(const char *folder, const char *bytes, const ConfProblem &problem) {
    constexpr std::size_t most = 60;
    std::fprintf(stderr, "%s: TEXTCFG_STORE=%s: %s, line %zu: found \"%s\"; expected %s\n", Shown(programName()).text(),
                 Shown(folder).text(), platformConfFile, problem.line,
                 Shown(bytes + problem.start, problem.length, most).text(), problem.expected);
}

} // namespace

ConfProblem parsePlatformConf(const char *bytes, std::size_t length, PlatformConf &conf) {
    // Editors put a byte-order mark in front and a carriage return at the end of each line.
    constexpr const char *mark = "\xef\xbb\xbf";
    constexpr std::size_t markLength = 3;
    std::size_t start = length >= markLength && std::memcmp(bytes, mark, markLength) == 0 ? markLength : 0;
    for (std::size_t number = 1; start < length; ++number) {
        const void *const newline = std::memchr(bytes + start, '\n', length - start);
        const std::size_t end =
            newline == nullptr ? length : static_cast<std::size_t>(static_cast<const char *>(newline) - bytes);
        const std::size_t size = end - start - (end != start && bytes[end - 1] == '\r' ? 1 : 0);
        const char *const expected = parseLine({bytes + start, size}, conf);
        if (expected != nullptr) return {number, start, size, expected};
        start = end + 1;
    }
    return {};
}

bool readImage(const char *folder, const char *file, ConfigImage &image) { return readRecord(folder, file, image); }

bool readBoard(const char *folder, BoardRecord &board) { return readRecord(folder, boardFile, board); }

bool readPlatformConf(const char *folder, PlatformConf &conf) {
    constexpr const char *expected = "lines of settings";
    const StoreFile file(folder, platformConfFile);
    if (file.absent()) {
        conf = {};
        return true;
    }
    off_t size = 0;
    if (!file.isRegular(expected, size)) return false;
    if (size > static_cast<off_t>(platformConfLimit)) {
        char fewer[64];
        std::snprintf(fewer, sizeof fewer, "lines of settings, at most %zu bytes", platformConfLimit);
        return file.complainOfSize(size, fewer);
    }
    char bytes[platformConfLimit];
    const std::size_t length = static_cast<std::size_t>(size);
    if (!file.read(bytes, length, expected)) return false;
    PlatformConf read;
    const ConfProblem problem = parsePlatformConf(bytes, length, read);
    if (problem.line != 0) {
        complainOfLine(folder, bytes, problem);
        return false;
    }
    conf = read;
    return true;
}
