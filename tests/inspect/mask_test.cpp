/// Masks: that they hide, that they compare as what they hide, and what `mask` writes.
#include "program.h"

#include "app/drivers.h"
#include "inspect/fields.h"
#include "inspect/mask.h"
#include "inspect/render.h"
#include "inspect/values.h"
#include "platform/host/password_md5.h"
#include "platform/mapi.h"

#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <random>

namespace {

using namespace inspect;

class Mask : public ProgramTest {
protected:
    std::unique_ptr<StoreRecords> store_ = std::make_unique<StoreRecords>();
};

/// Every secret of an image, in the order of the bytes.
std::vector<Leaf> secretLeaves() {
    std::vector<Leaf> leaves;
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        if (leaf.field().kind == Kind::secret) leaves.push_back(leaf);
    });
    return leaves;
}

std::string textIn(const Leaf &leaf, const void *image) {
    const char *const characters = reinterpret_cast<const char *>(leaf.in(image));
    return {characters, strnlen(characters, leaf.size())};
}

/// Secrets of which few are different: short and long ones, some that differ late, some with bytes after the NUL.
void setSecrets(std::mt19937 &random, ConfigImage &image) {
    const std::string thirtyOne = "thirty-one-characters-are-here.";
    std::vector<std::string> texts = {"", "a", "b", "***1", "community", thirtyOne, thirtyOne + "x", thirtyOne + "y"};
    for (const char *end : {"xy", "xz"}) texts.push_back(thirtyOne + end);
    texts.push_back("twenty-four-characters!!");
    char form[passwordMd5Size] = {};
    if (makePasswordMd5("a", form) == nullptr) texts.emplace_back(form);
    if (makePasswordMd5("***1", form) == nullptr) texts.emplace_back(form);
    for (const Leaf &leaf : secretLeaves()) {
        unsigned char *const bytes = leaf.in(static_cast<void *>(&image));
        const std::string text = texts[random() % texts.size()].substr(0, leaf.size());
        std::memset(bytes, 0, leaf.size());
        std::memcpy(bytes, text.data(), text.size());
        if (text.size() + 1 < leaf.size() && random() % 4 == 0)
            bytes[random() % 2 == 0 ? text.size() + 1 : leaf.size() - 1] = static_cast<unsigned char>(1 + random() % 2);
    }
    for (User &user : image.users) {
        user.inUse = 1;
        if (random() % 2 == 0) user.passwordMd5 = "";
    }
    for (Community &community : image.communities) community.inUse = 1;
    for (TrapDestination &destination : image.trapDestinations) destination.inUse = 1;
    image.backup.protocol = random() % 4 == 0 ? 0U : 1U;
}

std::vector<std::string> linesOf(const std::string &text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

/// The line without the words that are secret, where it is one of the lines that have some.
std::string publicPart(const std::string &line) {
    for (const char *front : {"password ", "user radius secret ", "user tacacs secret ", "dot1x secret ", "community ",
                              "snmp-server community ", "no snmp-server community "})
        if (line.starts_with(front)) return front;
    constexpr std::string_view archive = "archive auto-backup path ftp ";
    if (!line.starts_with(archive)) return line;
    // The server, and how many words there are.
    return line.substr(0, line.find(' ', archive.size())) + std::to_string(std::count(line.begin(), line.end(), ' '));
}

void expectSameLines(const std::string &plain, const std::string &masked, const std::string &of) {
    const std::vector<std::string> lines = linesOf(plain);
    const std::vector<std::string> maskedLines = linesOf(masked);
    ASSERT_EQ(lines.size(), maskedLines.size()) << of;
    for (std::size_t i = 0; i < lines.size(); ++i)
        ASSERT_EQ(publicPart(lines[i]), publicPart(maskedLines[i])) << of << ": " << lines[i];
}

TEST_F(Mask, AMaskedTextHasTheSameLinesInBothModes) {
    std::mt19937 random(23);
    std::array<std::size_t, 2> sizes = {};
    for (std::uint32_t seed = 0; seed < shareOf(60); ++seed) {
        composeStore(seed, *store_);
        ConfigImage &image = store_->images[MAPI_CONFIG_RUNNING];
        ConfigImage &defaults = store_->images[MAPI_CONFIG_DEFAULT];
        setSecrets(random, image);
        // Some entries are those of the default image as they are, and some but for their secrets.
        setSecrets(random, defaults);
        for (std::size_t i = 0; i < 10; ++i) {
            if (random() % 3 != 0) {
                const User user = image.users[i];
                image.users[i] = defaults.users[i];
                if (random() % 2 == 0) image.users[i].passwordMd5 = user.passwordMd5;
            }
            if (random() % 3 == 0) image.communities[i] = defaults.communities[i];
            if (random() % 3 == 0) image.trapDestinations[i] = defaults.trapDestinations[i];
        }
        const std::string folder = writeStore("store", *store_);
        for (const char *mode : {"", "--delta"}) {
            std::vector<std::string> words = {"text", folder};
            if (*mode != '\0') words.emplace_back(mode);
            const Ran plain = runProgram(words);
            words.emplace_back("--mask");
            const Ran masked = runProgram(words);
            ASSERT_EQ(plain.status, 0) << plain.err;
            ASSERT_EQ(masked.status, 0) << masked.err;
            expectSameLines(plain.out, masked.out, "seed " + std::to_string(seed) + ' ' + mode);
            EXPECT_NE(plain.out, masked.out);
            sizes[*mode == '\0' ? 0 : 1] += linesOf(plain.out).size();
        }
        // A folder that was masked has that very text.
        const std::string masked = path("masked" + std::to_string(seed));
        ASSERT_EQ(runProgram({"mask", folder, "-o", masked}).status, 0);
        for (const char *mode : {"", "--delta"}) {
            std::vector<std::string> words = {"text", masked};
            if (*mode != '\0') words.emplace_back(mode);
            const std::string text = runProgram(words).out;
            words[1] = folder;
            expectSameLines(runProgram(words).out, text, "masked folder, seed " + std::to_string(seed) + ' ' + mode);
        }
    }
    EXPECT_LT(sizes[1], sizes[0]);
}

TEST_F(Mask, MasksCompareAsTheSecretsDo) {
    std::mt19937 random(24);
    const auto image = std::make_unique<ConfigImage>();
    std::memset(image.get(), 0, sizeof *image);
    const std::vector<Leaf> leaves = secretLeaves();
    for (int round = 0; round < 100; ++round) {
        const auto other = std::make_unique<ConfigImage>(*image);
        setSecrets(random, *image);
        setSecrets(random, *other);
        const auto masked = std::make_unique<ConfigImage>(*image);
        const auto maskedOther = std::make_unique<ConfigImage>(*other);
        Masks masks;
        if (round % 2 == 0)
            for (const ConfigImage *one : {image.get(), other.get()}) masks.expectMd5FormsOf(*one);
        masks.mask(*masked);
        masks.mask(*maskedOther);
        std::map<std::string, std::string> maskOf;
        std::map<std::string, std::string> secretOf;
        for (const Leaf &leaf : leaves) {
            for (const auto &[plain, hidden] :
                 {std::pair(image.get(), masked.get()), {other.get(), maskedOther.get()}}) {
                const std::string secret = textIn(leaf, plain);
                const std::string mask = textIn(leaf, hidden);
                ASSERT_EQ(secret.empty(), mask.empty());
                ASSERT_EQ(maskOf.emplace(secret, mask).first->second, mask) << secret;
                ASSERT_EQ(secretOf.emplace(mask, secret).first->second, secret) << mask;
            }
            const auto equal = [&](const ConfigImage *a, const ConfigImage *b, std::size_t size) {
                return std::memcmp(leaf.in(static_cast<const void *>(a)), leaf.in(static_cast<const void *>(b)),
                                   size) == 0;
            };
            ASSERT_EQ(equal(image.get(), other.get(), leaf.size()), equal(masked.get(), maskedOther.get(), leaf.size()))
                << leaf.path();
            if (leaf.path() == "dot1x.secret") {
                ASSERT_EQ(equal(image.get(), other.get(), 31), equal(masked.get(), maskedOther.get(), 31));
            }
        }
    }
}

TEST_F(Mask, NothingButSecretsAndReservedBytesChanges) {
    const Input input = loadInput({.record = "builtin:running"});
    const ConfigImage before = *input.image;
    const Input masked = maskedCopy(input);
    EXPECT_TRUE(sameBytes(before, *input.image));
    std::size_t secrets = 0;
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        const bool isSame = inspect::isSame(leaf, input.image.value.get(), masked.image.value.get());
        if (leaf.field().kind != Kind::secret) {
            EXPECT_TRUE(isSame || leaf.isReserved()) << leaf.path();
        } else if (leaf.in(input.image.value.get())[0] != 0) {
            EXPECT_EQ(textIn(leaf, masked.image.value.get()).find("***"), 0U) << leaf.path();
            ++secrets;
        } else {
            EXPECT_TRUE(isSame) << leaf.path();
        }
    });
    EXPECT_GE(secrets, 5U);
}

TEST_F(Mask, ANewlineInASecretIsMaskedAway) {
    composeBuiltInStore(*store_);
    store_->images[0].radius.secret = "two\nno user radius\n";
    const std::string folder = writeStore("store", *store_);
    const std::string plain = runProgram({"text", folder}).out;
    const std::string masked = runProgram({"text", folder, "--mask"}).out;
    EXPECT_NE(plain.find("\nuser radius secret two\nno user radius\n\n"), std::string::npos);
    EXPECT_EQ(linesOf(masked).size() + 2, linesOf(plain).size());
}

#ifdef TEXTCFG_HAS_CRYPT
TEST_F(Mask, Md5FormsMeetTheirPasswords) {
    composeBuiltInStore(*store_);
    store_->md5 = true;
    ConfigImage &image = store_->images[0];
    ConfigImage &defaults = store_->images[1];
    image = defaults;
    defaults.users[0].password = "something else";
    defaults.users[0].passwordMd5 = "ysVNzQc4CTMkp5daOdZ.3/";
    image.users[0].password = "secret";
    image.users[0].passwordMd5 = "";
    const std::string folder = writeStore("store", *store_);
    // The form of "secret" is what the default image holds: delta mode writes no password.
    const std::string plain = runProgram({"text", folder, "--delta"}).out;
    ASSERT_NE(plain.find("\nuser name admin\n"), std::string::npos) << plain;
    ASSERT_EQ(plain.find("\npassword "), std::string::npos) << plain;
    expectSameLines(plain, runProgram({"text", folder, "--delta", "--mask"}).out, "--delta --mask");
    EXPECT_EQ(runProgram({"text", folder, "--mask"}).out.find("ysVNzQc4CTMkp5daOdZ.3/"), std::string::npos);
    EXPECT_EQ(runProgram({"show", folder, "--all"}).out.find("ysVNzQc4CTMkp5daOdZ.3/"), std::string::npos);
}
#endif

TEST_F(Mask, AFolderGivesAFolder) {
    composeBuiltInStore(*store_);
    store_->bank = 2;
    store_->images[2].reserved207141.bytes[0] = 'x';
    std::memset(store_->board.reserved180.bytes, 'y', sizeof store_->board.reserved180);
    const std::string folder = writeStore("store", *store_);
    const std::string before = read("store/running.img");
    ASSERT_EQ(runProgram({"mask", folder, "-o", path("new")}).status, 0);
    EXPECT_EQ(read("store/running.img"), before);
    EXPECT_EQ(read("new/platform.conf"), "active_bank=2\npassword_encryption=none\n");
    EXPECT_EQ(read("new/board.img").size(), sizeof(BoardRecord));
    EXPECT_EQ(read("new/board.img").find('y'), std::string::npos);
    // Equal secrets of two images have equal masks.
    EXPECT_NE(read("new/running.img"), read("new/startup.img"));
    EXPECT_EQ(runProgram({"diff", folder + ":running", folder + ":startup", "--json"}).out.empty(), false);
    const Ran of = runProgram({"diff", folder + ":startup", folder + ":running"});
    const Ran ofMasked = runProgram({"diff", path("new") + ":startup", path("new") + ":running"});
    EXPECT_EQ(std::count(of.out.begin(), of.out.end(), '\n'),
              std::count(ofMasked.out.begin(), ofMasked.out.end(), '\n'));
    // Masks of masks say nothing new, and nothing is written over.
    EXPECT_EQ(runProgram({"mask", folder, "-o", path("new")}).status, 2);
    EXPECT_EQ(runProgram({"mask", folder, "-o", path("store/running.img")}).status, 2);
    EXPECT_EQ(read("store/running.img"), before);
    ASSERT_EQ(runProgram({"mask", folder + ":startup", "-o", path("one.img")}).status, 0);
    EXPECT_EQ(read("one.img").size(), sizeof(ConfigImage));
    EXPECT_EQ(runProgram({"mask", folder + ":startup", "-o", path("one.img")}).status, 2);
}

TEST_F(Mask, AfterAFailureThereIsNothing) {
    composeBuiltInStore(*store_);
    const std::string folder = writeStore("store", *store_);
    write("store/startup.img", "short", 5);
    const Ran ran = runProgram({"mask", folder, "-o", path("new")});
    EXPECT_EQ(ran.status, 2);
    EXPECT_NE(ran.err.find("startup.img: found 5 bytes; expected 262144 bytes"), std::string::npos) << ran.err;
    EXPECT_EQ(runProgram({"mask", path("none"), "-o", path("new")}).status, 2);
    EXPECT_EQ(runProgram({"mask", folder, "-o", path("no folder/new")}).status, 2);
    EXPECT_EQ(runProgram({"mask", folder, "-o", ""}).status, 2);
    EXPECT_EQ(runProgram({"mask", folder}).status, 2);
    std::size_t count = 0;
    for ([[maybe_unused]] const auto &entry : std::filesystem::directory_iterator(folder_)) ++count;
    EXPECT_EQ(count, 1U);
}

} // namespace
