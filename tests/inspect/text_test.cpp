/// `text` prints what textcfg writes, for every verb.
#include "../file.h"
#include "program.h"

#include "app/text/text.h"
#include "app/verbs.h"
#include "inspect/record_source.h"
#include "inspect/render.h"

#include <filesystem>
#include <memory>

namespace {

class Text : public ProgramTest {
protected:
    std::unique_ptr<StoreRecords> store_ = std::make_unique<StoreRecords>();
};

/// The words of textcfg-inspect that stand for a verb.
std::vector<std::string> wordsOf(const Verb &verb, const std::string &folder) {
    std::vector<std::string> words = {"text", folder + ':' + inspect::imageName(verb.selector)};
    const std::string_view word = verb.word;
    if (word.find("_delta") != word.npos) words.emplace_back("--delta");
    if (word.ends_with("_page")) words.emplace_back("--page");
    return words;
}

std::string golden(const std::string &name) {
    const std::string text = bytesOfFile(std::filesystem::path(TEXTCFG_GOLDEN) / name);
    EXPECT_NE(text, "") << name;
    return text;
}

TEST_F(Text, IsThatOfTheDriverOfEachVerb) {
    const std::uint32_t stores = 200;
    const bool isSlow = shareOf(stores) != stores;
    std::size_t compared = 0;
    for (std::uint32_t seed = 0; seed < shareOf(stores); ++seed) {
        composeStore(seed, *store_);
        const std::string folder = writeStore("store", *store_);
        // Every verb for each store. Where the machine is slow this holds for the first stores only; the others have
        // one form of the text of all four images each, another one than the store before.
        for (std::size_t i = 0; i < std::size(verbs); ++i) {
            const Verb &verb = verbs[i];
            if (isSlow && seed >= 8 && i / 4 != seed % 4) continue;
            std::string expected;
            {
                const inspect::Renderer renderer(store_->images[verb.selector], store_->images[MAPI_CONFIG_DEFAULT],
                                                 store_->board, {store_->bank, store_->md5});
                clearText();
                verb.driver();
                expected = Temp_Configuration;
                ASSERT_FALSE(textOverflowed());
            }
            const Ran ran = runProgram(wordsOf(verb, folder));
            ASSERT_EQ(ran.status, 0) << ran.err;
            ASSERT_TRUE(ran.out == expected) << verb.word << ", seed " << seed;
            ++compared;
        }
    }
    if (!isSlow) {
        EXPECT_EQ(compared, std::size(verbs) * stores);
    }
}

TEST_F(Text, IsTheWrittenOneOfTheBuiltInStoreOnEachBoard) {
    const struct {
        const char *board;
        std::uint32_t type;
        std::uint32_t capabilities;
    } boards[] = {{"", 5028, 0x100},
                  {"_without_poe", 5028, 0},
                  {"_battery", 5028, 0x150},
                  {"_battery_without_poe", 5028, 0x40},
                  {"_5027", 5027, 0x100}};
    composeBuiltInStore(*store_);
    for (const auto &board : boards) {
        store_->board.boardType = board.type;
        store_->board.capabilities = board.capabilities;
        const std::string folder = writeStore("store", *store_);
        EXPECT_EQ(runProgram({"text", folder}).out, golden(std::string("factory_full") + board.board + ".txt"));
        EXPECT_EQ(runProgram({"text", folder, "--delta"}).out,
                  golden(std::string("factory_delta") + board.board + ".txt"));
    }
    EXPECT_EQ(runProgram({"text", "builtin:running", "--page"}).out, golden("factory_page.txt"));
}

TEST_F(Text, ThatDoesNotFitIsAnError) {
    composeBuiltInStore(*store_);
    ConfigImage &image = store_->images[MAPI_CONFIG_RUNNING];
    for (TagVlan &vlan : image.tagVlans) {
        vlan.inUse = 1;
        vlan.id = 4000;
        vlan.name = "a name that is as long as the field for it....";
        vlan.members.set(0).set(2).set(4);
    }
    const Ran ran = runProgram({"text", writeStore("store", *store_)});
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_NE(ran.err.find("text configuration too long"), std::string::npos) << ran.err;
}

} // namespace
