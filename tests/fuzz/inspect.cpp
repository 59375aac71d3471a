/// textcfg-inspect over any bytes: fields and checks of images that the input chooses, and of files that it fills.
///
/// Five bytes: source, base, what becomes of the whole image, bank (signed), flags. Source 0 is a base store with the
/// patches of `render_input.h`; from 1 on the rest of the input is the content of a file, or a RECORD.
#include "target.h"

#include "render_input.h"

#include "inspect/check.h"
#include "inspect/fields.h"
#include "inspect/render.h"
#include "inspect/rules.h"
#include "inspect/show.h"
#include "platform/host/factory.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

enum Source { patches, imageFile, defaultFile, boardFileContent, settingsFile, recordName, sources };
/// What becomes of the whole image: nothing, one of two byte orders, or a shift by the byte, taken as signed.
enum Whole { asItIs, halfWords, words };
enum Flag { checksText = 1, isJson = 2, checks = 4, withTokens = 8, showsOffset = 16, showsAll = 32 };

std::set<std::string_view> brokenRules;
bool reachedSource[sources];
bool reachedCommand[2][2];
bool refused;

/// Standard output goes into memory as long as this lives, standard error nowhere.
class Capture {
public:
    Capture() : out_(dup(STDOUT_FILENO)), errors_(std::cerr.rdbuf(nullptr)) {
        DEMAND(out_ != -1 && ftruncate(memory(), 0) == 0 && lseek(memory(), 0, SEEK_SET) == 0);
        DEMAND(dup2(memory(), STDOUT_FILENO) != -1);
    }
    ~Capture() {
        DEMAND(dup2(out_, STDOUT_FILENO) != -1);
        close(out_);
        std::cerr.rdbuf(errors_);
        std::cerr.clear();
    }
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;

    /// What was written so far.
    static std::string text() {
        const off_t size = lseek(memory(), 0, SEEK_END);
        DEMAND(size >= 0);
        std::string all(static_cast<std::size_t>(size), '\0');
        DEMAND(pread(memory(), all.data(), all.size(), 0) == size);
        return all;
    }

private:
    static int memory() {
        static const int descriptor = memfd_create("output", MFD_CLOEXEC);
        return descriptor;
    }

    int out_;
    std::streambuf *errors_;
};

/// A folder for the files of one input, removed at the end of the program.
class Folder {
public:
    Folder() : path_(std::filesystem::temp_directory_path() / ("textcfg-fuzz-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    std::string name() const { return path_.string(); }
    void write(const std::string &file, const void *bytes, std::size_t size) const {
        std::ofstream(path_ / file, std::ios::binary)
            .write(static_cast<const char *>(bytes), static_cast<std::streamsize>(size));
    }

private:
    std::filesystem::path path_;
};

/// Writes patches over a record until the input ends. Only bytes, repetitions and noise are made here.
class Patches {
public:
    Patches(Input &input, inspect::Input &records) : input_(input), records_(records) {
        while (!input_.empty()) patch();
    }

private:
    struct Target {
        std::uint8_t *bytes;
        std::size_t size;
    };

    void patch() {
        const unsigned what = input_.byte();
        const Section &section = fuzz::sections[input_.byte() % std::size(fuzz::sections)];
        const std::size_t place = section.offset + input_.number(3) % section.size;
        std::vector<std::uint8_t> bytes;
        std::size_t step = 0;
        std::size_t count = 1;
        if (const unsigned kind = what >> 2 & 3; kind == fuzz::bytesKind || kind == fuzz::repeatKind) {
            std::size_t length = input_.byte();
            if (kind == fuzz::repeatKind) {
                step = input_.number(2);
                count = input_.number(2);
            }
            const std::uint8_t *const from = input_.bytes(length);
            bytes.assign(from, from + length);
        } else {
            bytes.resize(std::min<std::size_t>(input_.number(3), sizeof(ConfigImage)));
            std::uint32_t state = input_.byte() + 1U;
            for (std::uint8_t &byte : bytes)
                byte = static_cast<std::uint8_t>((state = state * 1664525U + 1013904223U) >> 24);
        }
        if (bytes.empty()) return;
        for (const Target &target : targetsOf(what & 3)) {
            std::size_t at = place % target.size;
            for (std::size_t i = 0; i < count && at < target.size; ++i, at += step)
                std::memcpy(target.bytes + at, bytes.data(), std::min(bytes.size(), target.size - at));
        }
    }

    std::vector<Target> targetsOf(unsigned record) const {
        std::vector<Target> targets;
        const auto add = [&](auto &part) {
            targets.push_back({reinterpret_cast<std::uint8_t *>(part.value.get()), sizeof *part});
        };
        if (record == fuzz::boardRecord) add(records_.board);
        if (record == fuzz::currentRecord || record == fuzz::bothRecords) add(records_.image);
        if (record == fuzz::defaultRecord || record == fuzz::bothRecords) add(records_.defaults);
        return targets;
    }

    Input &input_;
    inspect::Input &records_;
};

void change(ConfigImage &image, int whole) {
    std::uint8_t *const bytes = reinterpret_cast<std::uint8_t *>(&image);
    if (whole == halfWords || whole == words) {
        const std::size_t unit = whole == words ? 4 : 2;
        for (std::size_t i = 0; i < sizeof image; i += unit) std::reverse(bytes + i, bytes + i + unit);
    } else if (whole > words) {
        std::memmove(bytes + whole, bytes, sizeof image - static_cast<std::size_t>(whole));
    } else if (whole < 0) {
        std::memmove(bytes, bytes - whole, sizeof image - static_cast<std::size_t>(-whole));
    }
}

/// A text that no input holds: made of the whole of it.
std::string tokenOf(const std::uint8_t *data, std::size_t size) {
    std::uint64_t hash = 14695981039346656037U;
    for (std::size_t i = 0; i < size; ++i) hash = (hash ^ data[i]) * 1099511628211U;
    return std::to_string(hash);
}

void fillSecrets(inspect::Input &records, const std::string &token) {
    inspect::forEachLeaf(inspect::Part::image, [&](const inspect::Leaf &leaf) {
        if (leaf.field().kind != inspect::Kind::secret) return;
        for (ConfigImage *image : {records.image.value.get(), records.defaults.value.get()}) {
            unsigned char *const bytes = leaf.in(static_cast<void *>(image));
            bytes[leaf.size() - 1] = '\n';
            std::memcpy(bytes, token.data(), std::min(token.size(), leaf.size() - 1));
        }
    });
}

inspect::Input baseOf(std::uint8_t base) {
    // Composed anew each time, into the same records.
    static const inspect::Input records = inspect::loadInput({.record = "builtin:running"});
    factory::composeBoard(*records.board.value);
    fuzz::composeBase(static_cast<fuzz::Base>(base % fuzz::bases), *records.image.value, *records.defaults.value);
    return records;
}

/// One line for people, or one JSON document; nothing in it that a terminal takes for more than text.
void demandPrintable(const std::string &text, bool isJsonDocument) {
    DEMAND(std::none_of(text.begin(), text.end(), [](char character) {
        const unsigned char byte = static_cast<unsigned char>(character);
        return (byte < ' ' && byte != '\n') || byte == 0x7f;
    }));
    DEMAND(text.empty() || text.back() == '\n');
    if (isJsonDocument) DEMAND(inspect::Json::accept(text));
}

void runOnRecords(Input &input, inspect::Input records, int whole, std::uint8_t flags, const std::string &token) {
    Patches(input, records);
    if ((flags & withTokens) != 0) fillSecrets(records, token);
    change(*records.image.value, whole);
    const ConfigImage before = *records.image;

    inspect::RuleOptions options;
    if ((flags & checksText) == 0) options.ignored.insert("text-too-long");
    inspect::applyRules(records, options, [&](const inspect::Finding &finding) {
        brokenRules.insert(finding.rule->name);
        for (const std::string *text : {&finding.found, &finding.expected}) {
            DEMAND(!text->empty());
            demandPrintable(*text + '\n', false);
            DEMAND(whole != asItIs || (flags & withTokens) == 0 || text->find(token) == text->npos);
        }
        if (const auto leaf = inspect::leafOf(finding.path); leaf && leaf->part() != inspect::Part::platform)
            DEMAND(finding.offset == leaf->offset());
        else DEMAND(!finding.offset);
    });
    DEMAND(sameBytes(*records.image, before));
    if ((flags & checks) != 0) return;

    inspect::ShowOptions show;
    show.json = (flags & isJson) != 0;
    show.all = (flags & showsAll) != 0;
    if ((flags & showsOffset) != 0) show.at = flags;
    std::string text;
    {
        const Capture capture;
        inspect::Output output;
        inspect::show(records, show, output);
        output.flush();
        text = Capture::text();
    }
    demandPrintable(text, show.json);
    // A shift moves secrets to where they are none.
    DEMAND(whole != asItIs || (flags & withTokens) == 0 || text.find(token) == text.npos);
    reachedCommand[0][show.json] = true;
}

void runOnFiles(Input &input, Source source, inspect::Input records, int whole, std::uint8_t flags) {
    static const Folder folder;
    change(*records.image.value, whole);
    const auto write = [&](Source file, const char *name, const void *bytes, std::size_t size) {
        if (source == file) folder.write(name, input.rest(), input.left());
        else folder.write(name, bytes, size);
    };
    constexpr std::string_view settings = "active_bank=2\n";
    write(imageFile, "running.img", records.image.value.get(), sizeof *records.image);
    write(defaultFile, "default.img", records.defaults.value.get(), sizeof *records.defaults);
    write(boardFileContent, "board.img", records.board.value.get(), sizeof *records.board);
    write(settingsFile, "platform.conf", settings.data(), settings.size());

    inspect::CheckOptions options;
    options.json = (flags & isJson) != 0;
    options.records = {folder.name(), folder.name() + "/running.img"};
    if ((flags & showsOffset) != 0) options.input.offset = flags;
    if (source == recordName) {
        const std::string name(reinterpret_cast<const char *>(input.rest()), input.left());
        // Standard input is the fuzzer's, and another file of this machine is nothing to read.
        if (name[0] != '-' && name.find_first_of(std::string_view("/.\0", 3)) == name.npos)
            options.records.push_back(name);
        options.records.push_back(folder.name() + ":" + name.substr(0, name.find('\0')));
    }
    std::string text;
    int status = 0;
    {
        const Capture capture;
        inspect::Output output;
        status = inspect::check(options, output);
        output.flush();
        text = Capture::text();
    }
    DEMAND(status >= 0 && status <= 2);
    demandPrintable(text, options.json);
    refused = refused || status == 2;
    reachedCommand[1][options.json] = true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Source source = static_cast<Source>(input.byte() % sources);
    inspect::Input records = baseOf(input.byte());
    const int whole = static_cast<std::int8_t>(input.byte());
    records.bank = static_cast<std::int8_t>(input.byte());
    const std::uint8_t flags = input.byte();
    reachedSource[source] = true;
    if (source == patches) runOnRecords(input, std::move(records), whole, flags, tokenOf(data, size));
    else runOnFiles(input, source, std::move(records), whole, flags);
    return 0;
}

bool everythingReached() {
    bool everything = true;
    const auto need = [&everything](bool isReached, const std::string &what) {
        if (!isReached) std::printf("not reached: %s\n", what.c_str());
        everything = everything && isReached;
    };
    for (const inspect::Rule &rule : inspect::rules()) need(brokenRules.contains(rule.name), std::string(rule.name));
    for (int i = 0; i < sources; ++i) need(reachedSource[i], "source " + std::to_string(i));
    for (int command = 0; command < 2; ++command)
        for (int json = 0; json < 2; ++json)
            need(reachedCommand[command][json],
                 "command " + std::to_string(command) + ", JSON " + std::to_string(json));
    need(refused, "a file that cannot be used");
    return everything;
}
