/// No command prints a secret that nobody asked for, whatever its words are: the commands and their words are taken
/// from the program's own help.
#include "program.h"

#include "inspect/fields.h"
#include "inspect/values.h"
#include "platform/host/password_md5.h"

#include <cstring>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

namespace {

using namespace inspect;

class Secrets : public ProgramTest {
protected:
    std::unique_ptr<StoreRecords> store_ = std::make_unique<StoreRecords>();
};

/// The words of a help text that begin its lines after a heading, with what they take.
struct Help {
    std::vector<std::string> commands;
    std::vector<std::string> positionals;
    std::vector<std::string> flags;   ///< options without a value
    std::vector<std::string> options; ///< options with one
};

Help helpOf(const std::vector<std::string> &words) {
    const Ran ran = runProgram(words);
    EXPECT_EQ(ran.status, 0);
    std::istringstream lines(ran.out);
    Help help;
    std::string heading;
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != ' ') heading = line;
        static const std::regex entry(
            "^  (?:-[a-z],)?(-{0,2}[A-Za-z][A-Za-z-]*)(\\.\\.\\.)?( (?!Excludes|Needs)[^ ]+)?.*");
        std::smatch match;
        if (!std::regex_match(line, match, entry)) continue;
        const std::string word = match[1];
        if (heading == "Subcommands:") help.commands.push_back(word);
        else if (heading == "Positionals:") help.positionals.push_back(word);
        else if (heading == "Options:" && word != "--help" && word != "--version")
            (match[3].length() == 0 ? help.flags : help.options).push_back(word);
    }
    return help;
}

/// Puts a token of its own in every field that may hold a secret, in front and after the NUL.
void addTokens(StoreRecords &store) {
    unsigned number = 0;
    const auto put = [&](unsigned char *bytes, std::size_t size) {
        char token[12];
        std::snprintf(token, sizeof token, "Zq%05uJ", number++);
        constexpr std::size_t length = 8;
        for (std::size_t at = 0; at + length <= size; at += length + 1) std::memcpy(bytes + at, token, length);
    };
    const auto putIn = [&](Part part, void *record) {
        forEachLeaf(part, [&](const Leaf &leaf) {
            if (leaf.field().kind == Kind::secret || leaf.isReserved()) put(leaf.in(record), leaf.size());
        });
    };
    for (ConfigImage &image : store.images) {
        putIn(Part::image, &image);
        for (User &user : image.users) user.inUse = 1;
        for (Community &community : image.communities) community.inUse = 1;
        for (TrapDestination &destination : image.trapDestinations) destination.inUse = 1;
        image.backup.protocol = 1;
        // Texts without an end go on into reserved bytes.
        for (PortSettings &port : image.ports) std::memset(port.description.characters, 'd', sizeof port.description);
        for (CircuitId &id : image.circuitIds.text) id = "an id";
    }
    putIn(Part::board, &store.board);
}

void expectNoToken(const std::string &text, const std::string &of) {
    const std::size_t at = text.find("Zq");
    ASSERT_EQ(at, std::string::npos) << of << ": " << text.substr(at < 100 ? 0 : at - 100, 150);
    // The same in hexadecimal.
    ASSERT_EQ(text.find("5a7130"), std::string::npos) << of;
}

TEST_F(Secrets, AreInNoOutputOfAnyCommand) {
    composeBuiltInStore(*store_);
    addTokens(*store_);
    for (const bool md5 : {false, true}) {
#ifndef TEXTCFG_HAS_CRYPT
        if (md5) continue;
#endif
        store_->md5 = md5;
        // With MD5 forms to be made, and with those that are there.
        if (md5)
            for (ConfigImage &image : store_->images)
                for (std::size_t i = 0; i < 5; ++i) image.users[i].passwordMd5 = "";
        std::set<std::string> forms;
        for (const ConfigImage &image : store_->images)
            for (const User &user : image.users) {
                char form[passwordMd5Size] = {};
                if (makePasswordMd5(std::string(user.password.characters, 8).c_str(), form) == nullptr)
                    forms.insert(form);
            }
        const std::string folder = writeStore("store", *store_);
        const std::string otherFolder = writeStore("other", [&] {
            auto other = std::make_unique<StoreRecords>(*store_);
            composeBuiltInStore(*other);
            other->md5 = md5;
            return *other;
        }());
        const std::vector<std::string> records[] = {{folder, otherFolder},
                                                    {otherFolder, folder},
                                                    {folder + ":startup", folder + ":running"},
                                                    {folder + ":default", folder + ":customer_default"}};
        const std::vector<std::string> commands = helpOf({"--help"}).commands;
        ASSERT_GE(commands.size(), 4U);
        unsigned file = 0;
        for (const std::string &command : commands) {
            const Help help = helpOf({command, "--help"});
            std::size_t printed = 0;
            std::vector<std::string> flags;
            for (const std::string &flag : help.flags)
                if (flag != "--secrets" && flag != "--mask") flags.push_back(flag);
            ASSERT_LT(flags.size(), 8U);
            // These try each field of each line: one record is enough.
            const bool tries = command == "explain" || command == "annotate";
            for (const std::vector<std::string> &named : records) {
                if ((tries || shareOf(2) == 1) && &named != std::begin(records)) break;
                // All sets of flags for the first; none and all for the others, and where the machine is slow.
                const unsigned last = (1U << flags.size()) - 1;
                const bool isWhole = shareOf(2) != 1 && &named == std::begin(records);
                const unsigned apart = isWhole || last == 0 ? 1 : last;
                for (unsigned chosen = 0; chosen <= last; chosen += apart) {
                    std::vector<std::string> words = {command, named[0]};
                    // What is no second record may be a pattern, which is a chance of its own.
                    if (command == "explain") words.emplace_back("/ secret /");
                    else if (help.positionals.size() > 1 && help.positionals[1] != "PATTERN") words.push_back(named[1]);
                    for (std::size_t i = 0; i < flags.size(); ++i)
                        if ((chosen >> i & 1) != 0) words.push_back(flags[i]);
                    for (const std::string &flag : help.flags)
                        if (flag == "--mask") words.push_back(flag);
                    std::string written;
                    if (std::count(help.options.begin(), help.options.end(), "-o") != 0) {
                        written = "written" + std::to_string(md5) + std::to_string(file++);
                        words.insert(words.end(), {"-o", path(written)});
                    }
                    std::string of;
                    for (const std::string &word : words) of += word + ' ';
                    const Ran ran = runProgram(words);
                    expectNoToken(ran.out + ran.err, of);
                    for (const std::string &form : forms) ASSERT_EQ(ran.out.find(form), std::string::npos) << of;
                    if (ran.status != 2) printed += ran.out.size();
                    if (written.empty()) continue;
                    ASSERT_EQ(ran.status, 0) << of << ran.err;
                    std::vector<std::string> files = {written};
                    if (std::filesystem::is_directory(path(written))) {
                        files.clear();
                        for (const auto &entry : std::filesystem::directory_iterator(path(written)))
                            files.push_back(written + '/' + entry.path().filename().string());
                    }
                    for (const std::string &one : files) {
                        const std::string bytes = read(one);
                        expectNoToken(bytes, one);
                        for (const std::string &form : forms) ASSERT_EQ(bytes.find(form), std::string::npos);
                        printed += bytes.size();
                    }
                    std::filesystem::remove_all(path(written));
                }
            }
            // What a command that takes other words prints has to be looked at here too.
            EXPECT_GT(printed, 0U) << command << " printed nothing";
        }
    }
}

TEST_F(Secrets, AreShownWhereTheyAreAskedFor) {
    composeBuiltInStore(*store_);
    const std::string plain = writeStore("plain", *store_);
    addTokens(*store_);
    const std::string folder = writeStore("store", *store_);
    for (const std::vector<std::string> &words : {std::vector<std::string>{"show", folder, "--all", "--secrets"},
                                                  {"show", folder, "--all", "--json", "--secrets"},
                                                  {"diff", plain, folder, "--secrets"},
                                                  {"diff", plain, folder, "--json", "--secrets"},
                                                  {"diff", plain, folder, "--commands", "--secrets"},
                                                  {"explain", folder, "/ secret /", "--secrets"},
                                                  {"explain", folder, "--field", "users[1].password", "--secrets"},
                                                  {"annotate", folder, "--delta", "--secrets"},
                                                  {"text", folder}}) {
        // These try each field of each line.
        if (shareOf(2) == 1 && (words[0] == "annotate" || (words[0] == "explain" && words[2] != "--field"))) continue;
        EXPECT_NE(runProgram(words).out.find("Zq"), std::string::npos) << words[0];
    }
    EXPECT_NE(runProgram({"show", folder, "time.reserved77", "--secrets"}).out.find("5a71"), std::string::npos);
    EXPECT_EQ(runProgram({"show", folder, "time.reserved77"}).out.find("5a71"), std::string::npos);
}

} // namespace
