#include "inspect/record_source.h"

#include "platform/host/factory.h"
#include "platform/mapi.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace inspect {

bool isFolder(const std::string &path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}
bool isThere(const std::string &path) {
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0;
}

namespace {

constexpr std::string_view builtinPrefix = "builtin:";
constexpr std::string_view standardInput = "-";
constexpr std::size_t mostConf = 1 << 20;

[[noreturn]] void fail(const std::string &name, const std::string &found, const std::string &expected) {
    throw InputError(name + ": " + found + "; expected " + expected);
}

std::string bytesText(std::uint64_t count) { return std::to_string(count) + (count == 1 ? " byte" : " bytes"); }

/// An open file. Standard input is one too.
class File {
public:
    File(const std::string &path, const std::string &expected) : name_(path), expected_(expected) {
        if (path == standardInput) {
            name_ = "standard input";
            descriptor_ = STDIN_FILENO;
            return;
        }
        descriptor_ = open(path.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC);
        if (descriptor_ == -1) complain(std::strerror(errno));
        struct stat status = {};
        if (fstat(descriptor_, &status) == 0 && S_ISDIR(status.st_mode)) {
            close(descriptor_);
            descriptor_ = -1;
            complain("found a folder");
        }
    }
    ~File() {
        if (descriptor_ > STDIN_FILENO) close(descriptor_);
    }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    /// Reads up to `size` bytes; fewer only at the end of the file.
    std::size_t read(void *to, std::size_t size) const {
        std::size_t count = 0;
        while (count < size) {
            const ssize_t step = ::read(descriptor_, static_cast<char *>(to) + count, size - count);
            if (step == -1 && errno == EINTR) continue;
            if (step == -1) complain(std::strerror(errno));
            if (step == 0) break;
            count += static_cast<std::size_t>(step);
        }
        return count;
    }

    /// Goes past `size` bytes; returns how many there were.
    std::uint64_t skip(std::uint64_t size) const {
        char buffer[65536];
        std::uint64_t count = 0;
        while (count < size) {
            const std::uint64_t rest = size - count;
            const std::size_t step =
                read(buffer, rest < sizeof buffer ? static_cast<std::size_t>(rest) : sizeof buffer);
            if (step == 0) break;
            count += step;
        }
        return count;
    }

    [[noreturn]] void complain(const std::string &found) const { fail(name_, found, expected_); }

private:
    std::string name_;
    std::string expected_;
    int descriptor_ = -1;
};

/// A record that is the whole file, or that lies in it from `offset` on.
template <class Record>
std::shared_ptr<Record> readRecord(const std::string &path, std::optional<std::uint64_t> offset) {
    std::string expected = bytesText(sizeof(Record));
    if (offset) expected += " from offset " + std::to_string(*offset) + " on";
    const File file(path, expected);
    const std::uint64_t before = offset ? file.skip(*offset) : 0;
    auto record = std::make_shared<Record>();
    const std::size_t size = before < offset.value_or(0) ? 0 : file.read(record.get(), sizeof(Record));
    if (size < sizeof(Record)) file.complain("found " + bytesText(before + size));
    char next = 0;
    if (!offset && file.read(&next, 1) != 0) {
        // The size of what is not a regular file shows only by reading it, and it may have no end.
        struct stat status = {};
        const bool sized = path != standardInput && stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
        file.complain(sized ? "found " + bytesText(static_cast<std::uint64_t>(status.st_size))
                            : "found more than " + bytesText(sizeof(Record)));
    }
    return record;
}

/// Whether the text of an image has the header of the default configurations.
bool isDefaultKind(std::int32_t selector) {
    return selector == MAPI_CONFIG_DEFAULT || selector == MAPI_CONFIG_CUSTOMER_DEFAULT;
}

bool isRegular(const std::string &path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string inFolder(const std::string &folder, const std::string &file) {
    return folder.ends_with('/') ? folder + file : folder + '/' + file;
}

/// The selector of an image's name; nothing if there is no such image.
std::optional<std::int32_t> selectorOf(std::string_view name) {
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        if (imageName(selector) == name) return selector;
    return std::nullopt;
}

/// A RECORD taken apart.
struct Place {
    enum class Kind { file, store, builtin } kind;
    std::string path;      ///< the file or the folder
    std::int32_t selector; ///< the image of a store
};

Place placeOf(const std::string &record, std::int32_t fallback) {
    const std::string names = "running, default, startup or customer_default";
    if (record.empty()) fail("\"\"", "found an empty name", "an image file or a store folder");
    if (record.starts_with(builtinPrefix)) {
        const auto selector = selectorOf(record.substr(builtinPrefix.size()));
        if (!selector) fail(record, "there is no such image", "builtin: and " + names);
        return {Place::Kind::builtin, "", *selector};
    }
    if (record == standardInput) return {Place::Kind::file, record, fallback};
    if (isFolder(record)) return {Place::Kind::store, record, fallback};
    const std::size_t colon = record.rfind(':');
    if (colon != std::string::npos && colon != 0 && !isThere(record)) {
        const std::string folder = record.substr(0, colon);
        const auto selector = selectorOf(std::string_view(record).substr(colon + 1));
        if (selector && isFolder(folder)) return {Place::Kind::store, folder, *selector};
        if (selector && isThere(folder)) fail(folder, "found something that is not a folder", "a store folder");
        if (isFolder(folder)) fail(record, "there is no such image", "the folder, a colon and " + names);
    }
    return {Place::Kind::file, record, fallback};
}

ImagePart imageAt(const Place &place, const std::string &name, std::optional<std::uint64_t> offset) {
    ImagePart part;
    part.from = name;
    if (place.kind == Place::Kind::builtin) {
        if (offset) fail(name, "found the built-in example", "a file to read from an offset on");
        part.isExample = true;
        part.value = std::make_shared<ConfigImage>();
        factory::composeImage(place.selector, *part.value);
        return part;
    }
    const bool inStore = place.kind == Place::Kind::store;
    part.value =
        readRecord<ConfigImage>(inStore ? inFolder(place.path, imageFiles[place.selector]) : place.path, offset);
    return part;
}

BoardPart builtinBoard(const std::string &name) {
    BoardPart part = {std::make_shared<BoardRecord>(), name, "", true};
    factory::composeBoard(*part.value);
    return part;
}

BoardPart loadBoard(const std::string &name) {
    if (name.starts_with(builtinPrefix)) {
        if (name != "builtin:board") fail(name, "there is no such record", "builtin:board");
        return builtinBoard(name);
    }
    if (name.empty() || name == standardInput) fail('"' + name + '"', "found no file", "a board record");
    const std::string path = isFolder(name) ? inFolder(name, boardFile) : name;
    return {readRecord<BoardRecord>(path, std::nullopt), path, "", false};
}

/// What lies in the folder, if it is there. A file that cannot be used is a problem only for who needs it.
template <class Type> Found<Type> neighbour(const std::string &folder, const std::string &file) {
    Found<Type> part;
    const std::string path = inFolder(folder, file);
    if (!isThere(path)) return part;
    try {
        if (!isRegular(path)) fail(path, "found something that is not a regular file", bytesText(sizeof(Type)));
        part.value = readRecord<Type>(path, std::nullopt);
        part.from = path;
    } catch (const InputError &error) {
        part.problem = error.what();
    }
    return part;
}

std::string shown(std::string_view line) {
    constexpr std::size_t most = 60;
    std::string text;
    for (const char character : line.substr(0, most)) {
        const unsigned char byte = static_cast<unsigned char>(character);
        char escape[5];
        std::snprintf(escape, sizeof escape, byte >= ' ' && byte < 0x7f ? "%c" : "\\x%02x", byte);
        text += escape;
    }
    return line.size() > most ? text + "..." : text;
}

PlatformConf readConf(const std::string &path) {
    const File file(path, "lines of settings");
    std::string text(mostConf, '\0');
    const std::size_t size = file.read(text.data(), text.size());
    if (size == text.size()) file.complain("found more than " + bytesText(mostConf - 1));
    PlatformConf conf;
    const ConfProblem problem = parsePlatformConf(text.data(), size, conf);
    if (problem.line != 0)
        fail(path + ", line " + std::to_string(problem.line),
             "found \"" + shown(std::string_view(text).substr(problem.start, problem.length)) + '"', problem.expected);
    return conf;
}

void loadNeighbours(Input &input, bool isStore) {
    input.defaults = neighbour<ConfigImage>(input.folder, imageFiles[MAPI_CONFIG_DEFAULT]);
    input.board = neighbour<BoardRecord>(input.folder, boardFile);
    const std::string conf = inFolder(input.folder, platformConfFile);
    // A store without the file has the settings that hold without it. A lone image has none.
    if (!isThere(conf) && !isStore && !input.board && input.board.problem.empty()) return;
    try {
        PlatformConf read;
        if (isThere(conf)) {
            if (!isRegular(conf)) fail(conf, "found something that is not a regular file", "lines of settings");
            read = readConf(conf);
        }
        input.bank = read.activeBank;
        input.md5 = read.md5Passwords;
    } catch (const InputError &error) {
        input.settingsProblem = error.what();
    }
}

std::string missing(const std::string &name, const std::string &what, const std::string &problem,
                    const std::string &remedy) {
    return problem.empty() ? name + ": found no " + what + " next to it; expected one, or " + remedy : problem;
}

} // namespace

std::string imageName(std::int32_t selector) {
    const std::string_view file = imageFiles[selector];
    return std::string(file.substr(0, file.rfind('.')));
}

ImagePart loadImage(const std::string &record, std::int32_t fallback, std::optional<std::uint64_t> offset) {
    return imageAt(placeOf(record, fallback), record, offset);
}

Input loadInput(const InputOptions &options) {
    Input input;
    input.name = options.record;
    const Place place = placeOf(options.record, MAPI_CONFIG_RUNNING);
    input.image = imageAt(place, options.record, options.offset);
    switch (place.kind) {
    case Place::Kind::builtin:
        input.isBuiltin = true;
        input.isDefaultKind = isDefaultKind(place.selector);
        input.defaults = loadImage("builtin:default", MAPI_CONFIG_DEFAULT);
        input.board = builtinBoard("builtin:board");
        input.bank = PlatformConf().activeBank;
        input.md5 = PlatformConf().md5Passwords;
        input.isSettingsExample = true;
        break;
    case Place::Kind::store:
        input.folder = place.path;
        input.isDefaultKind = isDefaultKind(place.selector);
        loadNeighbours(input, true);
        break;
    case Place::Kind::file:
        if (place.path == standardInput || !isRegular(place.path)) break;
        const std::size_t slash = place.path.rfind('/');
        input.folder = slash == std::string::npos ? "." : place.path.substr(0, slash + 1);
        for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
            if (isDefaultKind(selector) && place.path.substr(slash + 1) == imageFiles[selector])
                input.isDefaultKind = true;
        loadNeighbours(input, false);
        break;
    }
    if (options.defaults) {
        if (*options.defaults == standardInput) fail("--default -", "found standard input", "a file or a folder");
        input.defaults = loadImage(*options.defaults, MAPI_CONFIG_DEFAULT);
    }
    if (options.board) input.board = loadBoard(*options.board);
    if (options.bank) input.bank = options.bank;
    if (options.md5) input.md5 = options.md5;
    if (options.bank && options.md5) input.isSettingsExample = false;
    return input;
}

void Input::requireDefaults() const {
    if (!defaults)
        throw InputError(missing(name, imageFiles[MAPI_CONFIG_DEFAULT], defaults.problem,
                                 "--default with an image (--default builtin:default is the example's)"));
}

void Input::requireAllOfText() const {
    requireDefaults();
    if (!board)
        throw InputError(missing(name, boardFile, board.problem,
                                 "--board with a board record (--board builtin:board is the example's)"));
    if (!bank) throw InputError(missing(name, platformConfFile, settingsProblem, "--bank with the image bank in use"));
    if (!md5) throw InputError(missing(name, platformConfFile, settingsProblem, "--md5 yes or --md5 no"));
}

ImagePart Input::sibling(std::int32_t selector) const {
    if (isBuiltin) return loadImage(std::string(builtinPrefix) + imageName(selector), selector);
    if (folder.empty()) return {};
    return neighbour<ConfigImage>(folder, imageFiles[selector]);
}

std::vector<std::string> Input::examples() const {
    std::vector<std::string> names;
    if (image.isExample) names.emplace_back("record");
    if (defaults.isExample) names.emplace_back("default");
    if (board.isExample) names.emplace_back("board");
    if (isSettingsExample) names.emplace_back("settings");
    return names;
}

} // namespace inspect
