/// Differences: that all are named, that none is invented, and that they turn OLD into NEW.
#include "program.h"

#include "app/drivers.h"
#include "inspect/fields.h"
#include "inspect/render.h"
#include "inspect/values.h"
#include "platform/mapi.h"

#include <nlohmann/json.hpp>

#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <set>

namespace {

using namespace inspect;

class Diff : public ProgramTest {
protected:
    std::unique_ptr<StoreRecords> store_ = std::make_unique<StoreRecords>();
};

unsigned char *bytesIn(void *record) { return static_cast<unsigned char *>(record); }

/// Changes `count` bytes of a record, one after the other or anywhere.
void change(std::mt19937 &random, void *record, std::size_t size, std::size_t count) {
    std::size_t at = random() % size;
    for (std::size_t i = 0; i < count; ++i) {
        at = random() % 4 == 0 ? random() % size : (at + 1) % size;
        const unsigned char byte = static_cast<unsigned char>(random() % 3 == 0 ? random() % 2 : random());
        bytesIn(record)[at] = byte;
    }
}

/// A field that differs, as JSON has it.
struct Change {
    std::string path;
    Json json;
};

/// The changes of a record in the JSON of `diff`.
std::vector<Change> changesIn(const Json &fields, Part part) {
    std::vector<Change> changes;
    const auto walk = [&](const auto &self, const Json &json, const Record &type, const std::string &front) -> void {
        for (const auto &[name, value] : json.items()) {
            if (name == "index") continue;
            const Field *const field = type.find(name);
            if (field == nullptr) throw std::runtime_error("no field " + name);
            const auto entry = [&](const Json &one, const std::string &path) {
                if (field->record != nullptr) self(self, one, *field->record, path + '.');
                else changes.push_back({path, one});
            };
            if (field->count == 0) {
                entry(value, front + name);
                continue;
            }
            for (std::size_t i = 0; i < value.size(); ++i) {
                if (value[i].is_null()) continue;
                const std::int64_t index = field->record != nullptr ? value[i].at("index").template get<std::int64_t>()
                                                                    : static_cast<std::int64_t>(i) + field->firstIndex;
                entry(value[i], front + name + '[' + std::to_string(index) + ']');
            }
        }
    };
    walk(walk, fields, recordOf(part), part == Part::image ? "" : std::string(nameOf(part)) + '.');
    return changes;
}

/// Applies what one record of the JSON says, after a look at what was there.
void apply(const Json &json, Part part, void *record) {
    for (const Change &change : changesIn(json["fields"], part)) {
        const std::optional<Leaf> leaf = leafOf(change.path);
        ASSERT_TRUE(leaf) << change.path;
        EXPECT_EQ(change.json["offset"], leaf->offset()) << change.path;
        EXPECT_EQ(change.json["old"], jsonOf(*leaf, record)) << change.path;
        ASSERT_TRUE(storeJson(*leaf, change.json["new"], record)) << change.path;
    }
    for (const Json &range : json["reserved"]) {
        const std::size_t offset = range["offset"];
        const std::size_t size = range["size"];
        const std::string now = range["new"];
        ASSERT_EQ(now.size(), 2 * size);
        EXPECT_EQ(range["old"], hexadecimal({bytesIn(record) + offset, size}));
        for (std::size_t i = 0; i < size; ++i)
            bytesIn(record)[offset + i] = static_cast<unsigned char>(std::stoul(now.substr(2 * i, 2), nullptr, 16));
    }
}

/// The paths of the fields, and the offsets of the reserved bytes, that differ: byte by byte.
std::pair<std::set<std::string>, std::set<std::size_t>> differing(Part part, const void *old, const void *now) {
    std::pair<std::set<std::string>, std::set<std::size_t>> found;
    for (std::size_t at = 0; at < recordOf(part).size; ++at) {
        if (static_cast<const unsigned char *>(old)[at] == static_cast<const unsigned char *>(now)[at]) continue;
        const Leaf leaf = *leafAt(part, at);
        if (leaf.isReserved()) found.second.insert(at);
        else found.first.insert(leaf.path());
    }
    return found;
}

void expectNamed(const Json &json, Part part, const void *old, const void *now) {
    const auto [fields, reserved] = differing(part, old, now);
    std::set<std::string> namedFields;
    for (const Change &change : changesIn(json["fields"], part)) EXPECT_TRUE(namedFields.insert(change.path).second);
    EXPECT_EQ(namedFields, fields);
    std::set<std::size_t> namedBytes;
    for (const Json &range : json["reserved"]) {
        const std::optional<Leaf> leaf = leafOf(range["path"].get<std::string>());
        ASSERT_TRUE(leaf);
        const std::size_t offset = range["offset"];
        const std::size_t size = range["size"];
        EXPECT_TRUE(offset >= leaf->offset() && offset + size <= leaf->offset() + leaf->size());
        for (std::size_t i = 0; i < size; ++i) EXPECT_TRUE(namedBytes.insert(offset + i).second);
    }
    EXPECT_EQ(namedBytes, reserved);
}

TEST_F(Diff, NamesWhatWasChangedAndTurnsOldIntoNew) {
    std::mt19937 random(20);
    for (std::uint32_t seed = 0; seed < shareOf(60); ++seed) {
        composeStore(seed, *store_);
        const std::string folder = writeStore("store", *store_);
        auto now = std::make_unique<ConfigImage>(store_->images[MAPI_CONFIG_RUNNING]);
        change(random, now.get(), sizeof *now, seed < 10 ? 1 : 1 + random() % 1000);
        write("store/now.img", *now);
        const Ran ran = runProgram({"diff", folder, folder + "/now.img", "--json", "--secrets"});
        const bool isSame = sameBytes(*now, store_->images[MAPI_CONFIG_RUNNING]);
        ASSERT_EQ(ran.status, isSame ? 0 : 1) << ran.err;
        if (isSame) continue;
        const Json json = Json::parse(ran.out);
        ASSERT_EQ(json["records"].size(), 1U);
        expectNamed(json["records"][0], Part::image, &store_->images[MAPI_CONFIG_RUNNING], now.get());
        apply(json["records"][0], Part::image, &store_->images[MAPI_CONFIG_RUNNING]);
        EXPECT_TRUE(sameBytes(*now, store_->images[MAPI_CONFIG_RUNNING])) << "seed " << seed;

        // The plain form has a line for each, with or without secrets.
        const std::string plain = runProgram({"diff", folder, folder + "/now.img"}).out;
        for (const Change &one : changesIn(json["records"][0]["fields"], Part::image))
            ASSERT_TRUE(plain.find('\n' + one.path + ' ') != std::string::npos || plain.starts_with(one.path + ' '))
                << one.path;
    }
}

TEST_F(Diff, FoldersAreComparedWholly) {
    std::mt19937 random(21);
    auto now = std::make_unique<StoreRecords>();
    for (std::uint32_t seed = 0; seed < shareOf(10); ++seed) {
        composeStore(seed, *store_);
        *now = *store_;
        for (ConfigImage &image : now->images)
            if (random() % 4 != 0) change(random, &image, sizeof image, 1 + random() % 200);
        if (seed % 2 == 0) change(random, &now->board, sizeof now->board, 20);
        if (seed % 3 == 0) now->bank += 1;
        if (seed % 5 == 0) now->md5 = false;
        const std::string oldFolder = writeStore("old", *store_);
        const std::string nowFolder = writeStore("new", *now);
        const Ran ran = runProgram({"diff", oldFolder, nowFolder, "--json", "--secrets"});
        ASSERT_EQ(ran.status, 1) << ran.err;
        PlatformRecord oldSettings = platformRecordOf({store_->bank, store_->md5});
        PlatformRecord nowSettings = platformRecordOf({now->bank, now->md5});
        const std::map<std::string, std::tuple<Part, void *, void *>> records = {
            {"running", {Part::image, &store_->images[0], &now->images[0]}},
            {"default", {Part::image, &store_->images[1], &now->images[1]}},
            {"startup", {Part::image, &store_->images[2], &now->images[2]}},
            {"customer_default", {Part::image, &store_->images[3], &now->images[3]}},
            {"board", {Part::board, &store_->board, &now->board}},
            {"platform", {Part::platform, &oldSettings, &nowSettings}}};
        std::set<std::string> named;
        const Json document = Json::parse(ran.out);
        for (const Json &json : document["records"]) {
            const std::string name = json["name"];
            named.insert(name);
            const auto &[part, old, then] = records.at(name);
            expectNamed(json, part, old, then);
            apply(json, part, old);
        }
        for (const auto &[name, record] : records) {
            const auto &[part, old, then] = record;
            EXPECT_EQ(std::memcmp(old, then, recordOf(part).size), 0) << name;
        }
        EXPECT_EQ(runProgram({"diff", oldFolder, oldFolder}).status, 0);
    }
}

TEST_F(Diff, AFileThatOneFolderLacksIsADifference) {
    composeBuiltInStore(*store_);
    const std::string old = writeStore("old", *store_);
    const std::string now = writeStore("new", *store_);
    std::filesystem::remove(path("new/startup.img"));
    std::filesystem::remove(path("old/board.img"));
    const Ran ran = runProgram({"diff", old, now});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "startup:\nonly in OLD\n\nboard:\nonly in NEW\n");
}

TEST_F(Diff, MarksWhatChangesNoLine) {
    std::mt19937 random(22);
    std::size_t marked = 0;
    std::size_t unmarked = 0;
    for (std::uint32_t seed = 0; seed < 12U; ++seed) {
        composeStore(seed, *store_);
        const std::string folder = writeStore("store", *store_);
        const ConfigImage &old = store_->images[MAPI_CONFIG_RUNNING];
        auto now = std::make_unique<ConfigImage>(old);
        // What is set differs more often in lines than what is not.
        for (int i = 0; i < 60; ++i) {
            unsigned char *byte = nullptr;
            while (byte == nullptr || *byte == 0) byte = bytesIn(now.get()) + random() % 210000;
            *byte = static_cast<unsigned char>(*byte ^ (1U << random() % 8));
        }
        change(random, now.get(), sizeof *now, 20);
        write("store/now.img", *now);
        const Json json = Json::parse(runProgram({"diff", folder, folder + "/now.img", "--json"}).out)["records"][0];
        Renderer renderer(*now, old, store_->board, {store_->bank, store_->md5});
        const std::string all(renderer.text(convDeltaHtmlConfig));
        std::string lines;
        for (const Json &line : json["lines"]) lines += line.get<std::string>() + '\n';
        const auto changesText = [&](std::size_t offset, std::size_t size) {
            std::memcpy(bytesIn(&renderer.current()) + offset, bytesOf(old, offset), size);
            const bool changes = renderer.text(convDeltaHtmlConfig) != all;
            renderer.current() = *now;
            return changes;
        };
        for (const Change &one : changesIn(json["fields"], Part::image)) {
            const bool changes = changesText(one.json["offset"], leafOf(one.path)->size());
            EXPECT_EQ(one.json["changesLines"], changes) << one.path << ", seed " << seed;
            ++(changes ? unmarked : marked);
        }
        for (const Json &range : json["reserved"])
            EXPECT_EQ(range["changesLines"], changesText(range["offset"], range["size"])) << range;
    }
    EXPECT_GT(marked, 50U);
    EXPECT_GT(unmarked, 50U);
}

TEST_F(Diff, LinesAreThoseOfDeltaModeWithOldAsTheDefault) {
    for (std::uint32_t seed = 0; seed < shareOf(20); ++seed) {
        composeStore(seed, *store_);
        const std::string folder = writeStore("store", *store_);
        std::string expected;
        {
            Renderer renderer(store_->images[MAPI_CONFIG_RUNNING], store_->images[MAPI_CONFIG_STARTUP], store_->board,
                              {store_->bank, store_->md5});
            expected = renderer.text(convDeltaHtmlConfig);
        }
        const std::vector<std::string> words = {"diff", folder + ":startup", folder + ":running", "--secrets"};
        const Ran plain = runProgram(words);
        EXPECT_NE(plain.out.find("\nDelta lines, with OLD as the default image:\n" + expected), std::string::npos);
        std::vector<std::string> only = words;
        only.emplace_back("--commands");
        const Ran commands = runProgram(only);
        EXPECT_EQ(commands.status, 1);
        EXPECT_TRUE(commands.out == expected) << "seed " << seed;
    }
}

TEST_F(Diff, WhatLackOfABoardLeaves) {
    composeBuiltInStore(*store_);
    store_->images[0].vlanMode = 2;
    write("old.img", store_->images[0]);
    store_->images[0].vlanMode = 3;
    write("new.img", store_->images[0]);
    const Ran ran = runProgram({"diff", path("old.img"), path("new.img")});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out.find("vlanMode                            2 802.1Q -> 3 802.1Q with isolation"), 0U) << ran.out;
    EXPECT_NE(ran.out.find("\nNo delta lines: "), std::string::npos) << ran.out;
    EXPECT_EQ(runProgram({"diff", path("old.img"), path("new.img"), "--commands"}).status, 2);
    const Ran lines = runProgram({"diff", path("old.img"), path("new.img"), "--commands", "--board", "builtin:board",
                                  "--bank", "1", "--md5", "no"});
    EXPECT_EQ(lines.status, 1);
    EXPECT_NE(lines.err.find("board: the built-in example's"), std::string::npos);
    EXPECT_EQ(runProgram({"diff", "-", "-"}).status, 2);
    EXPECT_EQ(runProgram({"diff", path("old.img"), path("none.img")}).status, 2);
    EXPECT_EQ(runProgram({"diff", path("old.img"), path("new.img"), "--json", "--commands"}).status, 2);
    const Ran same = runProgram({"diff", path("old.img"), path("old.img")});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out + same.err, "");
}

TEST_F(Diff, SharedBytesHaveOneOwner) {
    composeBuiltInStore(*store_);
    const std::string folder = writeStore("store", *store_);
    for (const Sharing &sharing : sharedFields()) {
        const Leaf leaf = *leafAt(Part::image, sharing.offset);
        EXPECT_EQ(leaf.offset(), sharing.offset);
        EXPECT_FALSE(leafOf(sharing.other)) << "two owners: " << sharing.other;
        ConfigImage now = store_->images[0];
        bytesIn(&now)[sharing.offset] ^= 1;
        write("store/now.img", now);
        const std::string out = runProgram({"diff", folder, folder + "/now.img"}).out;
        EXPECT_EQ(out.find(leaf.path() + ' '), 0U) << out;
        EXPECT_LT(out.find("(also " + std::string(sharing.other) + ')'), out.find('\n')) << out;
    }
}

TEST_F(Diff, SecretsAreComparedBeforeTheyAreMasked) {
    composeBuiltInStore(*store_);
    ConfigImage &image = store_->images[0];
    image.radius.secret = "one";
    image.tacacs.secret = "same";
    image.users[0].password = "same";
    const std::string folder = writeStore("store", *store_);
    image.radius.secret = "two";
    image.reserved207141.bytes[5] = 0xab;
    write("store/now.img", image);
    const std::string out = runProgram({"diff", folder, folder + "/now.img"}).out;
    const std::string line = out.substr(0, out.find('\n'));
    EXPECT_TRUE(line.starts_with("radius.secret ")) << out;
    const std::size_t first = line.find("\"***");
    const std::size_t second = line.find("\"***", first + 1);
    ASSERT_NE(second, std::string::npos) << line;
    EXPECT_NE(line.substr(first, line.find('"', first + 1) - first),
              line.substr(second, line.find('"', second + 1) - second));
    EXPECT_NE(out.find("\nreserved207141 "), std::string::npos);
    EXPECT_NE(out.find("*** -> ***"), std::string::npos);
    EXPECT_EQ(out.find("ab"), std::string::npos) << out;
    EXPECT_NE(runProgram({"diff", folder, folder + "/now.img", "--secrets"}).out.find("00 -> ab"), std::string::npos);
}

} // namespace
