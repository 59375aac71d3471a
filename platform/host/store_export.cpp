#include "platform/host/store_export.h"

#include "platform/host/factory.h"
#include "platform/host/message.h"
#include "platform/host/store.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char *usage =
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

constexpr const char *version = "textcfg-store " TEXTCFG_VERSION "\n";

constexpr const char *platformConf = "# The image bank in use: 1 or 2. Any other number leaves the version in the\n"
                                     "# header of a text empty.\n"
                                     "active_bank=1\n"
                                     "\n"
                                     "# How passwords of users are shown: none (as they are) or md5.\n"
                                     "password_encryption=none\n";

/// How much of a file is there.
enum class There { nothing, beginning, whole };

/// A file of the store as it is to be written.
struct NewFile {
    const char *name;
    const void *bytes;
    std::size_t size;
    There there = There::nothing;
    std::size_t length = 0; ///< bytes that are there
};

constexpr std::size_t fileCount = imageFileCount + 2;

ConfigImage images[imageFileCount];
BoardRecord board;

bool fail(const char *folder, const char *file, const char *what, int error) {
    std::fprintf(stderr, "textcfg-store: %s%s%s: %s: %s\n", Shown(folder).text(), file[0] == '\0' ? "" : "/", file,
                 what, std::strerror(error));
    return false;
}

bool refuseToOverwrite(const char *folder, const NewFile &file) {
    std::fprintf(stderr, "textcfg-store: %s/%s: is there already and is not overwritten\n", Shown(folder).text(),
                 file.name);
    return false;
}

bool writeAll(int descriptor, const void *bytes, std::size_t size) {
    const unsigned char *const from = static_cast<const unsigned char *>(bytes);
    for (std::size_t count = 0; count < size;) {
        const ssize_t step = write(descriptor, from + count, size - count);
        if (step == -1 && errno == EINTR) continue;
        if (step == -1) return false;
        count += static_cast<std::size_t>(step);
    }
    return true;
}

/// Whether the file begins with the bytes.
bool beginsWith(int descriptor, const void *bytes, std::size_t size) {
    const unsigned char *const expected = static_cast<const unsigned char *>(bytes);
    unsigned char chunk[4096];
    for (std::size_t count = 0; count < size;) {
        const std::size_t left = size - count;
        const ssize_t step = read(descriptor, chunk, left < sizeof chunk ? left : sizeof chunk);
        if (step == -1 && errno == EINTR) continue;
        if (step <= 0 || std::memcmp(chunk, expected + count, static_cast<std::size_t>(step)) != 0) return false;
        count += static_cast<std::size_t>(step);
    }
    return true;
}

/// Finds out how much of the file is there. Anything but a beginning of it is not this program's.
bool lookFor(const char *folder, int directory, NewFile &file) {
    struct stat status = {};
    if (fstatat(directory, file.name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT || fail(folder, file.name, "cannot be looked for", errno);
    if (!S_ISREG(status.st_mode) || status.st_size > static_cast<off_t>(file.size))
        return refuseToOverwrite(folder, file);
    const int descriptor = openat(directory, file.name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    file.length = static_cast<std::size_t>(status.st_size);
    file.there = file.length == file.size ? There::whole : There::beginning;
    const bool ours = descriptor != -1 && beginsWith(descriptor, file.bytes, file.length);
    if (descriptor != -1) close(descriptor);
    return ours || refuseToOverwrite(folder, file);
}

/// Finds out how much of the store is there. False, having told why, unless it can be made or completed.
bool lookForAll(const char *folder, int directory, NewFile (&files)[fileCount]) {
    bool possible = true;
    bool complete = true;
    for (NewFile &file : files) {
        possible = lookFor(folder, directory, file) && possible;
        complete = complete && file.there == There::whole;
    }
    if (possible && complete)
        for (const NewFile &file : files) refuseToOverwrite(folder, file);
    return possible && !complete;
}

/// Makes or completes one file. A new one that cannot be written whole is removed again.
bool makeFile(const char *folder, int directory, const NewFile &file) {
    const int how = file.there == There::nothing ? O_CREAT | O_EXCL : O_APPEND | O_NOFOLLOW;
    const int descriptor = openat(directory, file.name, O_WRONLY | O_CLOEXEC | how, 0666);
    if (descriptor == -1) return fail(folder, file.name, "cannot be made", errno);
    const unsigned char *const rest = static_cast<const unsigned char *>(file.bytes) + file.length;
    int error = writeAll(descriptor, rest, file.size - file.length) ? 0 : errno;
    if (close(descriptor) != 0 && error == 0) error = errno;
    if (error == 0) return true;
    if (file.there == There::nothing) unlinkat(directory, file.name, 0);
    return fail(folder, file.name, "cannot be written", error);
}

/// Makes or completes all files, or leaves none of those that it makes.
bool makeFiles(const char *folder, int directory, NewFile (&files)[fileCount]) {
    if (!lookForAll(folder, directory, files)) return false;
    for (std::size_t made = 0; made < fileCount; ++made) {
        if (makeFile(folder, directory, files[made])) continue;
        while (made-- != 0)
            if (files[made].there == There::nothing) unlinkat(directory, files[made].name, 0);
        return false;
    }
    return true;
}

bool exportStore(const char *folder) {
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        factory::composeImage(selector, images[selector]);
    factory::composeBoard(board);
    NewFile files[fileCount] = {
        {platformConfFile, platformConf, std::strlen(platformConf)},
        {boardFile, &board, sizeof board},
        {imageFiles[0], &images[0], sizeof images[0]},
        {imageFiles[1], &images[1], sizeof images[1]},
        {imageFiles[2], &images[2], sizeof images[2]},
        {imageFiles[3], &images[3], sizeof images[3]},
    };

    const bool folderMade = mkdir(folder, 0777) == 0;
    if (!folderMade && errno != EEXIST) return fail(folder, "", "the folder cannot be made", errno);
    const int directory = open(folder, O_PATH | O_DIRECTORY | O_CLOEXEC);
    const bool done =
        directory == -1 ? fail(folder, "", "expected a folder", errno) : makeFiles(folder, directory, files);
    if (directory != -1) close(directory);
    if (!done && folderMade) rmdir(folder);
    return done;
}

} // namespace

int storeExportMain(int argc, char **argv) {
    const char *const first = argc > 1 ? argv[1] : "";
    const bool onlyOne = argc == 2;
    const bool asksForHelp = std::strcmp(first, "-h") == 0 || std::strcmp(first, "--help") == 0;
    if (onlyOne && (asksForHelp || std::strcmp(first, "--version") == 0)) {
        std::fputs(asksForHelp ? usage : version, stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    const bool optionsEnd = argc == 3 && std::strcmp(first, "--") == 0;
    if (!onlyOne && !optionsEnd) {
        std::fputs(usage, stderr);
        return 2;
    }
    const char *const folder = optionsEnd ? argv[2] : first;
    if (folder[0] == '\0') {
        std::fputs("textcfg-store: the name of the folder is empty\n", stderr);
        return 2;
    }
    if (folder[0] == '-' && !optionsEnd) {
        const Shown option(folder);
        std::fprintf(stderr, "textcfg-store: %s: there is no such option; a folder of that name is ./%s\n",
                     option.text(), option.text());
        std::fputs(usage, stderr);
        return 2;
    }
    return exportStore(folder) ? 0 : 1;
}
