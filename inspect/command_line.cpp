#include "inspect/command_line.h"

#include "inspect/annotate.h"
#include "inspect/check.h"
#include "inspect/diff.h"
#include "inspect/explain.h"
#include "inspect/mask.h"
#include "inspect/mask_record.h"
#include "inspect/output.h"
#include "inspect/record_source.h"
#include "inspect/render.h"
#include "inspect/show.h"
#include "inspect/values.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {
namespace {

constexpr int trouble = 2;
constexpr const char *program = "textcfg-inspect";

/// Of a command that ran, where it has more to say than that.
int exitStatus = 0;

/// A subcommand adds its words, and what is done when it was named.
using Command = void (*)(CLI::App &app, Output &output);

/// A byte count or offset, decimal or hexadecimal.
std::uint64_t numberFrom(const std::string &text) {
    const bool isHexadecimal = text.starts_with("0x");
    const char *const first = text.data() + (isHexadecimal ? 2 : 0);
    const char *const last = text.data() + text.size();
    std::uint64_t number = 0;
    const std::from_chars_result end = std::from_chars(first, last, number, isHexadecimal ? 16 : 10);
    if (end.ec != std::errc() || end.ptr != last)
        throw CLI::ValidationError("found \"" + text + "\"; expected a decimal number, or a hexadecimal one after 0x");
    return number;
}

bool yesOrNo(const std::string &text) {
    if (text != "yes" && text != "no") throw CLI::ValidationError("found \"" + text + "\"; expected yes or no");
    return text == "yes";
}

constexpr const char *recordHelp =
    "An image file; a store folder, or FOLDER:running, :default, :startup, :customer_default; - for standard input; "
    "builtin:running and so on for the built-in example";

void addNumber(CLI::App &command, const std::string &name, std::optional<std::uint64_t> &number,
               const std::string &help) {
    command
        .add_option_function<std::string>(
            name, [&number](const std::string &text) { number = numberFrom(text); }, help)
        ->type_name("N");
}

/// What a text needs besides images.
void addPlatform(CLI::App &command, InputOptions &options) {
    command.add_option("--board", options.board, "The board record: a file, a folder or builtin:board")
        ->type_name("BOARD");
    command.add_option("--bank", options.bank, "The image bank in use")->type_name("N");
    command
        .add_option_function<std::string>(
            "--md5", [&options](const std::string &text) { options.md5 = yesOrNo(text); },
            "Whether passwords are encrypted")
        ->type_name("yes|no");
}

/// The words that say what belongs to a record.
void addNeighbours(CLI::App &command, InputOptions &options) {
    command.add_option("--default", options.defaults, "The default image: a file, a folder or builtin:default")
        ->type_name("IMAGE");
    addPlatform(command, options);
    addNumber(command, "--offset", options.offset, "Where the image begins in RECORD, in bytes");
}

/// The words that say where a record comes from.
void addInput(CLI::App &command, InputOptions &options) {
    command.add_option("RECORD", options.record, recordHelp)->required();
    addNeighbours(command, options);
}

void addText(CLI::App &app, Output &output) {
    struct Words {
        InputOptions input;
        bool delta = false;
        bool page = false;
        bool mask = false;
    };
    CLI::App &command = *app.add_subcommand("text", "Print the text that textcfg writes");
    const auto words = std::make_shared<Words>();
    addInput(command, words->input);
    command.add_flag("--delta", words->delta, "Only what differs from the default image");
    command.add_flag("--page", words->page, "Without the version line");
    command.add_flag("--mask", words->mask, "With masks instead of secrets");
    command.callback([words, &output] {
        const Input input = loadInput(words->input);
        input.requireAllOfText();
        Renderer renderer(words->mask ? maskedCopy(input) : input);
        try {
            output << renderer.text(driverOf(words->delta, words->page, input.isDefaultKind));
        } catch (const RenderError &error) {
            throw RenderError(words->input.record + ": " + error.what());
        }
        if (!input.image.isExample)
            for (const std::string &example : input.examples())
                std::cerr << program << ": " << example << ": the built-in example's\n";
    });
}

void addShow(CLI::App &app, Output &output) {
    struct Words {
        InputOptions input;
        ShowOptions show;
    };
    CLI::App &command = *app.add_subcommand("show", "List the fields of a record");
    const auto words = std::make_shared<Words>();
    addInput(command, words->input);
    command.add_option("PATTERN", words->show.patterns,
                       "Shell patterns over paths, as in 'ports[3]', 'ports[*].speed' or 'acl*'");
    command.add_flag("--changed", words->show.changed, "Only what differs from the default image");
    command.add_flag("--all", words->show.all, "Unused entries of tables and reserved bytes too");
    command.add_flag("--json", words->show.json, "As JSON");
    command.add_flag("--secrets", words->show.secrets, "Secrets and reserved bytes as they are");
    command
        .add_option_function<std::string>(
            "--at", [words](const std::string &text) { words->show.at = numberFrom(text); },
            "Only the field that holds this byte of the image")
        ->type_name("OFFSET");
    command.callback([words, &output] { show(loadInput(words->input), words->show, output); });
}

void addCheck(CLI::App &app, Output &output) {
    CLI::App &command = *app.add_subcommand("check", "Report problems of records");
    const auto options = std::make_shared<CheckOptions>();
    command.add_option("RECORD", options->records, recordHelp);
    addNeighbours(command, options->input);
    command.add_flag("--list", options->list, "Print the rules");
    command.add_option("--ignore", options->ignored, "Without this rule; may be given several times")
        ->type_name("NAME")
        ->allow_extra_args(false);
    command.add_flag("--json", options->json, "As JSON");
    command.add_flag("--secrets", options->secrets, "Secrets as they are");
    command.callback([options, &output] { exitStatus = check(*options, output); });
}

void addDiff(CLI::App &app, Output &output) {
    CLI::App &command = *app.add_subcommand("diff", "List what differs: 0 nothing, 1 something, 2 trouble");
    const auto words = std::make_shared<DiffOptions>();
    command.add_option("OLD", words->old, "A record, as for text")->required();
    command.add_option("NEW", words->now.record, "A record; two folders are compared image by image")->required();
    CLI::Option *const lines = command.add_flag(
        "--commands", words->commands, "Only the lines of delta mode; of two folders, for their running images");
    command.add_flag("--json", words->json, "As JSON")->excludes(lines);
    command.add_flag("--secrets", words->secrets, "Secrets and reserved bytes as they are");
    addPlatform(command, words->now);
    addNumber(command, "--old-offset", words->oldOffset, "Where the image begins in OLD, in bytes");
    addNumber(command, "--new-offset", words->now.offset, "Where the image begins in NEW, in bytes");
    command.callback([words, &output] { exitStatus = diff(*words, output); });
}

void addMask(CLI::App &app, Output &) {
    struct Words {
        InputOptions input;
        std::string to;
    };
    CLI::App &command = *app.add_subcommand("mask", "Write a record without secrets, to pass on");
    const auto words = std::make_shared<Words>();
    command.add_option("RECORD", words->input.record, "A record, as for text; a folder gives a folder")->required();
    command.add_option("-o", words->to, "The new file or folder; there must be nothing of this name")
        ->type_name("NEW")
        ->required();
    addNumber(command, "--offset", words->input.offset, "Where the image begins in RECORD, in bytes");
    command.callback([words] { writeMasked(words->input, words->to); });
}

void addExplain(CLI::App &app, Output &output) {
    struct Words {
        InputOptions input;
        ExplainOptions explain;
    };
    CLI::App &command = *app.add_subcommand("explain", "Say which fields a line of the text comes from");
    const auto words = std::make_shared<Words>();
    addInput(command, words->input);
    CLI::Option *const lines = command.add_option("LINE", words->explain.lines,
                                                  "Lines: a number, the text of the line, or /regular expression/");
    CLI::Option *const field =
        command.add_option("--field", words->explain.field, "The lines that change with this field, in both modes");
    field->type_name("PATH")->excludes(lines);
    command.add_flag("--delta", words->explain.delta, "Lines of the text of what differs from the default image");
    command.add_flag("--secrets", words->explain.secrets, "Secrets and reserved bytes as they are");
    command.callback([words, &output] {
        if (words->explain.lines.empty() && words->explain.field.empty())
            throw CLI::ValidationError("found neither a LINE nor --field; expected one of them");
        explain(loadInput(words->input), words->explain, output);
    });
}

void addAnnotate(CLI::App &app, Output &output) {
    struct Words {
        InputOptions input;
        AnnotateOptions annotate;
    };
    CLI::App &command = *app.add_subcommand("annotate", "Print the text with the emitter and the fields of each line");
    const auto words = std::make_shared<Words>();
    addInput(command, words->input);
    command.add_flag("--delta", words->annotate.delta, "Only what differs from the default image");
    command.add_flag("--json", words->annotate.json, "As JSON");
    command.add_flag("--secrets", words->annotate.secrets, "Secrets and reserved bytes as they are");
    command.callback([words, &output] { annotate(loadInput(words->input), words->annotate, output); });
}

constexpr Command commands[] = {addText, addShow, addDiff, addMask, addCheck, addExplain, addAnnotate};

int complain(const std::string &message) {
    std::cerr << program << ": " << message << '\n';
    return trouble;
}

/// The names of the commands, as words of a sentence.
std::string namesOf(const CLI::App &app) {
    std::string names;
    const std::vector<const CLI::App *> all = app.get_subcommands([](const CLI::App *) { return true; });
    for (std::size_t i = 0; i < all.size(); ++i)
        names += (i == 0 ? "" : i + 1 == all.size() ? " or " : ", ") + all[i]->get_name();
    return names;
}

/// Throws for a first word that is no command: the parser would only say that one is required.
void requireCommand(const CLI::App &app, std::string_view word) {
    const bool isOption = word.size() > 1 && word.front() == '-';
    if (isOption ||
        !app.get_subcommands([&](const CLI::App *command) { return command->check_name(std::string(word)); }).empty())
        return;
    throw CLI::ValidationError((word.empty() ? "\"\"" : escapeText(word)) + ": there is no such command; expected " +
                               namesOf(app));
}

} // namespace

int commandLine(int argc, char **argv) {
    // The reader of a pipe may leave, whatever the caller did with the signal.
    std::signal(SIGPIPE, SIG_DFL);
    CLI::App app("Look into the configuration records of a switch.", program);
    app.set_version_flag("--version", std::string(program) + " " TEXTCFG_VERSION);
    app.set_help_flag("--help", "Print this help and exit");
    app.require_subcommand(1);
    exitStatus = 0;
    Output output;
    for (const Command add : commands) add(app, output);
    try {
        if (argc > 1) requireCommand(app, argv[1]);
        app.parse(argc, argv);
        output.flush();
    } catch (const CLI::ParseError &error) {
        if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::Success)) return complain(error.what());
        // --help and --version come this way too.
        std::ostringstream text;
        app.exit(error, text, text);
        try {
            output << text.str();
            output.flush();
        } catch (const OutputError &failed) {
            return complain(failed.what());
        }
    } catch (const std::exception &error) {
        return complain(error.what());
    }
    return exitStatus;
}

} // namespace inspect
