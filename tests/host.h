/// What the tests of the workstation stand-in share.
#pragma once

#include "file.h"

#include "platform/host/factory.h"
#include "platform/mapi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;

/// A text buffer as large as the contract says, filled with a sign that no text holds.
template <std::size_t Size> struct Marked {
    char text[Size];

    Marked() { std::memset(text, '~', sizeof text); }

    /// What was written, which must end with one NUL; nothing after it may have changed.
    std::string written() const {
        const std::size_t length = strnlen(text, Size);
        if (length == Size) return "(not terminated)";
        for (std::size_t i = length + 1; i < Size; ++i)
            if (text[i] != '~') return "(written after the NUL)";
        return text;
    }
};

/// A folder that is gone after the test, and no store named when it begins. Messages are those of a program "textcfg".
class Store : public ::testing::Test {
protected:
    Store() {
        static char program[] = "textcfg";
        program_invocation_short_name = program;
        std::string pattern = (std::filesystem::temp_directory_path() / "textcfg-host-XXXXXX").string();
        EXPECT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        unsetenv("TEXTCFG_STORE");
    }
    ~Store() override {
        unsetenv("TEXTCFG_STORE");
        std::filesystem::remove_all(folder);
    }

    std::string path(const std::string &file) const { return (folder / file).string(); }
    void use() const { setenv("TEXTCFG_STORE", folder.c_str(), 1); }
    void put(const std::string &file, const std::string &bytes) const {
        std::ofstream(path(file), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    std::string get(const std::string &file) const { return bytesOfFile(path(file)); }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    /// How a message about the store begins, as long as it is named.
    std::string about() const { return "textcfg: TEXTCFG_STORE=" + folder.string() + ": "; }

    /// What the start of a transaction says and returns.
    std::int32_t start(std::string &said) const {
        CaptureStderr();
        const std::int32_t handle = mapi_start_transc();
        said = GetCapturedStderr();
        return handle;
    }

    std::filesystem::path folder;
};

/// An open transaction.
struct Open {
    const std::int32_t handle = mapi_start_transc();

    Open() { EXPECT_NE(handle, MAPI_NO_TRANSACTION); }
    ~Open() { EXPECT_EQ(mapi_end_transc(handle), 0); }
    Open(const Open &) = delete;
    Open &operator=(const Open &) = delete;
};

template <class Record> std::string bytesAsText(const Record &record) {
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

/// An image of the built-in store.
inline std::unique_ptr<ConfigImage> composed(std::int32_t selector) {
    auto image = std::make_unique<ConfigImage>();
    factory::composeImage(selector, *image);
    return image;
}

inline bool contains(const std::string &text, const std::string &part) { return text.find(part) != std::string::npos; }

inline void makeFault(const std::string &path, const std::string &name, std::size_t size) {
    if (name == "missing") return;
    if (name == "folder") {
        ASSERT_EQ(mkdir(path.c_str(), 0755), 0);
    } else if (name == "fifo") {
        ASSERT_EQ(mkfifo(path.c_str(), 0644), 0);
    } else if (name == "dangling link") {
        std::filesystem::create_symlink("nowhere", path);
    } else {
        std::ofstream(path, std::ios::binary) << std::string(size, 'x');
    }
}
