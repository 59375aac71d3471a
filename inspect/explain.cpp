#include "inspect/explain.h"

#include "inspect/annotate.h"
#include "inspect/engine.h"
#include "inspect/mask.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <regex>

namespace inspect {
namespace {

/// What a line is asked for by.
class Pattern {
public:
    explicit Pattern(const std::string &words) : words_(words) {
        if (words.size() >= 2 && words.front() == '/' && words.back() == '/') {
            try {
                expression_.emplace(words.substr(1, words.size() - 2), std::regex::extended);
            } catch (const std::regex_error &) {
                throw InputError(words + ": not a regular expression; expected one between slashes, as in /^vlan/");
            }
            return;
        }
        const char *const last = words.data() + words.size();
        const std::from_chars_result end = std::from_chars(words.data(), last, number_);
        if (end.ec != std::errc() || end.ptr != last) number_ = 0;
    }

    /// Blanks at the end of a line need not be given.
    bool matches(const TextLine &line) const {
        if (expression_) return std::regex_search(line.text, *expression_);
        if (number_ != 0) return line.number == number_;
        return line.text == words_ || trimmed(line.text) == words_;
    }

private:
    static std::string_view trimmed(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

    std::string words_;
    std::optional<std::regex> expression_;
    std::size_t number_ = 0;
};

void explainLines(const ExplainOptions &options, Renderer &renderer, Output &output) {
    Engine engine(renderer);
    const Mode mode = options.delta ? Mode::delta : Mode::full;
    const std::vector<TextLine> all = textLines(engine, mode);
    std::vector<bool> isChosen(all.size());
    for (const std::string &words : options.lines) {
        const Pattern pattern(words);
        bool some = false;
        for (std::size_t i = 0; i < all.size(); ++i)
            if (pattern.matches(all[i])) isChosen[i] = some = true;
        if (!some) throw InputError("no line of the text matches " + words);
    }
    std::vector<TextLine> lines;
    std::vector<bool> isStageChosen(stageCount);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!isChosen[i]) continue;
        lines.push_back(all[i]);
        isStageChosen[all[i].stage] = true;
    }

    std::vector<Source> sources;
    forEachSource(renderer, [&](const Source &source) { sources.push_back(source); });
    Progress progress(sources.size());
    for (const Source &source : sources) {
        for (std::size_t stage = 0; stage < stageCount; ++stage) {
            if (!isStageChosen[stage] || !reads(mode, stage, source)) continue;
            const Influence found = engine.influence(source, mode, stage);
            for (TextLine &line : lines)
                if (line.stage == stage && std::ranges::binary_search(found.lines, line.line))
                    line.sources.push_back(source);
        }
        progress.advance();
    }
    for (const TextLine &line : lines) {
        output << "line " + std::to_string(line.number) + ": " + escapeText(line.text) + "\n";
        output << "  emitter  " + std::string(emitterOf(line.stage)) + "\n";
        for (const Source &source : line.sources)
            output << "  field    " + sourceLine(engine, source, mode, options.secrets) + "\n";
        if (line.sources.empty()) output << "  no field changes this line\n";
    }
}

void explainField(const ExplainOptions &options, Renderer &renderer, Output &output) {
    const std::optional<Leaf> leaf = leafOf(options.field);
    if (!leaf) throw InputError("no field is called " + options.field);
    Engine engine(renderer);
    std::vector<Source> sources;
    for (const Origin origin : origins)
        if (partOf(origin) == leaf->part()) sources.push_back({origin, *leaf});
    output << sourceLine(engine, sources.front(), Mode::delta, options.secrets) + "\n";
    bool some = false;
    for (const Mode mode : modes) {
        // The numbers that lines have in the whole text.
        std::vector<std::size_t> before(stageCount, 0);
        std::size_t count = 0;
        for (std::size_t stage = 0; stage < stageCount; ++stage) {
            before[stage] = count;
            if (hasStage(mode, stage)) count += engine.text(mode, stage).lines.size();
        }
        for (const Source &source : sources)
            for (const Influence &found : engine.influences(source, mode)) {
                some = true;
                output << std::string(mode == Mode::full ? "full" : "delta") + " mode, " +
                              std::string(emitterOf(found.stage)) +
                              (source.origin == Origin::defaults ? ", with the default image" : "") + "\n";
                const StageText &text = engine.text(mode, found.stage);
                for (const std::size_t line : found.lines)
                    output << "  line " + std::to_string(before[found.stage] + line + 1) + ": " +
                                  escapeText(text.lines[line].text) + "\n";
                constexpr std::size_t most = 12;
                for (std::size_t i = 0; i < found.appearing.size() && i < most; ++i)
                    output << "  with another value: " + escapeText(found.appearing[i]) + "\n";
                if (found.appearing.size() > most)
                    output << "  and " + std::to_string(found.appearing.size() - most) + " more\n";
            }
    }
    if (!some) output << "no line expresses this field\n";
}

} // namespace

void explain(const Input &input, const ExplainOptions &options, Output &output) {
    Renderer renderer(options.secrets ? input : maskedCopy(input));
    if (!options.field.empty()) explainField(options, renderer, output);
    else explainLines(options, renderer, output);
}

} // namespace inspect
