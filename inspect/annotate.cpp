#include "inspect/annotate.h"

#include "inspect/mask.h"
#include "inspect/show.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace inspect {
namespace {

const char *nameOf(Origin origin) {
    switch (origin) {
    case Origin::current: return "current";
    case Origin::defaults: return "default";
    case Origin::board: return "board";
    case Origin::platform: break;
    }
    return "platform";
}

constexpr std::size_t longestBytes = 24;

} // namespace

std::vector<TextLine> textLines(Engine &engine, Mode mode) {
    std::vector<TextLine> lines;
    for (std::size_t stage = 0; stage < stageCount; ++stage) {
        if (!hasStage(mode, stage)) continue;
        const StageText &text = engine.text(mode, stage);
        for (std::size_t line = 0; line < text.lines.size(); ++line)
            lines.push_back({lines.size() + 1, stage, line, std::string(text.lines[line].text), {}});
    }
    return lines;
}

SourceText describe(Engine &engine, const Source &source, Mode mode, bool secrets) {
    const Leaf &leaf = source.leaf;
    const bool isHidden = leaf.isReserved() && !secrets;
    const auto valueIn = [&](Origin origin) {
        return isHidden ? std::string(hiddenBytes) : displayOf(leaf, engine.recordOf(origin));
    };
    SourceText text;
    text.path = leaf.path();
    if (source.origin == Origin::defaults) text.path = "default " + text.path;
    text.value = valueIn(source.origin);
    const unsigned char *const bytes = engine.bytesOf(source);
    text.bytes = isHidden ? hiddenBytes : hexadecimal({bytes, std::min(leaf.size(), longestBytes)});
    if (leaf.size() > longestBytes && !isHidden) text.bytes += "...";
    if (mode == Mode::delta && source.origin == Origin::current) text.defaultValue = valueIn(Origin::defaults);
    return text;
}

std::string sourceLine(Engine &engine, const Source &source, Mode mode, bool secrets) {
    const SourceText text = describe(engine, source, mode, secrets);
    std::string line = text.path + " = " + text.value;
    if (!text.defaultValue.empty()) line += ", default " + text.defaultValue;
    if (source.origin != Origin::platform) {
        char place[64];
        std::snprintf(place, sizeof place, "  (%zu byte%s at %zu, 0x%05zx: ", source.leaf.size(),
                      source.leaf.size() == 1 ? "" : "s", source.leaf.offset(), source.leaf.offset());
        line += place + text.bytes + ")";
    }
    return line;
}

Progress::Progress(std::size_t total) : total_(total), isTerminal_(isatty(STDERR_FILENO) == 1) {}

void Progress::advance() {
    constexpr std::size_t width = 40;
    ++done_;
    const std::size_t share = total_ == 0 ? width : done_ * width / total_;
    if (!isTerminal_ || share == shown_) return;
    shown_ = share;
    std::fprintf(stderr, "\r[%s%s]", std::string(share, '#').c_str(), std::string(width - share, ' ').c_str());
}

Progress::~Progress() {
    if (isTerminal_ && shown_ != 0) std::fputs("\r\033[K", stderr);
}

void annotate(const Input &input, const AnnotateOptions &options, Output &output) {
    const Input printed = options.secrets ? input : maskedCopy(input);
    Renderer renderer(printed);
    Engine engine(renderer);
    const Mode mode = options.delta ? Mode::delta : Mode::full;
    std::vector<TextLine> lines = textLines(engine, mode);
    std::vector<std::size_t> firstOf(stageCount, 0);
    for (std::size_t i = lines.size(); i-- != 0;) firstOf[lines[i].stage] = i;

    std::vector<Source> sources;
    forEachSource(renderer, [&](const Source &source) { sources.push_back(source); });
    {
        Progress progress(sources.size());
        for (const Source &source : sources) {
            for (std::size_t stage = 0; stage < stageCount; ++stage) {
                if (!reads(mode, stage, source) || engine.text(mode, stage).lines.empty()) continue;
                for (const std::size_t line : engine.influence(source, mode, stage).lines)
                    lines[firstOf[stage] + line].sources.push_back(source);
            }
            progress.advance();
        }
    }

    if (!options.json) {
        for (const TextLine &line : lines) {
            output << std::to_string(line.number) + "  " + escapeText(line.text) + "\n";
            output << "      " + std::string(emitterOf(line.stage)) + "\n";
            for (const Source &source : line.sources)
                output << "      " + sourceLine(engine, source, mode, options.secrets) + "\n";
        }
        return;
    }
    Json document = jsonHead(printed, options.secrets);
    document["mode"] = options.delta ? "delta" : "full";
    Json &list = document["lines"] = Json::array();
    for (const TextLine &line : lines) {
        Json entry = {{"number", line.number}, {"text", escapeText(line.text)}, {"emitter", emitterOf(line.stage)}};
        Json &fields = entry["fields"] = Json::array();
        for (const Source &source : line.sources) {
            const SourceText text = describe(engine, source, mode, options.secrets);
            const Leaf &leaf = source.leaf;
            Json field = {{"record", nameOf(source.origin)}, {"path", leaf.path()}};
            if (source.origin != Origin::platform) {
                field["offset"] = leaf.offset();
                field["size"] = leaf.size();
                field["bytes"] = text.bytes;
            }
            const auto valueIn = [&](Origin origin) {
                return leaf.isReserved() && !options.secrets ? Json(hiddenBytes)
                                                             : jsonOf(leaf, engine.recordOf(origin));
            };
            field["value"] = valueIn(source.origin);
            if (!text.defaultValue.empty()) field["default"] = valueIn(Origin::defaults);
            fields.push_back(std::move(field));
        }
        list.push_back(std::move(entry));
    }
    output << document.dump(2) << "\n";
}

} // namespace inspect
