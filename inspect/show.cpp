#include "inspect/show.h"

#include "inspect/mask.h"
#include "inspect/sha256.h"
#include "platform/mapi.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace inspect {
namespace {

/// The records of an input as bytes, by part.
struct Records {
    const ConfigImage *image;
    const BoardRecord *board = nullptr; ///< null: missing
    std::optional<PlatformRecord> platform;

    explicit Records(const Input &input) : image(&*input.image), board(input.board.value.get()) {
        if (input.bank && input.md5) platform = platformRecordOf({*input.bank, *input.md5});
    }

    /// Null if the part is missing.
    const void *of(Part part) const {
        switch (part) {
        case Part::image: return image;
        case Part::board: return board;
        case Part::platform: break;
        }
        return platform ? &*platform : nullptr;
    }
};

/// What is shown of an input: the choice is made on the records as they are, the values come from those to be printed.
class Selection {
public:
    Selection(const Input &input, const ShowOptions &options)
        : options_(options), records_(input), defaults_(input.defaults.value.get()) {
        if (options.changed) input.requireDefaults();
        for (const std::string &pattern : options.patterns) patterns_.push_back({PathPattern(pattern)});
        if (!options.at) return;
        at_ = leafAt(Part::image, static_cast<std::size_t>(std::min<std::uint64_t>(*options.at, SIZE_MAX)));
        if (!at_)
            throw InputError("--at " + std::to_string(*options.at) + ": there is no such byte; expected 0 to " +
                             std::to_string(sizeof(ConfigImage) - 1));
    }

    bool has(const Leaf &leaf) {
        const void *const record = records_.of(leaf.part());
        if (record == nullptr || (at_ && !(leaf == *at_))) return false;
        bool named = at_.has_value();
        if (!patterns_.empty()) {
            const std::string path = leaf.path();
            bool matches = false;
            for (Pattern &pattern : patterns_) {
                if (!pattern.pattern.matches(path)) continue;
                pattern.matched = matches = true;
                named = named || path == pattern.pattern.text();
            }
            if (!matches) return false;
        }
        if (!named && !options_.all && (leaf.isReserved() || !isInUse(leaf, record)) && !isTakenAway(leaf)) {
            ++leftOut_;
            return false;
        }
        if (!options_.changed) return true;
        return leaf.part() == Part::image && !isSame(leaf, record, defaults_);
    }

    /// Throws an InputError if a pattern names nothing. To be asked after the walk.
    void requireMatches() const {
        for (const Pattern &pattern : patterns_)
            if (!pattern.matched) throw InputError("no field matches " + pattern.pattern.text());
    }
    std::size_t leftOut() const { return leftOut_; }

private:
    struct Pattern {
        PathPattern pattern;
        bool matched = false;
    };

    /// Unused here, but used in the default image: a change that has to be seen.
    bool isTakenAway(const Leaf &leaf) const {
        return options_.changed && !leaf.isReserved() && leaf.part() == Part::image && isInUse(leaf, defaults_);
    }

    const ShowOptions &options_;
    Records records_;
    const ConfigImage *defaults_;
    std::vector<Pattern> patterns_;
    std::optional<Leaf> at_;
    std::size_t leftOut_ = 0;
};

/// A line of the summary.
struct Fact {
    const char *name;
    const char *key; ///< in JSON
    Json value;      ///< null: not known
};

std::string textIn(const char *characters, std::size_t width) {
    return escapeText({characters, strnlen(characters, width)});
}

Json equality(const ImagePart &image, const ImagePart &other) {
    if (!other) return nullptr;
    return sameBytes(*image, *other);
}

std::vector<Fact> summaryOf(const Input &input) {
    const CompanyInfo &company = input.image->company;
    std::vector<Fact> facts;
    facts.push_back({"host name", "hostName", textIn(company.hostName.characters, company.hostName.width)});
    Json mac;
    Json firmware;
    Json board;
    if (input.board) {
        mac = jsonOf(*leafOf("board.macAddress"), &*input.board);
        if (input.bank == 1) firmware = jsonOf(*leafOf("board.versionOfBank1"), &*input.board);
        if (input.bank == 2) firmware = jsonOf(*leafOf("board.versionOfBank2"), &*input.board);
        board = "type " + std::to_string(input.board->boardType.value()) + (input.board->hasPoe() ? ", PoE" : "") +
                (input.board->hasBattery() ? ", battery" : "");
    }
    facts.push_back({"MAC", "mac", mac});
    facts.push_back({"firmware", "firmware", firmware});
    facts.push_back({"board", "board", board});
    facts.push_back({"sha256", "sha256", sha256(&*input.image, sizeof(ConfigImage))});
    constexpr std::array<std::array<const char *, 2>, imageFileCount> names = {
        {{"sha256 of running", "sha256OfRunning"},
         {"sha256 of default", "sha256OfDefault"},
         {"sha256 of startup", "sha256OfStartup"},
         {"sha256 of customer_default", "sha256OfCustomerDefault"}}};
    Json equalsStartup;
    for (std::int32_t selector = 0; selector < imageFileCount; ++selector) {
        const ImagePart image = selector == MAPI_CONFIG_DEFAULT ? input.defaults : input.sibling(selector);
        const auto &[name, key] = names[static_cast<std::size_t>(selector)];
        facts.push_back({name, key, image ? Json(sha256(&*image, sizeof(ConfigImage))) : Json()});
        if (selector == MAPI_CONFIG_STARTUP) equalsStartup = equality(input.image, image);
    }
    facts.push_back({"equals default", "equalsDefault", equality(input.image, input.defaults)});
    facts.push_back({"equals startup", "equalsStartup", equalsStartup});
    return facts;
}

std::string factText(const Json &value) {
    if (value.is_null()) return "not known";
    if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
    return value.get<std::string>();
}

/// Appends blanks up to a column, at least two.
void padTo(std::string &line, std::size_t column) { line.append(std::max(column, line.size() + 2) - line.size(), ' '); }

void printSummary(const Input &input, Output &output) {
    const auto print = [&](const std::string &name, const std::string &text) {
        std::string line = name;
        padTo(line, 28);
        output << line + text + '\n';
    };
    print("record", escapeText(input.name));
    for (const std::string &example : input.examples()) print("built-in example", example);
    for (const Fact &fact : summaryOf(input)) print(fact.name, factText(fact.value));
    for (const std::string &problem : {input.defaults.problem, input.board.problem, input.settingsProblem})
        if (!problem.empty()) print("problem", escapeText(problem));
    output << "\n";
}

class JsonWalk {
public:
    JsonWalk(Part part, const std::function<bool(const Leaf &)> &chosen, const std::function<Json(const Leaf &)> &value)
        : way_(part), chosen_(chosen), value_(value) {}

    /// The chosen fields of a record; null if there are none.
    Json fieldsOf(const Record &record) {
        Json object;
        for (const Field &field : record.fields) {
            Json value = field.count == 0 ? entryOf(field, 0) : tableOf(field);
            if (!value.is_null()) object[std::string(field.name)] = std::move(value);
        }
        return object;
    }

private:
    Json entryOf(const Field &field, std::size_t index) {
        way_.push(field, index);
        Json value;
        if (field.record != nullptr) value = fieldsOf(*field.record);
        else if (chosen_(way_)) value = value_(way_);
        way_.pop();
        return value;
    }

    Json tableOf(const Field &field) {
        Json table = Json::array();
        bool some = false;
        for (std::size_t index = 0; index < field.count; ++index) {
            Json entry = entryOf(field, index);
            some = some || !entry.is_null();
            if (field.record == nullptr) {
                table.push_back(std::move(entry));
            } else if (!entry.is_null()) {
                Json numbered = {{"index", index + static_cast<std::size_t>(field.firstIndex)}};
                numbered.update(entry);
                table.push_back(std::move(numbered));
            }
        }
        return some ? table : Json();
    }

    Leaf way_;
    const std::function<bool(const Leaf &)> &chosen_;
    const std::function<Json(const Leaf &)> &value_;
};

} // namespace

Json jsonHead(const Input &input, bool secrets) {
    Json head;
    head["schema"] = jsonSchema;
    head["record"] = escapeText(input.name);
    head["secrets"] = secrets ? "shown" : "masked";
    head["examples"] = input.examples();
    return head;
}

Json jsonFields(Part part, const std::function<bool(const Leaf &)> &chosen,
                const std::function<Json(const Leaf &)> &value) {
    return JsonWalk(part, chosen, value).fieldsOf(recordOf(part));
}

std::string fieldLine(const Leaf &leaf, const std::string &value) {
    std::string line = leaf.path();
    padTo(line, 36);
    line += value;
    if (leaf.field().unit != nullptr) line += std::string(" ") + leaf.field().unit;
    if (leaf.part() != Part::platform) {
        padTo(line, 68);
        char offset[40];
        std::snprintf(offset, sizeof offset, "%6zu  0x%05zx", leaf.offset(), leaf.offset());
        line += offset;
    }
    return line + '\n';
}

void show(const Input &input, const ShowOptions &options, Output &output) {
    Selection selection(input, options);
    const Input printed = options.secrets ? input : maskedCopy(input);
    const Records records(printed);
    const bool hasSummary = options.patterns.empty() && !options.at;
    const auto isHidden = [&](const Leaf &leaf) { return leaf.isReserved() && !options.secrets; };

    if (!options.json) {
        // Into memory first: a pattern that matches nothing prints nothing.
        std::string lines;
        for (const Part part : parts)
            forEachLeaf(part, [&](const Leaf &leaf) {
                if (selection.has(leaf))
                    lines += fieldLine(leaf, isHidden(leaf) ? hiddenBytes : displayOf(leaf, records.of(part)));
            });
        selection.requireMatches();
        if (hasSummary) printSummary(input, output);
        output << lines;
        return;
    }
    Json document = jsonHead(printed, options.secrets);
    if (hasSummary) {
        Json &summary = document["summary"] = Json::object();
        for (const Fact &fact : summaryOf(input)) summary[fact.key] = fact.value;
    }
    for (const Part part : parts) {
        Json fields = jsonFields(
            part, [&](const Leaf &leaf) { return selection.has(leaf); },
            [&](const Leaf &leaf) { return isHidden(leaf) ? Json(hiddenBytes) : jsonOf(leaf, records.of(part)); });
        if (!fields.is_null()) document[std::string(nameOf(part))] = std::move(fields);
    }
    selection.requireMatches();
    output << document.dump(2) << "\n";
}

} // namespace inspect
