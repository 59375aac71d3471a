/// Prints docs/commands.md, for script/commands: every command line, its forms and the fields that it expresses.
///
///     textcfg-commands SECTIONS              the document
///     textcfg-commands --repeats SECTIONS    how many literals of the sources repeat another one
///
/// SECTIONS is the folder of the sources that say which lines there are. Which fields a line expresses is found by
/// experiment: every field of a few stores is varied.
#include "inspect/engine.h"
#include "inspect/literals.h"
#include "platform/host/factory.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using inspect::Field;
using inspect::Kind;
using inspect::Leaf;
using inspect::Literal;
using inspect::Mode;
using inspect::Origin;
using inspect::Source;

const char *nameOf(Mode mode) { return mode == Mode::full ? "full" : "delta"; }

// ---------------------------------------------------------------------------------------------------------- the fields

/// As in "acl[].number".
std::string pathOf(const Leaf &leaf) {
    std::string path = leaf.part() == inspect::Part::image ? "" : std::string(inspect::nameOf(leaf.part())) + ".";
    for (const Leaf::Step &step : leaf.steps()) {
        if (&step != leaf.steps().data()) path += ".";
        path += step.field->name;
        if (step.field->count != 0) path += "[]";
    }
    return path;
}

std::string valuesOf(const Field &field) {
    std::string words;
    const auto add = [&](std::int64_t code, const char *word) {
        words += (words.empty() ? "" : ", ") + std::to_string(code) + " " + word;
    };
    for (const inspect::Word &word : field.words) add(word.code, word.word);
    for (std::uint32_t code = 0; code < field.wordCount; ++code) add(code, field.wordOf(code));
    if (!words.empty() && field.otherwise != nullptr) words += std::string(", other values ") + field.otherwise;
    switch (field.kind) {
    case Kind::flag: return "0 off, other values on";
    case Kind::portNumber: return "port, counted from 0" + (words.empty() ? "" : "; " + words);
    case Kind::vlanId: return "VLAN id" + (words.empty() ? "" : "; " + words);
    case Kind::bytes: return "hexadecimal";
    case Kind::bits:
        if (!words.empty()) return "bits: " + words;
        return field.members == inspect::Members::ports   ? "set of ports"
               : field.members == inspect::Members::vlans ? "set of VLANs"
                                                          : "bits";
    default: return words;
    }
}

bool hasWidth(const Field &field) {
    return field.kind == Kind::text || field.kind == Kind::secret || field.kind == Kind::bits;
}

std::string typeOf(const Field &field) {
    const std::string type(field.type);
    return hasWidth(field) ? type + ", " + std::to_string(field.size) + " bytes" : type;
}

/// It says whether an entry of a table is in use.
bool isInUseFlag(const Leaf &leaf) {
    const std::span<const Leaf::Step> steps = leaf.steps();
    return steps.size() > 1 && steps[steps.size() - 2].field->record->inUse == &leaf.field() &&
           leaf.field().kind != Kind::text;
}

// ----------------------------------------------------------------------------------------------------- the experiment

/// The fields of the lines.
class Experiment {
public:
    explicit Experiment(const inspect::SectionSources &sources) : sources_(sources) {
        for (const inspect::Part part : inspect::parts)
            inspect::forEachLeaf(part, [&](const Leaf &leaf) { leaves_.try_emplace(pathOf(leaf), leaf); });
    }

    /// Varies the fields of a store, for one emitter or for all.
    void run(const ConfigImage &current, const ConfigImage &defaults, const BoardRecord &board,
             const inspect::RenderSettings &settings, std::string_view onlyEmitter = {}) {
        inspect::Renderer renderer(current, defaults, board, settings);
        inspect::Engine engine(renderer);
        Lines lines;
        for (std::size_t stage = 1; stage < inspect::stageCount; ++stage) {
            if (!onlyEmitter.empty() && inspect::emitterOf(stage) != onlyEmitter) continue;
            for (const Mode mode : inspect::modes) {
                findHeads(engine, mode, stage);
                inspect::forEachSource(renderer, [&](const Source &source) {
                    if (source.leaf.isReserved() || source.origin == Origin::board) return;
                    if (const inspect::Influence influence = engine.influence(source, mode, stage))
                        add(engine, source, mode, influence, lines);
                });
            }
        }
        for (auto &[line, fields] : lines)
            if (!kept_.contains(line)) lines_[line].merge(fields);
    }

    /// The fields of the lines that are known are not added to any more.
    void keepLines() {
        for (const auto &[line, fields] : lines_) kept_.insert(line);
    }

    /// The fields of all lines of an emitter.
    std::vector<Leaf> fieldsOf(std::string_view emitter) const {
        std::vector<Leaf> fields;
        for (const auto &[line, paths] : lines_)
            for (const std::string &path : paths)
                if (const Leaf &leaf = leaves_.at(path);
                    line.emitter == emitter && std::ranges::find(fields, leaf) == fields.end())
                    fields.push_back(leaf);
        return fields;
    }

    /// The fields that a literal expresses, by their offset. A line of a block has the fields of its own, not those of
    /// the head.
    std::vector<std::string> fieldsOf(std::string_view emitter, const std::string &literal,
                                      const std::string &head) const {
        // Full mode shows what a line expresses. In delta mode whatever makes its entry differ brings it about.
        constexpr struct {
            Mode mode;
            bool ofDefaults;
        } ways[] = {{Mode::full, false}, {Mode::full, true}, {Mode::delta, false}, {Mode::delta, true}};
        for (const auto &[mode, ofDefaults] : ways) {
            const auto found = lines_.find({std::string(emitter), mode, ofDefaults, literal});
            if (found == lines_.end()) continue;
            std::set<std::string> fields = found->second;
            if (const auto ofHead = lines_.find({std::string(emitter), mode, ofDefaults, head});
                ofHead != lines_.end() && literal != head)
                take(fields, ofHead->second);
            take(fields, flags_);
            std::vector<std::string> sorted(fields.begin(), fields.end());
            std::ranges::stable_sort(sorted, {}, [&](const std::string &path) { return leaves_.at(path).offset(); });
            if (ofDefaults)
                for (std::string &path : sorted) path += " of the default image";
            return sorted;
        }
        return {};
    }

    /// Whether lines follow it in a block that it opens.
    bool isHead(std::string_view emitter, const std::string &literal) const {
        return heads_.contains({std::string(emitter), literal});
    }
    const Leaf &leaf(const std::string &path) const { return leaves_.at(path); }

private:
    struct Line {
        std::string emitter;
        Mode mode;
        bool ofDefaults;
        std::string literal;
        // NOLINTNEXTLINE(modernize-use-nullptr): the compiler writes it
        friend auto operator<=>(const Line &, const Line &) = default;
    };
    using Lines = std::map<Line, std::set<std::string>>;

    /// Takes `others` out of `fields`, unless none is left.
    static void take(std::set<std::string> &fields, const std::set<std::string> &others) {
        std::set<std::string> left;
        std::ranges::set_difference(fields, others, std::inserter(left, left.end()));
        if (!left.empty()) fields = std::move(left);
    }

    void findHeads(inspect::Engine &engine, Mode mode, std::size_t stage) {
        const std::string emitter(inspect::emitterOf(stage));
        const std::vector<inspect::StageLine> &lines = engine.text(mode, stage).lines;
        for (std::size_t at = 0; at < lines.size(); ++at) {
            if (lines[at].opener == at) continue;
            const std::string head = std::string(lines[lines[at].opener].text) + "\n";
            if (const Literal *const literal = inspect::writerOf(sources_.literalsOf(nameOf(mode), emitter), head))
                heads_.insert({emitter, literal->text});
        }
    }

    void add(inspect::Engine &engine, const Source &source, Mode mode, const inspect::Influence &influence,
             Lines &lines) {
        const std::string emitter(inspect::emitterOf(influence.stage));
        const auto literals = sources_.literalsOf(nameOf(mode), emitter);
        const std::vector<inspect::StageLine> &before = engine.text(mode, influence.stage).lines;
        const std::string path = pathOf(source.leaf);
        if (isInUseFlag(source.leaf)) flags_.insert(path);
        const auto addLine = [&](std::string_view text) {
            if (const Literal *const literal = inspect::writerOf(literals, std::string(text) + "\n"))
                lines[{emitter, mode, source.origin == Origin::defaults, literal->text}].insert(path);
        };
        // Lines that are now in the block of another entry are the same lines. Of ports they say something else.
        std::set<std::string_view> moved;
        for (const std::size_t line : influence.lines)
            if (!before[before[line].opener].text.starts_with("interface ") &&
                std::ranges::find(influence.appearing, before[line].text) != influence.appearing.end())
                moved.insert(before[line].text);
        for (const std::size_t line : influence.lines)
            if (!moved.contains(before[line].text)) addLine(before[line].text);
        for (const std::string &line : influence.appearing)
            if (!moved.contains(line)) addLine(line);
    }

    const inspect::SectionSources &sources_;
    Lines lines_;
    std::set<Line> kept_;
    std::map<std::string, Leaf> leaves_; ///< the first of each path
    std::set<std::string> flags_;
    std::set<std::pair<std::string, std::string>> heads_; ///< of an emitter
};

/// The built-in store, then stores for lines and fields that it cannot show.
void runAll(Experiment &experiment) {
    auto current = std::make_unique<ConfigImage>();
    auto defaults = std::make_unique<ConfigImage>();
    BoardRecord board;
    factory::composeRunning(*current);
    factory::composeDefault(*defaults);
    factory::composeBoard(board);
    inspect::RenderSettings settings;
    experiment.run(*current, *defaults, board, settings);

    // A battery; passwords as MD5; texts of the identity that are removed; a server that is reached by IPv6 and without
    // a password.
    constexpr std::uint32_t everything = 0xffffffff;
    board.capabilities = everything;
    settings.md5Passwords = true;
    defaults->company = current->company;
    current->backup.serverIsIpv6 = 1;
    current->backup.password = "";
    experiment.run(*current, *defaults, board, settings);

    // A default image in which nothing is set, and addresses of one family alone.
    std::memset(static_cast<void *>(defaults.get()), 0, sizeof *defaults);
    current->backup.protocol = 0;
    for (const Kind family : {Kind::ipv6, Kind::ipv4}) {
        auto cleared = std::make_unique<ConfigImage>(*current);
        inspect::forEachLeaf(inspect::Part::image, [&](const Leaf &leaf) {
            if (leaf.field().kind == family) std::memset(leaf.in(static_cast<void *>(cleared.get())), 0, leaf.size());
        });
        experiment.run(*cleared, *defaults, board, settings);
    }

    // All traps are on but one, or off but one: any of them can make the line for all of them appear.
    experiment.keepLines();
    const std::vector<Leaf> traps = experiment.fieldsOf("convConfigTrapConfig_TrapConfig_configure_snmp_server");
    for (const bool isOn : {true, false})
        for (const Leaf &trap : traps) {
            for (const Leaf &other : traps) *other.in(static_cast<void *>(current.get())) = isOn ? 1 : 0;
            *trap.in(static_cast<void *>(current.get())) = isOn ? 0 : 1;
            experiment.run(*current, *defaults, board, settings,
                           "convConfigTrapConfig_TrapConfig_configure_snmp_server");
        }
}

// -------------------------------------------------------------------------------------------------------- the document

/// A literal as code, blanks at its end and blanks that follow each other visible.
std::string shown(const std::string &literal) {
    const std::string text = literal.substr(0, literal.find('\n'));
    std::string visible;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isDouble = (at + 1 < text.size() && text[at + 1] == ' ') || (at > 0 && text[at - 1] == ' ');
        if (text[at] == ' ' && (isDouble || at + 1 == text.size())) visible += "\u2423";
        else visible += text[at];
    }
    return "`" + visible + "`";
}

/// The forms of a line.
struct Command {
    std::string full;  ///< empty: not in this mode
    std::string delta; ///< the same
};

std::string_view commandOf(const Command &command) {
    const std::string_view text = command.full.empty() ? command.delta : command.full;
    return text.substr(0, text.find_last_not_of(" \n") + 1);
}

/// The lines of an emitter, in the order of the source. The line that ends a block is one of them only where a mode has
/// it with a blank.
std::vector<Command> commandsOf(const inspect::SectionSources &sources, std::string_view emitter) {
    std::vector<Command> commands;
    const auto full = sources.literalsOf("full", emitter);
    for (const Literal *const literal : full)
        if (literal->text != "exit\n") commands.push_back({literal->text, ""});
    std::size_t at = 0;
    for (const Literal *const literal : sources.literalsOf("delta", emitter)) {
        std::size_t same = 0;
        while (same < commands.size() && (commandOf(commands[same]) != literal->command() ||
                                          (commands[same].full != literal->text && !commands[same].delta.empty())))
            ++same;
        // Of lines that differ by blanks alone the very same one is meant, if there is one.
        for (std::size_t i = 0; i < commands.size(); ++i)
            if (commands[i].full == literal->text) same = i;
        if (same == commands.size()) {
            if (literal->text == "exit\n") continue;
            commands.insert(commands.begin() + static_cast<std::ptrdiff_t>(at), {"", literal->text});
            same = at;
        } else {
            commands[same].delta = literal->text;
        }
        at = same + 1;
    }
    return commands;
}

void printRow(std::initializer_list<std::string> cells) {
    std::string row = "|";
    for (const std::string &cell : cells) row += " " + cell + " |";
    std::puts(row.c_str());
}

std::string joined(const std::vector<std::string> &paths) {
    std::string all;
    for (const std::string &path : paths) {
        const std::size_t end = std::min(path.find(' '), path.size());
        all += (all.empty() ? "`" : ", `") + path.substr(0, end) + "`" + path.substr(end);
    }
    return all;
}

/// The line of `commands` that opens the block of line `at`; that line itself if there is none.
std::size_t headOf(const std::vector<Command> &commands, std::size_t at, const Experiment &experiment,
                   std::string_view emitter) {
    for (std::size_t i = at + 1; i-- > 0;)
        if (experiment.isHead(emitter, commands[i].full) || experiment.isHead(emitter, commands[i].delta)) return i;
    return at;
}

void printEmitter(const inspect::SectionSources &sources, const Experiment *experiment, std::string_view emitter) {
    const std::vector<Command> commands = commandsOf(sources, emitter);
    std::printf("\n## %s\n\n", std::string(emitter).c_str());
    if (experiment == nullptr) {
        printRow({"full mode", "delta mode"});
        printRow({"---", "---"});
    } else {
        printRow({"full mode", "delta mode", "fields"});
        printRow({"---", "---", "---"});
    }
    std::set<std::string> paths;
    for (std::size_t at = 0; at < commands.size(); ++at) {
        const Command &command = commands[at];
        const std::string full = command.full.empty() ? "" : shown(command.full);
        const std::string delta = command.delta.empty()           ? ""
                                  : command.delta == command.full ? "the same"
                                                                  : shown(command.delta);
        if (experiment == nullptr) {
            printRow({full, delta});
            continue;
        }
        const Command &head = commands[headOf(commands, at, *experiment, emitter)];
        std::vector<std::string> fields = experiment->fieldsOf(emitter, command.full, head.full);
        if (fields.empty()) fields = experiment->fieldsOf(emitter, command.delta, head.delta);
        const bool isEnd = commandOf(command) == "exit";
        // The pieces of a line follow its beginning.
        const bool isPiece = command.full.starts_with('%');
        if (fields.empty() && !isEnd && !isPiece)
            throw std::runtime_error("no store shows which fields are in " + shown(command.full + command.delta));
        for (const std::string &path : fields) paths.insert(path.substr(0, path.find(' ')));
        printRow({full, delta, isEnd ? "ends the block" : isPiece ? "each weekday of the line" : joined(fields)});
    }
    if (experiment == nullptr) return;
    std::puts("");
    printRow({"field", "offset", "type", "values", "unit"});
    printRow({"---", "---", "---", "---", "---"});
    std::vector<std::string> sorted(paths.begin(), paths.end());
    std::ranges::stable_sort(sorted, {}, [&](const std::string &path) { return experiment->leaf(path).offset(); });
    for (const std::string &path : sorted) {
        const Leaf &leaf = experiment->leaf(path);
        const Field &field = leaf.field();
        printRow({"`" + path + "`", std::to_string(leaf.offset()), typeOf(field), valuesOf(field),
                  field.unit == nullptr ? "" : field.unit});
    }
}

void printDocument(const inspect::SectionSources &sources) {
    Experiment experiment(sources);
    runAll(experiment);
    std::fputs(R"(# The commands

Made by `script/commands` from the sources of the sections, by varying the fields of a few stores. Do not edit it.

Every command line in the order of the text, under the emitter that writes it. The two lines before them are those of
the [header](text.md).

A blank at the end of a line is shown as `␣`, and so are two blanks in a row. `%d`, `%ld` and `%u` are decimal numbers,
`%02d` one of at least two digits, `%X`, `%02X` and `%02x` hexadecimal digits, and `%s` is a text, an address, a word or
a list of ports. An `exit` ends each block; it is in a table only where a mode writes it with a blank.

A line expresses a field if it changes with it. What makes all lines of a block appear or change is named at the head of
the block alone. Whether an entry of a table is in use is named only where a line expresses nothing else, and the board
never. Delta mode compares each field with the default image; a field "of the default image" is written because the
current image differs from it. Offsets are those of the first entry of a table, in the image; fields that begin with
`platform.` are settings of the platform. [image.md](image.md) says what a field means.
)",
               stdout);
    std::vector<std::string_view> silent;
    for (const order::Step &step : order::steps) {
        if (commandsOf(sources, step.emitter).empty()) silent.push_back(step.emitter);
        else printEmitter(sources, &experiment, step.emitter);
    }

    std::fputs("\n# Emitters that no driver calls\n\n"
               "Their records have no place in the image.\n",
               stdout);
    for (const std::string &emitter : sources.emitters()) {
        const bool isStep =
            std::ranges::any_of(order::steps, [&](const order::Step &step) { return step.emitter == emitter; });
        if (!isStep && !commandsOf(sources, emitter).empty()) printEmitter(sources, nullptr, emitter);
    }

    std::fputs("\n# Emitters without a line\n\n", stdout);
    for (const std::string_view emitter : silent) std::printf("- `%s`\n", std::string(emitter).c_str());
}

void printRepeats(const inspect::SectionSources &sources) {
    std::size_t lines = 0;
    std::size_t repeats = 0;
    for (const Literal &literal : sources.literals()) {
        if (literal.isFrame()) continue;
        ++lines;
        if (literal.isRepeat) ++repeats;
    }
    std::printf("%zu %zu\n", lines, repeats);
}

} // namespace

int main(int argc, char **argv) {
    const bool isRepeats = argc == 3 && std::strcmp(argv[1], "--repeats") == 0;
    if (argc != 2 && !isRepeats) {
        std::fputs("usage: textcfg-commands [--repeats] SECTIONS\n", stderr);
        return 2;
    }
    try {
        const inspect::SectionSources sources(argv[argc - 1]);
        if (isRepeats) printRepeats(sources);
        else printDocument(sources);
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "textcfg-commands: %s\n", problem.what());
        return 1;
    }
    return 0;
}
