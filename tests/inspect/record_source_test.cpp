/// Input: what RECORD may be, what belongs to it, and what is said when it cannot be used.
#include "../file.h"

#include "inspect/record_source.h"
#include "platform/host/factory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>

namespace {

using namespace inspect;
namespace fs = std::filesystem;

/// A folder of its own for each test, removed at its end.
class RecordSource : public ::testing::Test {
protected:
    RecordSource() : folder_(fs::temp_directory_path() / ("textcfg-inspect-" + std::to_string(getpid()))) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~RecordSource() override { fs::remove_all(folder_); }

    std::string path(const std::string &name) const { return (folder_ / name).string(); }
    void write(const std::string &name, const void *bytes, std::size_t size) const {
        std::ofstream(folder_ / name, std::ios::binary)
            .write(static_cast<const char *>(bytes), static_cast<std::streamsize>(size));
    }
    void write(const std::string &name, const std::string &text) const { write(name, text.data(), text.size()); }
    void writeImage(const std::string &name, const char *hostName) const {
        auto image = std::make_unique<ConfigImage>();
        factory::composeDefault(*image);
        image->company.hostName = hostName;
        write(name, image.get(), sizeof *image);
    }
    void writeStore() const {
        for (const char *name : {"running", "default", "startup", "customer_default"})
            writeImage(std::string(name) + ".img", name);
        BoardRecord board = {};
        board.boardType = 7;
        write("board.img", &board, sizeof board);
    }
    static Input load(const std::string &record) { return loadInput({.record = record}); }
    static std::string errorOf(const std::function<void()> &work) {
        try {
            work();
        } catch (const InputError &error) {
            return error.what();
        }
        return "(no error)";
    }
    std::string errorOf(const InputOptions &options) const {
        return errorOf([&] { loadInput(options).requireAllOfText(); });
    }
    /// The path of the folder in a message is written as DIR.
    std::string shortened(std::string message) const {
        for (std::size_t at; (at = message.find(folder_.string())) != std::string::npos;)
            message.replace(at, folder_.string().size(), "DIR");
        return message;
    }

    fs::path folder_;
};

TEST_F(RecordSource, AStoreFolderAndItsImages) {
    writeStore();
    write("platform.conf", "active_bank=2\npassword_encryption=md5\n");
    const std::string folder = folder_.string();
    EXPECT_STREQ(load(folder).image->company.hostName.characters, "running");
    EXPECT_STREQ(load(folder + "/").image->company.hostName.characters, "running");
    for (const char *name : {"running", "default", "startup", "customer_default"}) {
        const Input input = load(folder + ':' + name);
        EXPECT_STREQ(input.image->company.hostName.characters, name);
        EXPECT_STREQ(input.defaults->company.hostName.characters, "default");
        EXPECT_EQ(input.board->boardType.value(), 7U);
        EXPECT_EQ(input.bank, 2);
        EXPECT_EQ(input.md5, true);
        EXPECT_EQ(input.isDefaultKind, std::string(name).ends_with("default"));
        EXPECT_TRUE(input.examples().empty());
        EXPECT_STREQ(input.sibling(2)->company.hostName.characters, "startup");
        EXPECT_NO_THROW(input.requireAllOfText());
    }
}

TEST_F(RecordSource, AStoreWithoutSettingsHasThoseThatHoldWithoutThem) {
    writeStore();
    const Input input = load(folder_.string());
    EXPECT_EQ(input.bank, 1);
    EXPECT_EQ(input.md5, false);
}

TEST_F(RecordSource, AnImageFileTakesWhatIsNextToIt) {
    writeStore();
    writeImage("dump.bin", "dumped");
    const Input input = load(path("dump.bin"));
    EXPECT_STREQ(input.image->company.hostName.characters, "dumped");
    EXPECT_STREQ(input.defaults->company.hostName.characters, "default");
    EXPECT_NO_THROW(input.requireAllOfText());
}

TEST_F(RecordSource, WhatIsMissingIsNamedOneAfterTheOther) {
    writeImage("dump.bin", "dumped");
    InputOptions options = {.record = path("dump.bin")};
    EXPECT_NO_THROW(loadInput(options));
    EXPECT_NE(errorOf(options).find("found no default.img next to it"), std::string::npos) << errorOf(options);
    options.defaults = "builtin:default";
    EXPECT_NE(errorOf(options).find("found no board.img next to it"), std::string::npos) << errorOf(options);
    options.board = "builtin:board";
    EXPECT_NE(errorOf(options).find("--bank"), std::string::npos) << errorOf(options);
    options.bank = 1;
    EXPECT_NE(errorOf(options).find("--md5"), std::string::npos) << errorOf(options);
    options.md5 = false;
    EXPECT_EQ(errorOf(options), "(no error)");
    EXPECT_EQ(loadInput(options).examples(), (std::vector<std::string>{"default", "board"}));
}

TEST_F(RecordSource, GivenRecordsComeBeforeTheNeighbours) {
    writeStore();
    writeImage("other.img", "other");
    const Input input = loadInput(
        {.record = folder_.string(), .defaults = path("other.img"), .board = "builtin:board", .bank = 9, .md5 = true});
    EXPECT_STREQ(input.defaults->company.hostName.characters, "other");
    EXPECT_EQ(input.board->boardType.value(), 5028U);
    EXPECT_EQ(input.bank, 9);
    EXPECT_EQ(input.md5, true);
    EXPECT_EQ(input.examples(), std::vector<std::string>{"board"});
}

TEST_F(RecordSource, AnImageInsideOfALargerDump) {
    writeImage("whole.img", "inside");
    const std::string image = bytesOfFile(path("whole.img"));
    write("dump.bin", std::string(100000, 'x') + image + "rest");
    EXPECT_STREQ(loadInput({.record = path("dump.bin"), .offset = 100000}).image->company.hostName.characters,
                 "inside");
    EXPECT_EQ(shortened(errorOf(InputOptions{.record = path("dump.bin"), .offset = 100005})),
              "DIR/dump.bin: found 362148 bytes; expected 262144 bytes from offset 100005 on");
    EXPECT_EQ(shortened(errorOf(InputOptions{.record = path("dump.bin"), .offset = 1000000})),
              "DIR/dump.bin: found 362148 bytes; expected 262144 bytes from offset 1000000 on");
    EXPECT_EQ(errorOf(InputOptions{.record = "builtin:running", .offset = 0}),
              "builtin:running: found the built-in example; expected a file to read from an offset on");
}

TEST_F(RecordSource, ErrorsNameTheFileWhatWasFoundAndWhatWasExpected) {
    write("short.img", std::string(262143, '\0'));
    write("long.img", std::string(262145, '\0'));
    write("empty.img", "");
    const auto error = [&](const std::string &record) { return shortened(errorOf(InputOptions{.record = record})); };
    EXPECT_EQ(error(path("short.img")), "DIR/short.img: found 262143 bytes; expected 262144 bytes");
    EXPECT_EQ(error(path("long.img")), "DIR/long.img: found 262145 bytes; expected 262144 bytes");
    EXPECT_EQ(error(path("empty.img")), "DIR/empty.img: found 0 bytes; expected 262144 bytes");
    EXPECT_EQ(error(path("none.img")), "DIR/none.img: No such file or directory; expected 262144 bytes");
    EXPECT_EQ(error(folder_.string()), "DIR/running.img: No such file or directory; expected 262144 bytes");
    EXPECT_EQ(error(folder_.string() + ":running"),
              "DIR/running.img: No such file or directory; expected 262144 bytes");
    EXPECT_EQ(error(folder_.string() + ":other"), "DIR:other: there is no such image; expected the folder, a colon and "
                                                  "running, default, startup or customer_default");
    EXPECT_EQ(error(path("short.img") + ":running"),
              "DIR/short.img: found something that is not a folder; expected a store folder");
    EXPECT_EQ(error("builtin:other"), "builtin:other: there is no such image; expected builtin: and running, default, "
                                      "startup or customer_default");
    EXPECT_EQ(error(""), "\"\": found an empty name; expected an image file or a store folder");
    EXPECT_EQ(errorOf(InputOptions{.record = "builtin:running", .board = "builtin:bored"}),
              "builtin:bored: there is no such record; expected builtin:board");
    EXPECT_EQ(shortened(errorOf(InputOptions{.record = "builtin:running", .board = path("empty.img")})),
              "DIR/empty.img: found 0 bytes; expected 244 bytes");
}

TEST_F(RecordSource, ANeighbourThatCannotBeUsedIsAProblemOnlyForWhoNeedsIt) {
    writeStore();
    write("default.img", "short");
    write("platform.conf", "active_bank=1\nnonsense\n");
    const Input input = load(folder_.string());
    EXPECT_FALSE(input.defaults);
    EXPECT_EQ(shortened(errorOf([&] { input.requireAllOfText(); })),
              "DIR/default.img: found 5 bytes; expected 262144 bytes");
    EXPECT_EQ(shortened(input.settingsProblem).find("DIR/platform.conf, line 2: found \"nonsense\"; expected "), 0U)
        << input.settingsProblem;
    EXPECT_FALSE(input.bank);
}

TEST_F(RecordSource, TheExample) {
    const Input input = load("builtin:customer_default");
    EXPECT_NO_THROW(input.requireAllOfText());
    EXPECT_TRUE(input.isDefaultKind);
    EXPECT_EQ(input.examples(), (std::vector<std::string>{"record", "default", "board", "settings"}));
    EXPECT_TRUE(input.sibling(0));
}

} // namespace
