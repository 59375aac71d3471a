#include "platform/host/store_export.h"

#include "platform/host/factory.h"
#include "platform/host/store.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char *usage =
    "Usage: textcfg-store DIR\n"
    "\n"
    "Writes the built-in store of textcfg to the folder DIR, which is made if it is missing:\n"
    "  running.img, default.img, startup.img, customer_default.img\n"
    "                 configuration images, 262144 bytes each\n"
    "  board.img      board information record, 244 bytes\n"
    "  platform.conf  settings of the platform\n"
    "Files that are there are not overwritten. textcfg reads the folder when the\n"
    "environment variable TEXTCFG_STORE names it.\n";

constexpr const char *platformConf = "# The image bank in use: 1 or 2. Any other number leaves the version in the\n"
                                     "# header of a text empty.\n"
                                     "active_bank=1\n"
                                     "\n"
                                     "# How passwords of users are shown: none (as they are) or md5.\n"
                                     "password_encryption=none\n";

/// A file of the store as it is to be written.
struct NewFile {
    const char *name;
    const void *bytes;
    std::size_t size;
};

constexpr std::size_t fileCount = imageFileCount + 2;

ConfigImage images[imageFileCount];
BoardRecord board;

bool fail(const char *folder, const char *file, const char *what, int error) {
    std::fprintf(stderr, "textcfg-store: %s%s%s: %s: %s\n", folder, file[0] == '\0' ? "" : "/", file, what,
                 std::strerror(error));
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

/// Makes one file. If it cannot be written whole, it is removed again.
bool makeFile(const char *folder, int directory, const NewFile &file) {
    const int descriptor = openat(directory, file.name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor == -1) return fail(folder, file.name, "cannot be made", errno);
    int error = writeAll(descriptor, file.bytes, file.size) ? 0 : errno;
    if (close(descriptor) != 0 && error == 0) error = errno;
    if (error == 0) return true;
    unlinkat(directory, file.name, 0);
    return fail(folder, file.name, "cannot be written", error);
}

/// Whether none of the files is there yet.
bool nothingThere(const char *folder, int directory, const NewFile (&files)[fileCount]) {
    bool nothing = true;
    for (const NewFile &file : files) {
        struct stat status = {};
        if (fstatat(directory, file.name, &status, AT_SYMLINK_NOFOLLOW) == 0) {
            std::fprintf(stderr, "textcfg-store: %s/%s: is there already and is not overwritten\n", folder, file.name);
            nothing = false;
        } else if (errno != ENOENT) {
            nothing = fail(folder, file.name, "cannot be looked for", errno);
        }
    }
    return nothing;
}

/// Makes all files, or leaves none of them.
bool makeFiles(const char *folder, int directory, const NewFile (&files)[fileCount]) {
    if (!nothingThere(folder, directory, files)) return false;
    for (std::size_t made = 0; made < fileCount; ++made) {
        if (makeFile(folder, directory, files[made])) continue;
        while (made != 0) unlinkat(directory, files[--made].name, 0);
        return false;
    }
    return true;
}

bool exportStore(const char *folder) {
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        factory::composeImage(selector, images[selector]);
    factory::composeBoard(board);
    const NewFile files[fileCount] = {
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
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(usage, stdout);
        return std::fflush(stdout) == 0 ? 0 : 1;
    }
    if (argc != 2 || argv[1][0] == '-') {
        std::fputs(usage, stderr);
        return 2;
    }
    return exportStore(argv[1]) ? 0 : 1;
}
