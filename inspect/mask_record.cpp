#include "inspect/mask_record.h"

#include "inspect/mask.h"
#include "platform/mapi.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace inspect {
namespace {

namespace fs = std::filesystem;

constexpr mode_t fileMode = 0600;
constexpr mode_t folderMode = 0700;

[[noreturn]] void fail(const std::string &name, const std::string &found) { throw InputError(name + ": " + found); }
[[noreturn]] void failExists(const std::string &name) {
    fail(name, "found something of this name; expected a name that is free");
}

/// A new file or folder that has another name until it is whole.
class Draft {
public:
    explicit Draft(std::string target) : target_(std::move(target)) {
        while (target_.size() > 1 && target_.ends_with('/')) target_.pop_back();
        if (target_.empty()) fail("\"\"", "found an empty name; expected the name of a new record");
        if (isThere(target_)) failExists(target_);
        path_ = target_ + ".part" + std::to_string(getpid());
        if (isThere(path_)) failExists(path_);
    }
    ~Draft() {
        std::error_code ignored;
        if (isMade_) fs::remove_all(path_, ignored);
    }
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;

    void makeFolder() {
        if (mkdir(path_.c_str(), folderMode) != 0) fail(target_, std::strerror(errno));
        isMade_ = true;
    }

    /// Writes a file: the draft itself, or one in the folder that it is.
    void write(const std::string &file, const void *bytes, std::size_t size) {
        const std::string path = file.empty() ? path_ : path_ + '/' + file;
        const std::string name = file.empty() ? target_ : target_ + '/' + file;
        const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, fileMode);
        if (descriptor == -1) fail(name, std::strerror(errno));
        isMade_ = true;
        int problem = 0;
        for (std::size_t count = 0; count < size && problem == 0;) {
            const ssize_t step = ::write(descriptor, static_cast<const char *>(bytes) + count, size - count);
            if (step >= 0) count += static_cast<std::size_t>(step);
            else if (errno != EINTR) problem = errno;
        }
        if (problem == 0 && fsync(descriptor) != 0 && errno != EINVAL) problem = errno;
        if (close(descriptor) != 0 && problem == 0) problem = errno;
        if (problem != 0) fail(name, std::strerror(problem));
    }

    /// Gives it its name, unless something has it by now.
    void finish() {
        if (renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) != 0) {
            // Not every file system can rename so. Then a name that is taken in between could be lost; a last look
            // keeps that time short.
            if (errno != EINVAL && errno != ENOSYS)
                errno == EEXIST ? failExists(target_) : fail(target_, std::strerror(errno));
            if (isThere(target_)) failExists(target_);
            if (std::rename(path_.c_str(), target_.c_str()) != 0) fail(target_, std::strerror(errno));
        }
        isMade_ = false;
    }

private:
    std::string target_;
    std::string path_;
    bool isMade_ = false;
};

void writeFolder(const Input &input, Draft &draft) {
    std::array<ImagePart, imageFileCount> images;
    Masks masks;
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector) {
        ImagePart &image = images[static_cast<std::size_t>(selector)];
        image = selector == MAPI_CONFIG_RUNNING ? input.image : input.sibling(selector);
        if (!image && !image.problem.empty()) throw InputError(image.problem);
        if (image && input.md5.value_or(false)) masks.expectMd5FormsOf(*image);
    }
    if (!input.board && !input.board.problem.empty()) throw InputError(input.board.problem);
    if (!input.settingsProblem.empty()) throw InputError(input.settingsProblem);

    draft.makeFolder();
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector) {
        const ImagePart &image = images[static_cast<std::size_t>(selector)];
        if (!image) continue;
        const auto masked = std::make_shared<ConfigImage>(*image);
        masks.mask(*masked);
        draft.write(imageFiles[selector], masked.get(), sizeof *masked);
    }
    if (input.board) {
        BoardRecord board = *input.board;
        masks.mask(board);
        draft.write(boardFile, &board, sizeof board);
    }
    // Remarks in the file may hold anything, so its settings alone go on.
    const std::string conf =
        "active_bank=" + std::to_string(*input.bank) + "\npassword_encryption=" + (*input.md5 ? "md5" : "none") + "\n";
    draft.write(platformConfFile, conf.data(), conf.size());
}

} // namespace

void writeMasked(const InputOptions &options, const std::string &to) {
    Draft draft(to);
    const Input input = loadInput(options);
    std::error_code ignored;
    if (fs::is_directory(options.record, ignored)) {
        writeFolder(input, draft);
    } else {
        const Input masked = maskedCopy(input);
        draft.write("", &*masked.image, sizeof(ConfigImage));
    }
    draft.finish();
}

} // namespace inspect
