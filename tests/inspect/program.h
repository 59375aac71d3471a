/// The program run in this process, over stores in a folder of their own.
#pragma once

#include "platform/board.h"
#include "platform/image.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

struct Ran {
    int status;
    std::string out;
    std::string err;
};

/// Runs the words and catches what they print.
Ran runProgram(const std::vector<std::string> &words);

/// What a folder of a store holds.
struct StoreRecords {
    ConfigImage images[4]; ///< by selector
    BoardRecord board;
    std::int32_t bank;
    bool md5;
};

/// A store that a seed composes: the running image as in the tests of whole texts, the default image, and two more.
void composeStore(std::uint32_t seed, StoreRecords &store);
/// The built-in store.
void composeBuiltInStore(StoreRecords &store);

/// How many of `all` random stores are tried: fewer where the environment says that the machine is slow.
inline std::uint32_t shareOf(std::uint32_t all) {
    return std::getenv("TEXTCFG_COVERAGE_SAMPLE") == nullptr ? all : all / 20 + 1;
}

/// A folder that is gone after the test.
class ProgramTest : public ::testing::Test {
protected:
    ProgramTest();
    ~ProgramTest() override;

    std::string path(const std::string &name) const { return (folder_ / name).string(); }
    void write(const std::string &name, const void *bytes, std::size_t size) const;
    void write(const std::string &name, const ConfigImage &image) const { write(name, &image, sizeof image); }
    /// Writes a store to a folder below, and returns its path.
    std::string writeStore(const std::string &name, const StoreRecords &store) const;
    std::string read(const std::string &name) const;

    std::filesystem::path folder_;
};
