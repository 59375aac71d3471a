/// Writes the inputs that fuzzing starts from: `fuzz_seeds FOLDER`, the folder being `tests/fuzz/corpus`. What else
/// is there was found by fuzzing.
#include "render_input.h"

#include "platform/board.h"
#include "platform/host/factory.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Bytes = std::string;

std::filesystem::path corpus;

void write(const std::string &target, const std::string &name, const Bytes &bytes) {
    const std::filesystem::path folder = corpus / target;
    std::filesystem::create_directories(folder);
    std::ofstream file(folder / name, std::ios::binary);
    if (!(file << bytes)) throw std::runtime_error("cannot write " + name);
}

Bytes number(std::size_t value, int bytes) {
    Bytes text;
    for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(value >> 8 * i);
    return text;
}

// ------------------------------------------------------------------------------------------------------- rendering

/// An input of the rendering target, from a base on.
class Rendering {
public:
    Rendering(fuzz::Driver driver, fuzz::Base base, int bank = 1, int flags = 0)
        : base_(base), bytes_{static_cast<char>(driver), static_cast<char>(base), static_cast<char>(bank),
                              static_cast<char>(flags)} {}

    Rendering &noise(fuzz::Record record, std::size_t section, int seed) {
        place(record, fuzz::noiseKind, section, 0);
        bytes_ += number(fuzz::sections[section].size, 3) + number(static_cast<std::size_t>(seed), 1);
        return *this;
    }
    Rendering &boardNoise(int seed) {
        place(fuzz::boardRecord, fuzz::noiseKind, 0, 0);
        bytes_ += number(sizeof(BoardRecord), 3) + number(static_cast<std::size_t>(seed), 1);
        return *this;
    }
    Rendering &repeat(fuzz::Record record, std::size_t offset, std::size_t step, std::size_t count, const Bytes &what) {
        place(record, fuzz::repeatKind, 0, offset);
        bytes_ += number(what.size(), 1) + number(step, 2) + number(count, 2) + what;
        return *this;
    }
    Rendering &bytes(fuzz::Record record, std::size_t offset, const Bytes &what) {
        place(record, fuzz::bytesKind, 0, offset);
        bytes_ += number(what.size(), 1) + what;
        return *this;
    }
    /// What `change` makes of the base.
    Rendering &with(const std::function<void(ConfigImage &current, ConfigImage &defaults)> &change) {
        static ConfigImage before[2];
        static ConfigImage after[2];
        fuzz::composeBase(base_, before[0], before[1]);
        fuzz::composeBase(base_, after[0], after[1]);
        change(after[0], after[1]);
        for (const fuzz::Record record : {fuzz::currentRecord, fuzz::defaultRecord}) {
            const unsigned char *const from = ::bytesOf(before[record], 0);
            const unsigned char *const to = ::bytesOf(after[record], 0);
            for (std::size_t at = 0; at < sizeof(ConfigImage); ++at) {
                if (from[at] == to[at]) continue;
                Bytes run;
                while (at < sizeof(ConfigImage) && from[at] != to[at] && run.size() < 255)
                    run += static_cast<char>(to[at++]);
                bytes(record, at - run.size(), run);
                --at;
            }
        }
        return *this;
    }
    void save(const std::string &name) const { write("render", name, bytes_); }

private:
    void place(fuzz::Record record, fuzz::Kind kind, std::size_t section, std::size_t offset) {
        bytes_ += static_cast<char>(record | kind << 2);
        bytes_ += static_cast<char>(section);
        bytes_ += number(offset, 3);
    }

    fuzz::Base base_;
    Bytes bytes_;
};

void writeRenderings() {
    constexpr const char *drivers[] = {"full_running",  "full_default",  "full_page",
                                       "delta_running", "delta_default", "delta_page"};
    constexpr const char *bases[] = {"zero", "factory", "equal", "preset"};
    for (int driver = 0; driver < fuzz::drivers; ++driver)
        for (int base = 0; base < fuzz::bases; ++base)
            Rendering(static_cast<fuzz::Driver>(driver), static_cast<fuzz::Base>(base))
                .save(std::string(drivers[driver]) + "_" + bases[base]);
    for (const int bank : {0, 2, 3, -1})
        Rendering(fuzz::fullRunning, fuzz::factoryBase, bank).boardNoise(7).save("bank_" + std::to_string(bank));
    Rendering(fuzz::fullDefault, fuzz::zeroBase, 1)
        .bytes(fuzz::boardRecord, offsetof(BoardRecord, versionOfBank1), "a\nb%s%n\xff\x01\"'")
        .save("version_that_fills_its_field");
    Rendering(fuzz::fullRunning, fuzz::factoryBase, 1, fuzz::headerRefused).save("header_refused_full");
    Rendering(fuzz::deltaRunning, fuzz::factoryBase, 1, fuzz::headerRefused).save("header_refused_delta");
    Rendering(fuzz::fullRunning, fuzz::factoryBase)
        .bytes(fuzz::boardRecord, offsetof(BoardRecord, boardType), number(5027, 4))
        .save("board_5027");

    // Every byte of a section, and of everything.
    for (std::size_t section = 0; section < std::size(fuzz::sections); ++section) {
        const std::string name(fuzz::sections[section].name);
        Rendering(fuzz::fullPage, fuzz::zeroBase).noise(fuzz::currentRecord, section, 1).save("noise_full_" + name);
        Rendering(fuzz::deltaPage, fuzz::factoryBase).noise(fuzz::bothRecords, section, 2).save("noise_delta_" + name);
    }
    Rendering(fuzz::fullPage, fuzz::zeroBase)
        .repeat(fuzz::bothRecords, 0, 1, 65535, "\xff")
        .repeat(fuzz::bothRecords, 65535, 1, 65535, "\xff")
        .repeat(fuzz::bothRecords, 131070, 1, 65535, "\xff")
        .repeat(fuzz::bothRecords, 196605, 1, 65535, "\xff")
        .save("all_ones_full");
    Rendering(fuzz::deltaPage, fuzz::zeroBase)
        .repeat(fuzz::currentRecord, 0, 1, 65535, "\xff")
        .repeat(fuzz::currentRecord, 65535, 1, 65535, "\xff")
        .repeat(fuzz::currentRecord, 131070, 1, 65535, "\xff")
        .repeat(fuzz::currentRecord, 196605, 1, 65535, "\xff")
        .save("all_ones_delta");

    // Passwords that the platform makes something of, and of which it makes too much.
    for (int md5 = 0; md5 < 4; ++md5)
        for (const fuzz::Driver driver : {fuzz::fullRunning, fuzz::deltaRunning})
            Rendering(driver, fuzz::zeroBase, 1, fuzz::md5Passwords | md5)
                .with([](ConfigImage &current, ConfigImage &) {
                    User &user = current.users[9];
                    user.inUse = 1;
                    user.name = "operator";
                    user.password = "a password of 24 letters";
                })
                .save("md5_" + std::to_string(md5) + "_" + drivers[driver]);

    // More VLANs than the text has room for.
    TagVlan vlan = {};
    vlan.inUse = 1;
    vlan.members = {{0x55, 0x55, 0x55, 0x05}};
    vlan.id = 4094;
    std::memset(vlan.name.characters, 'v', sizeof vlan.name);
    const Bytes vlanBytes(reinterpret_cast<const char *>(&vlan), sizeof vlan);
    for (const fuzz::Driver driver : {fuzz::fullRunning, fuzz::deltaRunning})
        Rendering(driver, fuzz::zeroBase)
            .repeat(fuzz::currentRecord, offsetof(ConfigImage, tagVlans), sizeof vlan,
                    std::size(ConfigImage{}.tagVlans), vlanBytes)
            .save(std::string("too_long_") + drivers[driver]);

    // Ports that share nothing: one group each.
    Rendering(fuzz::deltaPage, fuzz::factoryBase)
        .with([](ConfigImage &current, ConfigImage &) {
            for (std::size_t i = 0; i < portCount; ++i) {
                const std::string name = "port" + std::to_string(i);
                current.ports[i].description = name.c_str();
                current.circuitIds.text[i] = name.c_str();
                current.rateLimits.ingress[i] = static_cast<std::uint32_t>(i);
                current.rateLimits.egress[i] = 0xfffffff0U + static_cast<std::uint32_t>(i);
                for (Text<24> &profile : current.portFilters.port[i].profile) profile = name.c_str();
            }
        })
        .save("each_port_alone");
    Rendering(fuzz::fullPage, fuzz::zeroBase)
        .with([](ConfigImage &current, ConfigImage &) {
            TimeRange &range = current.timeRanges[0];
            range.name = "%s%n\n\"'\\";
            range.absoluteStart = "99:99,2147483648,-9999999999,x";
            range.absoluteEnd = ",,,,,,,,";
            range.periodic[0].start = "-1,24:00";
            range.periodic[1].end = "99999999999,1";
            current.time.daylightSaving = 1;
            current.time.offset = "-13,99,99,99,99:99-9,-9,-9,";
        })
        .save("times_out_of_range");
}

// ---------------------------------------------------------------------------------------------------- command lines

/// `header`: what becomes of the file, the call that fails (7: none), flags.
void commandLine(const std::string &name, const Bytes &header, const std::vector<std::string> &words) {
    Bytes bytes = header;
    for (const std::string &word : words) bytes += word + '\0';
    write("command_line", name, bytes);
}

void writeCommandLines() {
    const Bytes good{0, 7, 0};
    for (const char *verb : {"default_config", "running_config", "startup_config", "customer_def_config"})
        for (const char *ending : {"", "_delta", "_page", "_delta_page"})
            commandLine(std::string(verb) + ending, good, {std::string(verb) + ending, "-f", "out"});
    commandLine("no_word", good, {});
    commandLine("no_name", Bytes{0, 7, 2}, {});
    commandLine("four_words", good, {"running_config", "startup_config", "-f", "out"});
    commandLine("last_verb_wins", good, {"running_config", "startup_config", "bogus"});
    commandLine("empty_word", good, {""});
    commandLine("path_alone", good, {"-f", "out"});
    commandLine("empty_path", good, {"running_config", "-F", ""});
    commandLine("path_like_an_option", good, {"-fxyz", "-f", "running_config_delta"});
    commandLine("option_without_path", good, {"running_config", "-f"});
    commandLine("invalid_option", good, {"running_config", "-x"});
    commandLine("lone_hyphen", good, {"-"});
    commandLine("path_255", good, {"running_config", "-f", std::string(255, 'p')});
    commandLine("path_256", good, {"running_config", "-f", std::string(256, 'p')});
    commandLine("text_too_long", Bytes{0, 7, 1}, {"running_config", "-f", "out"});
    for (char failing = 0; failing < 7; ++failing)
        commandLine("failing_call_" + std::to_string(failing), Bytes{0, failing, 0}, {"running_config"});
    commandLine("file_not_opened", Bytes{1, 7, 0}, {"running_config", "-f", "/missing/out"});
    commandLine("disk_full", Bytes{2, 7, 0}, {"running_config", "-f", "out"});
    commandLine("close_fails", Bytes{3, 7, 0}, {"running_config", "-f", "out"});
}

// ----------------------------------------------------------------------------------------------------------- stores

void writeStores() {
    constexpr const char *files[] = {"running", "default", "startup", "customer_default", "board", "platform_conf"};
    constexpr const char *states[] = {"whole", "short", "long", "absent", "folder", "pipe", "dangling_link"};
    for (char file = 0; file < 6; ++file)
        for (char state = 0; state < 7; ++state)
            write("store", std::string(files[static_cast<int>(file)]) + "_" + states[static_cast<int>(state)],
                  Bytes{file, state, 0});
    const auto conf = [](const std::string &name, const Bytes &text) {
        write("store", "conf_" + name, Bytes{5, 0, 0} + text);
    };
    conf("md5", "# settings\n\npassword_encryption=md5\nactive_bank=2\n");
    conf("last_line_without_newline", "password_encryption=none\nactive_bank=-2147483648");
    conf("last_setting_holds", "active_bank=1\nactive_bank=2147483647\n \t\n");
    conf("number_too_large", "active_bank=2147483648\n");
    conf("number_too_small", "active_bank=-2147483649\n");
    conf("no_number", "active_bank=\n");
    conf("sign_alone", "active_bank=-");
    conf("blank_behind_a_number", "active_bank=1 \n");
    conf("unknown_encryption", "password_encryption=sha\n");
    conf("unknown_setting", "\nbank=1\n");
    conf("blank_in_front", " active_bank=1\n");
    conf("control_characters", Bytes("a\0\x01\x1b[2J\r\xff%s%n", 13));
    conf("long_line", std::string(100, 'x'));
    conf("of_an_editor", "\xef\xbb\xbf# settings\r\n\r\npassword_encryption = md5\r\nactive_bank\t=\t2\r\n");
    conf("carriage_returns_alone", "active_bank=1\rpassword_encryption=md5\r\r\n");
    write("store", "running_long_by_much", Bytes{0, 2, 19} + "contents");
    write("store", "board_short_by_much", Bytes{4, 1, 19} + "contents");
    write("store", "board_contents", Bytes{4, 0, 0} + std::string(300, '\xff'));
}

// ------------------------------------------------------------------------------------------------ textcfg-inspect

/// Source, base, what becomes of the whole image, bank and flags, as tests/fuzz/inspect.cpp has them.
Bytes inspection(int source, fuzz::Base base, int whole = 0, int bank = 1, int flags = 0) {
    return {static_cast<char>(source), static_cast<char>(base), static_cast<char>(whole), static_cast<char>(bank),
            static_cast<char>(flags)};
}

/// Bytes that are written `count` times, every `step` bytes.
Bytes patchOf(fuzz::Record record, std::size_t offset, const Bytes &what, std::size_t step = 0, std::size_t count = 1) {
    return Bytes{static_cast<char>(record | fuzz::repeatKind << 2), 0} + number(offset, 3) + number(what.size(), 1) +
           number(step, 2) + number(count, 2) + what;
}

void writeInspections() {
    const auto save = [](const std::string &name, const Bytes &bytes) { write("inspect", name, bytes); };
    const fuzz::Record current = fuzz::currentRecord;
    for (int flags = 0; flags < 64; flags += 2)
        save("flags_" + std::to_string(flags), inspection(0, fuzz::factoryBase, 0, 1, flags));
    for (const int whole : {1, 2, 4, 64, -1, -4})
        save("whole_" + std::to_string(whole), inspection(0, fuzz::factoryBase, whole));
    Bytes erased = inspection(0, fuzz::zeroBase);
    for (std::size_t at = 0; at < 262140; at += 65535) erased += patchOf(current, at, "\xff", 1, 65535);
    save("zero", inspection(0, fuzz::zeroBase));
    save("erased", erased);
    for (int seed = 0; seed < 4; ++seed)
        save("noise_" + std::to_string(seed), inspection(0, fuzz::factoryBase, 0, 3, 8 + 2 * seed) +
                                                  Bytes{fuzz::currentRecord | fuzz::noiseKind << 2, 0} + number(0, 3) +
                                                  number(sizeof(ConfigImage), 3) + number(std::size_t(seed), 1));
    const Bytes preset = inspection(0, fuzz::presetBase);
    const std::size_t mask = offsetof(ConfigImage, ipv4) + offsetof(Ipv4Interface, mask);
    const std::size_t vlans = offsetof(ConfigImage, tagVlans);
    save("mask", preset + patchOf(current, mask, Bytes("\xff\0\xff\0", 4)));
    save("host", preset + patchOf(current, mask - 4, Bytes("\xe0\0\0\1", 4)));
    save("no_management_vlan", preset + patchOf(current, vlans, Bytes("\1\xff\xff\xff\x0f", 5)));
    save("management_vlan_after_a_free_entry",
         preset + patchOf(current, vlans, Bytes(5, '\0')) +
             patchOf(current, vlans + 2 * sizeof(TagVlan), Bytes("\1\0\0\0\x10\0\0\1x", 9)));
    save("text_too_long",
         inspection(0, fuzz::factoryBase, 0, 1, 1) +
             patchOf(current, vlans, "\1\x55\x55\x55\x15\1\1\1" + Bytes(46, 'v'), sizeof(TagVlan), 2077));
    save("injected", preset + patchOf(current, offsetof(ConfigImage, company), "a\nb\tc"));
    save("marks", preset + patchOf(current, offsetof(ConfigImage, rateLimits) + 4, number(1, 4)));
    save("schedule", preset + patchOf(current, offsetof(ConfigImage, poePorts) + 36, "night"));
    save("profile", preset + patchOf(current, offsetof(ConfigImage, multicastProfiles), "\1x") +
                        patchOf(current, offsetof(ConfigImage, multicastProfiles) + 26, "\1\1"));
    const Bytes contents[] = {"",         "short",     "active_bank=7\n", "nonsense\n", "\xff\x1b[2J\n",
                              ":startup", "builtin:x", Bytes(244, '\xff')};
    for (int source = 1; source < 6; ++source)
        for (std::size_t i = 0; i < std::size(contents); ++i)
            save("file_" + std::to_string(source) + "_" + std::to_string(i),
                 inspection(source, fuzz::factoryBase, 0, 1, i % 2 == 0 ? 2 : 0) + contents[i]);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    corpus = argv[1];
    writeRenderings();
    writeCommandLines();
    writeStores();
    writeInspections();
    return 0;
}
