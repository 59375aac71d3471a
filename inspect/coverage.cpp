#include "inspect/coverage.h"

#include "inspect/coverage_scenes.h"
#include "inspect/engine.h"

#include <algorithm>
#include <map>
#include <memory>

namespace inspect {
namespace {

// ----------------------------------------------------------------------------------------------------------- the units

/// What a change of a unit alone, or together with others, does to the delta text.
enum class Depth { none, defaultsOnly, compared, written };

/// What the text has of a unit: a byte of a field, or a bit of a set.
struct Visible {
    bool full = false;
    bool fullByDefaults = false;
    Depth alone = Depth::none;
    Depth withOthers = Depth::none;
    bool misses = false; ///< a change that full mode shows has no line in delta mode

    friend bool operator==(const Visible &, const Visible &) = default;
};

/// A unit, and the values that it is tried with.
struct Unit {
    std::size_t offset; ///< of the byte, in the image
    std::size_t number; ///< of the byte or bit, in the field
    unsigned char mask; ///< the bits of the byte that belong to it
    std::vector<unsigned char> values;
};

/// The bits of a large set that are tried.
bool isTried(std::size_t bit, std::size_t bits) {
    constexpr std::size_t all = 200;
    return bits <= all || bit < 2 || bit == bits / 2 - 1 || bit >= bits - 2;
}

/// Values of the byte that says most about a number: codes and their neighbours.
std::vector<unsigned char> lowestByteValues(const Field &field) {
    if (field.kind == Kind::flag) return {0, 1, 2, 0xff};
    std::vector<unsigned char> values = {0, 1, 2, 3, 0xff};
    if (!field.words.empty()) values.push_back(static_cast<unsigned char>(field.words.back().code));
    return values;
}

std::vector<Unit> unitsOf(const Leaf &leaf, const unsigned char *now) {
    const Field &field = leaf.field();
    std::vector<Unit> units;
    if (field.kind == Kind::bits) {
        for (std::size_t bit = 0; bit < field.size * 8; ++bit) {
            if (!isTried(bit, field.size * 8)) continue;
            const std::size_t byte = field.isWord ? field.size - 1 - bit / 8 : bit / 8;
            const unsigned char mask = static_cast<unsigned char>(1U << bit % 8);
            units.push_back({leaf.offset() + byte, bit, mask, {0, mask}});
        }
        return units;
    }
    for (std::size_t byte = 0; byte < field.size; ++byte) {
        const unsigned char base = now[byte];
        std::vector<unsigned char> values;
        const bool isNumber = field.kind == Kind::flag || field.kind == Kind::number || field.kind == Kind::code ||
                              field.kind == Kind::portNumber || field.kind == Kind::vlanId;
        if (field.kind == Kind::text || field.kind == Kind::secret) values = {'x', 'y', 0};
        else if (isNumber && byte == field.size - 1) values = lowestByteValues(field);
        else values = {0, static_cast<unsigned char>(base ^ 0x80)};
        for (const unsigned char other : {base, static_cast<unsigned char>(base ^ 1)})
            if (std::ranges::find(values, other) == values.end()) values.push_back(other);
        units.push_back({leaf.offset() + byte, byte, 0xff, values});
    }
    return units;
}

/// Texts, each with a number of its own.
class Texts {
public:
    std::size_t numberOf(std::string_view text) {
        const auto found = std::ranges::find(texts_, text);
        if (found != texts_.end()) return static_cast<std::size_t>(found - texts_.begin());
        texts_.emplace_back(text);
        return texts_.size() - 1;
    }

private:
    std::vector<std::string> texts_;
};

constexpr std::size_t noText = SIZE_MAX;

/// Tries units in one scene.
class Trial {
public:
    Trial(Engine &engine, bool isEqual) : engine_(engine), isEqual_(isEqual) {}

    void run(const Unit &unit, Visible &visible) {
        unit_ = &unit;
        count_ = unit.values.size();
        // Which values give different full texts, and which give another delta text than equal images.
        std::vector<bool> isShown(count_ * count_);
        std::vector<bool> isSeen(count_ * count_);
        for (std::size_t stage = 1; stage < stageCount; ++stage) {
            if (readsIn(Mode::full, stage, Origin::current) && (isEqual_ || !visible.full)) {
                const std::vector<std::size_t> texts = textsOf(Mode::full, stage, Origin::current);
                for (std::size_t c = 0; c < count_; ++c)
                    for (std::size_t d = 0; d < count_; ++d)
                        if (differ(texts[c], texts[d])) isShown[c * count_ + d] = visible.full = true;
            }
            if (readsIn(Mode::full, stage, Origin::defaults) && !visible.fullByDefaults) {
                const std::vector<std::size_t> texts = textsOf(Mode::full, stage, Origin::defaults);
                for (const std::size_t text : texts)
                    visible.fullByDefaults = visible.fullByDefaults || differ(text, texts[0]);
            }
            if (!isEqual_ && (visible.alone == Depth::written || visible.withOthers == Depth::written)) continue;
            const bool readsCurrent = readsIn(Mode::delta, stage, Origin::current);
            const bool readsDefaults = readsIn(Mode::delta, stage, Origin::defaults);
            if (!readsCurrent && !readsDefaults) continue;
            const std::vector<std::size_t> texts = deltaTexts(stage, readsCurrent, readsDefaults);
            for (std::size_t c = 0; c < count_; ++c)
                for (std::size_t d = 0; d < count_; ++d)
                    if (differ(texts[c * count_ + d], texts[d * count_ + d])) isSeen[c * count_ + d] = true;
            Depth &depth = isEqual_ ? visible.alone : visible.withOthers;
            depth = std::max(depth, depthOf(texts, count_));
        }
        for (std::size_t i = 0; isEqual_ && i < isShown.size(); ++i)
            visible.misses = visible.misses || (isShown[i] && !isSeen[i]);
    }

private:
    bool readsIn(Mode mode, std::size_t stage, Origin origin) const {
        return reads(mode, stage, origin, unit_->offset, 1);
    }
    unsigned char &byteIn(Origin origin) { return engine_.recordOf(origin)[unit_->offset]; }
    void put(Origin origin, std::size_t value) {
        unsigned char &byte = byteIn(origin);
        byte = static_cast<unsigned char>((byte & ~unit_->mask) | unit_->values[value]);
    }
    std::size_t numberOfText(Mode mode, std::size_t stage, Texts &numbers) {
        const std::optional<std::string_view> text = engine_.render(mode, stage);
        return text ? numbers.numberOf(*text) : noText;
    }

    /// The number of the text for each value in one image.
    std::vector<std::size_t> textsOf(Mode mode, std::size_t stage, Origin origin) {
        const unsigned char byte = byteIn(origin);
        Texts numbers;
        std::vector<std::size_t> texts(count_);
        for (std::size_t i = 0; i < count_; ++i) {
            put(origin, i);
            texts[i] = numberOfText(mode, stage, numbers);
        }
        byteIn(origin) = byte;
        return texts;
    }

    /// The number of the text for each value in the current image, a row, and in the default image.
    std::vector<std::size_t> deltaTexts(std::size_t stage, bool readsCurrent, bool readsDefaults) {
        const unsigned char current = byteIn(Origin::current);
        const unsigned char defaults = byteIn(Origin::defaults);
        Texts numbers;
        std::vector<std::size_t> texts(count_ * count_, noText);
        for (std::size_t c = 0; c < count_; ++c)
            for (std::size_t d = 0; d < count_; ++d) {
                const std::size_t known = (readsCurrent ? c : 0) * count_ + (readsDefaults ? d : 0);
                if (known != c * count_ + d) {
                    texts[c * count_ + d] = texts[known];
                    continue;
                }
                put(Origin::current, c);
                put(Origin::defaults, d);
                texts[known] = numberOfText(Mode::delta, stage, numbers);
            }
        byteIn(Origin::current) = current;
        byteIn(Origin::defaults) = defaults;
        return texts;
    }

    static bool differ(std::size_t a, std::size_t b) { return a != b && a != noText && b != noText; }

    static Depth depthOf(const std::vector<std::size_t> &texts, std::size_t count) {
        const auto text = [&](std::size_t c, std::size_t d) { return texts[c * count + d]; };
        Depth depth = Depth::none;
        for (std::size_t d = 0; d < count; ++d)
            for (std::size_t c = 0; c < count; ++c)
                for (std::size_t other = 0; other < c; ++other) {
                    if (differ(text(d, c), text(d, other))) depth = std::max(depth, Depth::defaultsOnly);
                    if (!differ(text(c, d), text(other, d))) continue;
                    depth = std::max(depth, Depth::compared);
                    if (c != d && other != d) return Depth::written;
                }
        // A bit has two values: its lines are those of the value if it matters which image has it.
        if (count == 2 && depth == Depth::compared && differ(text(0, 1), text(1, 0))) return Depth::written;
        return depth;
    }

    Engine &engine_;
    bool isEqual_;
    const Unit *unit_ = nullptr;
    std::size_t count_ = 0;
};

// ---------------------------------------------------------------------------------------------------------- the fields

/// A field of one entry.
struct Tried {
    Leaf leaf;
    std::vector<std::size_t> numbers; ///< of the units
    std::vector<Visible> units;
};

/// Calls `visit` for the leaves of the first, a middle and the last entry of each array and table.
template <class Visit> void sample(Leaf &way, const Record &record, Visit &visit) {
    for (const Field &field : record.fields) {
        const std::size_t entries = field.count == 0 ? 1 : field.count;
        for (std::size_t index = 0; index < entries; ++index) {
            if (index != 0 && index != entries - 1 && index != (entries - 1) / 2) continue;
            way.push(field, index);
            if (field.record != nullptr) sample(way, *field.record, visit);
            else visit(static_cast<const Leaf &>(way));
            way.pop();
        }
    }
}

/// Whether any step declares to read a part of the leaf in one of the images.
bool isRead(const Leaf &leaf) {
    for (const Mode mode : modes)
        for (std::size_t stage = 1; stage < stageCount; ++stage)
            for (const Origin origin : {Origin::current, Origin::defaults})
                if (reads(mode, stage, origin, leaf.offset(), leaf.size())) return true;
    return false;
}

/// The path without the numbers of entries.
std::string genericPath(const Leaf &leaf) {
    std::string path;
    for (const Leaf::Step &step : leaf.steps()) {
        if (!path.empty()) path += '.';
        path += step.field->name;
        if (step.field->count != 0) path += "[]";
    }
    return path;
}

std::string genericPath(std::string_view path) {
    std::string generic;
    bool isNumber = false;
    for (const char character : path) {
        if (character == ']') isNumber = false;
        if (!isNumber) generic += character;
        if (character == '[') isNumber = true;
    }
    return generic;
}

std::string fullWord(const Visible &visible) {
    if (visible.full) return visible.fullByDefaults ? "written, default" : "written";
    return visible.fullByDefaults ? "default" : "-";
}

std::string deltaWord(const Visible &visible) {
    if (visible.alone == Depth::written) return "written";
    const bool isComparedAlone = visible.alone == Depth::compared;
    if (visible.withOthers == Depth::written) return isComparedAlone ? "compared, with others" : "with others";
    if (isComparedAlone || visible.withOthers == Depth::compared) return isComparedAlone ? "compared" : "with others";
    return visible.alone == Depth::defaultsOnly || visible.withOthers == Depth::defaultsOnly ? "default" : "-";
}

/// The words of all units, those of neighbours put together.
template <class WordOf> std::string cellOf(const Tried &tried, WordOf wordOf) {
    std::string cell;
    const char *const unit = tried.leaf.field().kind == Kind::bits ? "bit" : "byte";
    for (std::size_t first = 0; first < tried.units.size();) {
        const std::string word = wordOf(tried.units[first]);
        std::size_t last = first;
        while (last + 1 < tried.units.size() && wordOf(tried.units[last + 1]) == word) ++last;
        if (!cell.empty()) cell += "; ";
        cell += word;
        if (first != 0 || last + 1 != tried.units.size()) {
            cell += std::string(" (") + unit + (first == last ? " " : "s ") + std::to_string(tried.numbers[first]);
            if (first != last) cell += "-" + std::to_string(tried.numbers[last]);
            cell += ")";
        }
        first = last + 1;
    }
    return cell;
}

/// A `Renderer` with room for a store.
struct Stage {
    std::unique_ptr<Store> store = std::make_unique<Store>();
    Renderer renderer;

    Stage() : renderer(store->current, store->defaults, store->board, {1, false}) {}
};

bool isSilent(const Tried &tried) {
    return std::ranges::all_of(tried.units, [](const Visible &visible) { return visible == Visible(); });
}

// --------------------------------------------------------------------------------------------------------- the
// reserved

/// The reserved bytes of the image, those of exceptions marked.
struct ReservedByte {
    std::size_t offset;
    bool isException;
};

std::vector<ReservedByte> reservedBytes() {
    std::vector<ReservedByte> bytes;
    forEachLeaf(Part::image, [&](const Leaf &leaf) {
        if (!leaf.isReserved()) return;
        const std::string path = genericPath(leaf);
        const bool isException = std::ranges::any_of(coverageExceptions(), [&](const CoverageException &of) {
            return of.path == path || genericPath(of.path) == path;
        });
        for (std::size_t i = 0; i < leaf.size(); ++i) bytes.push_back({leaf.offset() + i, isException});
    });
    return bytes;
}

/// The first of `offsets` that changes the text when all up to it are changed; nothing if all together change nothing.
std::optional<std::size_t> firstThatShows(Engine &engine, Mode mode, std::size_t stage, Origin origin,
                                          unsigned char bits, const std::vector<std::size_t> &offsets) {
    const auto before = engine.render(mode, stage);
    if (!before) return std::nullopt;
    const std::string text(*before);
    unsigned char *const record = engine.recordOf(origin);
    const auto changesWith = [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            record[offsets[i]] = static_cast<unsigned char>(record[offsets[i]] ^ bits);
        const auto after = engine.render(mode, stage);
        const bool changes = !after || *after != text;
        for (std::size_t i = 0; i < count; ++i)
            record[offsets[i]] = static_cast<unsigned char>(record[offsets[i]] ^ bits);
        return changes;
    };
    if (!changesWith(offsets.size())) return std::nullopt;
    std::size_t without = 0;
    std::size_t with = offsets.size();
    while (with - without > 1) {
        const std::size_t middle = without + (with - without) / 2;
        (changesWith(middle) ? with : without) = middle;
    }
    return offsets[with - 1];
}

} // namespace

std::vector<std::string> reservedBytesThatShow(std::size_t every) {
    Stage stage;
    const std::vector<ReservedByte> bytes = reservedBytes();
    std::vector<std::string> found;
    for (const Scene &scene : coverageScenes()) {
        show(scene, *stage.store, stage.renderer);
        Engine engine(stage.renderer);
        for (const Mode mode : modes)
            for (std::size_t number = 1; number < stageCount; number += every)
                for (const Origin origin : {Origin::current, Origin::defaults}) {
                    // All that must have no effect: no exceptions, or not read by this step.
                    std::vector<std::size_t> offsets;
                    for (const ReservedByte &byte : bytes)
                        if (!byte.isException || !reads(mode, number, origin, byte.offset, 1))
                            offsets.push_back(byte.offset);
                    for (const u8 bits : {u8{0x01}, u8{0xff}})
                        if (const auto byte = firstThatShows(engine, mode, number, origin, bits, offsets))
                            found.push_back(leafAt(Part::image, *byte)->path() + " (byte " + std::to_string(*byte) +
                                            " of the image): " + std::string(emitterOf(number)) +
                                            (mode == Mode::full ? ", full mode" : ", delta mode"));
                }
    }
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

std::vector<FieldCoverage> coverageOfImage(std::size_t every, std::size_t first) {
    Stage stage;
    std::vector<Tried> all;
    Leaf way(Part::image);
    std::map<std::string, std::size_t> fields;
    const auto add = [&](const Leaf &leaf) {
        if (leaf.isReserved() && !isRead(leaf)) return;
        const std::size_t number = fields.try_emplace(genericPath(leaf), fields.size()).first->second;
        if (number % every == first % every) all.push_back({leaf, {}, {}});
    };
    sample(way, inspect::recordOf(Part::image), add);

    for (const Scene &scene : coverageScenes()) {
        show(scene, *stage.store, stage.renderer);
        Engine engine(stage.renderer);
        Trial trial(engine, scene.isEqual);
        for (Tried &tried : all) {
            const std::vector<Unit> units = unitsOf(tried.leaf, tried.leaf.in(&stage.store->current));
            tried.units.resize(units.size());
            tried.numbers.resize(units.size());
            for (std::size_t i = 0; i < units.size(); ++i) {
                tried.numbers[i] = units[i].number;
                trial.run(units[i], tried.units[i]);
            }
        }
    }

    // Entries that agree are one row. A change that is missed counts for the whole field.
    std::vector<FieldCoverage> rows;
    std::vector<std::string> order;
    std::map<std::string, std::vector<const Tried *>> byField;
    for (const Tried &tried : all) {
        std::vector<const Tried *> &entries = byField[genericPath(tried.leaf)];
        if (entries.empty()) order.push_back(genericPath(tried.leaf));
        entries.push_back(&tried);
    }
    for (const std::string &path : order) {
        const std::vector<const Tried *> &entries = byField[path];
        const bool isReserved = entries.front()->leaf.isReserved();
        if (isReserved && std::ranges::all_of(entries, [](const Tried *tried) { return isSilent(*tried); })) continue;
        const bool misses = std::ranges::any_of(entries, [](const Tried *tried) {
            return std::ranges::any_of(
                tried->units, [](const Visible &visible) { return visible.misses && visible.alone == Depth::written; });
        });
        const auto deltaOf = [&](const Visible &visible) {
            const std::string word = deltaWord(visible);
            return word == "written" && misses ? std::string("partly") : word;
        };
        std::vector<FieldCoverage> ofEntries;
        ofEntries.reserve(entries.size());
        for (const Tried *const tried : entries)
            ofEntries.push_back(
                {tried->leaf.path(), cellOf(*tried, fullWord), cellOf(*tried, deltaOf), tried->leaf.isReserved()});
        const FieldCoverage &one = ofEntries.front();
        const bool agree = std::ranges::all_of(
            ofEntries, [&](const FieldCoverage &of) { return of.full == one.full && of.delta == one.delta; });
        if (agree) rows.push_back({path, one.full, one.delta, isReserved});
        else rows.insert(rows.end(), ofEntries.begin(), ofEntries.end());
    }
    return rows;
}

} // namespace inspect
