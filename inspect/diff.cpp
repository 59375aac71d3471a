#include "inspect/diff.h"

#include "app/order.h"
#include "inspect/engine.h"
#include "inspect/mask.h"
#include "inspect/render.h"
#include "inspect/show.h"
#include "inspect/values.h"
#include "platform/mapi.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace inspect {
namespace {

/// A field that differs, or a run of reserved bytes.
struct FieldDifference {
    Leaf leaf;
    std::size_t offset;
    std::size_t size;
    /// The lines of delta mode are others when the bytes are set back; nothing where there are no lines.
    std::optional<bool> changesLines = {};
};

/// Two records that are compared.
struct Pair {
    std::string name;
    Part part;
    std::shared_ptr<const void> old; ///< null: missing
    std::shared_ptr<const void> now;
    /// The same for printing.
    std::shared_ptr<const void> shownOld;
    std::shared_ptr<const void> shownNow;
    std::vector<FieldDifference> differences = {};
    std::vector<std::string> lines = {}; ///< of delta mode
    std::string noLines = {};            ///< why there are none

    bool isOneMissing() const { return (old == nullptr) != (now == nullptr); }
    bool differs() const { return isOneMissing() || !differences.empty(); }
    /// Differences that change no line.
    std::size_t unexpressed() const {
        return static_cast<std::size_t>(
            std::ranges::count_if(differences, [](const FieldDifference &d) { return d.changesLines == false; }));
    }
};

const unsigned char *bytesIn(const std::shared_ptr<const void> &record, std::size_t offset) {
    return static_cast<const unsigned char *>(record.get()) + offset;
}

void compare(Pair &pair) {
    if (pair.old == nullptr || pair.now == nullptr) return;
    if (std::memcmp(pair.old.get(), pair.now.get(), recordOf(pair.part).size) == 0) return;
    forEachLeaf(pair.part, [&](const Leaf &leaf) {
        if (isSame(leaf, pair.old.get(), pair.now.get())) return;
        if (!leaf.isReserved()) {
            pair.differences.push_back({leaf, leaf.offset(), leaf.size()});
            return;
        }
        const std::size_t end = leaf.offset() + leaf.size();
        const auto differs = [&](std::size_t at) { return *bytesIn(pair.old, at) != *bytesIn(pair.now, at); };
        for (std::size_t at = leaf.offset(); at < end;) {
            const std::size_t first = at;
            while (at < end && differs(at)) ++at;
            if (at > first) pair.differences.push_back({leaf, first, at - first});
            else ++at;
        }
    });
}

/// Lines that cannot be made any more are others too.
bool isOther(Renderer &renderer, const order::Call &call, const std::string &lines) {
    try {
        return renderer.lines(call) != lines;
    } catch (const RenderError &) {
        return true;
    }
}

/// Asks of each difference whether it changes the lines. Only steps that read its bytes can.
void findUnexpressed(Pair &pair, Renderer &renderer) {
    std::vector<std::string> all;
    for (const order::Step &step : order::steps) all.emplace_back(renderer.lines(step.delta));
    for (FieldDifference &difference : pair.differences) {
        unsigned char *const bytes = reinterpret_cast<unsigned char *>(&renderer.current()) + difference.offset;
        std::memcpy(bytes, bytesIn(pair.old, difference.offset), difference.size);
        bool changes = false;
        // The stage before the first step is the header.
        for (std::size_t i = 0; i < all.size() && !changes; ++i)
            changes = reads(Mode::delta, i + 1, Origin::current, difference.offset, difference.size) &&
                      isOther(renderer, order::steps[i].delta, all[i]);
        difference.changesLines = changes;
        std::memcpy(bytes, bytesIn(pair.now, difference.offset), difference.size);
    }
}

std::vector<std::string> textLines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

/// What delta mode needs besides the two images.
Input contextOf(const Input &now, const Pair &pair) {
    Input context = now;
    context.defaults.value = std::make_shared<ConfigImage>(*static_cast<const ConfigImage *>(pair.old.get()));
    context.requireAllOfText();
    return context;
}

const ConfigImage &imageIn(const std::shared_ptr<const void> &record) {
    return *static_cast<const ConfigImage *>(record.get());
}

/// The lines of delta mode as they are printed, then which differences change them. Throws an InputError or a
/// RenderError.
void addLines(Pair &pair, const Input &now, bool marks) {
    const Input context = contextOf(now, pair);
    const RenderSettings settings = {*context.bank, *context.md5};
    {
        Renderer renderer(imageIn(pair.shownNow), imageIn(pair.shownOld), *context.board, settings);
        pair.lines = textLines(renderer.text(driverOf(true, true, false)));
    }
    if (!marks) return;
    Renderer renderer(imageIn(pair.now), imageIn(pair.old), *context.board, settings);
    findUnexpressed(pair, renderer);
}

template <class Type> void requireUsable(const Found<Type> &part) {
    if (!part && !part.problem.empty()) throw InputError(part.problem);
}

/// Every record of two folders, or the two images that were named.
std::vector<Pair> pairsOf(const Input &old, const Input &now, bool areFolders) {
    std::vector<Pair> pairs;
    if (!areFolders) {
        pairs.push_back({"image", Part::image, old.image.value, now.image.value, nullptr, nullptr});
        return pairs;
    }
    const auto partOf = [](const Input &input, std::int32_t selector) {
        ImagePart part = selector == MAPI_CONFIG_RUNNING ? input.image : input.sibling(selector);
        requireUsable(part);
        return part.value;
    };
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector)
        pairs.push_back(
            {imageName(selector), Part::image, partOf(old, selector), partOf(now, selector), nullptr, nullptr});
    requireUsable(old.board);
    requireUsable(now.board);
    pairs.push_back({"board", Part::board, old.board.value, now.board.value, nullptr, nullptr});
    const auto settingsOf = [](const Input &input) {
        if (!input.bank || !input.md5) throw InputError(input.settingsProblem);
        return std::make_shared<const PlatformRecord>(platformRecordOf({*input.bank, *input.md5}));
    };
    pairs.push_back({"platform", Part::platform, settingsOf(old), settingsOf(now), nullptr, nullptr});
    return pairs;
}

/// Sets what is printed: the records themselves, or copies with one set of masks.
void chooseShown(std::vector<Pair> &pairs, bool secrets, bool md5) {
    Masks masks;
    for (Pair &pair : pairs) {
        pair.shownOld = pair.old;
        pair.shownNow = pair.now;
        if (pair.part != Part::image || !md5) continue;
        if (pair.old != nullptr) masks.expectMd5FormsOf(imageIn(pair.old));
        if (pair.now != nullptr) masks.expectMd5FormsOf(imageIn(pair.now));
    }
    if (secrets) return;
    for (Pair &pair : pairs) {
        // Reserved bytes are hidden wherever they are printed, and the board record has no other secrets.
        if (pair.part != Part::image || !pair.differs()) continue;
        for (std::shared_ptr<const void> *shown : {&pair.shownOld, &pair.shownNow}) {
            if (*shown == nullptr) continue;
            const auto masked = std::make_shared<ConfigImage>(imageIn(*shown));
            masks.mask(*masked);
            *shown = masked;
        }
    }
}

// ----------------------------------------------------------------------------------------------------------- printing

constexpr const char *noLineMark = "(no line)";

std::string valueText(const FieldDifference &difference, const std::shared_ptr<const void> &record, bool secrets) {
    if (!difference.leaf.isReserved()) return displayOf(difference.leaf, record.get());
    if (!secrets) return hiddenBytes;
    return hexadecimal({bytesIn(record, difference.offset), difference.size});
}

std::string differenceLine(const Pair &pair, const FieldDifference &difference, bool secrets, const Output &output) {
    const Leaf &leaf = difference.leaf;
    std::string value =
        valueText(difference, pair.shownOld, secrets) + " -> " + valueText(difference, pair.shownNow, secrets);
    if (leaf.isReserved() && difference.size != leaf.size()) {
        char range[96];
        std::snprintf(range, sizeof range, "  (%zu %s from %zu, 0x%05zx, on)", difference.size,
                      difference.size == 1 ? "byte" : "bytes", difference.offset, difference.offset);
        value += range;
    }
    std::string line = fieldLine(leaf, value);
    line.pop_back();
    const std::string_view other = otherSettingOf(leaf);
    if (!other.empty()) line += "  (also " + std::string(other) + ')';
    if (difference.changesLines == false) line += "  " + output.painted(Output::Paint::yellow, noLineMark);
    return line + '\n';
}

void print(const Pair &pair, bool titled, bool secrets, Output &output) {
    if (titled) output << pair.name << ":\n";
    if (pair.isOneMissing()) {
        output << (pair.now == nullptr ? "only in OLD\n" : "only in NEW\n");
        return;
    }
    for (const FieldDifference &difference : pair.differences)
        output << differenceLine(pair, difference, secrets, output);
    if (pair.part != Part::image) return;
    output << "\n";
    if (!pair.noLines.empty()) {
        output << "No delta lines: " << escapeText(pair.noLines) << "\n";
        return;
    }
    output << "Delta lines, with OLD as the default image:\n";
    for (const std::string &line : pair.lines) output << line << "\n";
    const std::size_t count = pair.unexpressed();
    output << "\nDelta lines alone do not always turn OLD into NEW: "
           << (count == 0 ? std::string("here every difference changes them.\n")
                          : std::to_string(count) + " of " + std::to_string(pair.differences.size()) +
                                (pair.differences.size() == 1 ? " difference" : " differences") +
                                ", marked \"no line\", " + (count == 1 ? "does" : "do") + " not change them.\n");
}

/// Old and new value of a difference, and what else is known of it.
Json changeOf(const FieldDifference &difference, Json old, Json now) {
    Json change = {{"old", std::move(old)}, {"new", std::move(now)}, {"offset", difference.offset}};
    change["changesLines"] = difference.changesLines ? Json(*difference.changesLines) : Json();
    return change;
}

Json jsonOfPair(const Pair &pair, bool secrets) {
    Json document = {{"name", pair.name}};
    document["missing"] = !pair.isOneMissing() ? Json() : Json(pair.now == nullptr ? "new" : "old");
    std::map<std::size_t, const FieldDifference *> fields;
    Json reserved = Json::array();
    for (const FieldDifference &difference : pair.differences) {
        if (!difference.leaf.isReserved()) {
            fields[difference.offset] = &difference;
            continue;
        }
        Json range = {{"path", difference.leaf.path()}, {"size", difference.size}};
        range.update(changeOf(difference, valueText(difference, pair.shownOld, secrets),
                              valueText(difference, pair.shownNow, secrets)));
        reserved.push_back(std::move(range));
    }
    Json changes = jsonFields(
        pair.part, [&](const Leaf &leaf) { return !leaf.isReserved() && fields.contains(leaf.offset()); },
        [&](const Leaf &leaf) {
            Json change =
                changeOf(*fields[leaf.offset()], jsonOf(leaf, pair.shownOld.get()), jsonOf(leaf, pair.shownNow.get()));
            const std::string_view other = otherSettingOf(leaf);
            if (!other.empty()) change["also"] = other;
            return change;
        });
    document["fields"] = changes.is_null() ? Json::object() : std::move(changes);
    document["reserved"] = std::move(reserved);
    if (pair.part != Part::image || pair.isOneMissing()) return document;
    Json &lines = document["lines"];
    if (pair.noLines.empty()) lines = Json::array();
    for (const std::string &line : pair.lines) lines.push_back(escapeText(line));
    document["noLines"] = pair.noLines.empty() ? Json() : Json(escapeText(pair.noLines));
    return document;
}

/// What is the built-in example's among all that was used.
std::vector<std::string> examplesOf(const Input &old, const Input &now) {
    std::vector<std::string> names;
    if (old.image.isExample) names.emplace_back("old");
    if (now.image.isExample) names.emplace_back("new");
    if (now.board.isExample) names.emplace_back("board");
    if (now.isSettingsExample) names.emplace_back("settings");
    return names;
}

} // namespace

int diff(const DiffOptions &options, Output &output) {
    if (options.old == "-" && options.now.record == "-")
        throw InputError("- and -: found standard input twice; expected it once");
    const Input old = loadInput({.record = options.old, .offset = options.oldOffset});
    const Input now = loadInput(options.now);
    const bool areFolders = !options.commands && isFolder(options.old) && isFolder(options.now.record);
    std::vector<Pair> pairs = pairsOf(old, areFolders ? loadInput({.record = options.now.record}) : now, areFolders);
    for (Pair &pair : pairs) compare(pair);
    std::erase_if(pairs, [](const Pair &pair) { return !pair.differs(); });
    if (pairs.empty()) return 0;

    chooseShown(pairs, options.secrets, now.md5.value_or(false));
    for (Pair &pair : pairs) {
        if (pair.part != Part::image || pair.isOneMissing()) continue;
        try {
            addLines(pair, now, !options.commands);
        } catch (const InputError &error) {
            if (options.commands) throw;
            pair.noLines = error.what();
        } catch (const RenderError &error) {
            if (options.commands) throw RenderError(options.now.record + ": " + error.what());
            pair.noLines = error.what();
        }
    }
    if (options.json) {
        Json document = {{"schema", jsonSchema},
                         {"old", escapeText(options.old)},
                         {"new", escapeText(options.now.record)},
                         {"secrets", options.secrets ? "shown" : "masked"},
                         {"examples", examplesOf(old, now)}};
        Json &records = document["records"] = Json::array();
        for (const Pair &pair : pairs) records.push_back(jsonOfPair(pair, options.secrets));
        output << document.dump(2) << "\n";
        return 1;
    }
    if (!now.image.isExample) {
        if (now.board.isExample) std::cerr << "textcfg-inspect: board: the built-in example's\n";
        if (now.isSettingsExample) std::cerr << "textcfg-inspect: settings: the built-in example's\n";
    }
    if (options.commands) {
        for (const std::string &line : pairs.front().lines) output << line << "\n";
        return 1;
    }
    bool isFirst = true;
    for (const Pair &pair : pairs) {
        if (!std::exchange(isFirst, false)) output << "\n";
        print(pair, areFolders, options.secrets, output);
    }
    return 1;
}

} // namespace inspect
