#include "inspect/fields.h"

#include <algorithm>
#include <charconv>
#include <fnmatch.h>

namespace inspect {

const Field *Record::find(std::string_view name) const {
    const auto found = std::ranges::find(fields, name, &Field::name);
    return found == fields.end() ? nullptr : &*found;
}

PlatformRecord platformRecordOf(const PlatformConf &conf) {
    PlatformRecord record = {};
    record.active_bank = conf.activeBank;
    record.password_encryption = conf.md5Passwords ? 1 : 0;
    return record;
}

std::string_view nameOf(Part part) {
    switch (part) {
    case Part::image: return "image";
    case Part::board: return "board";
    case Part::platform: break;
    }
    return "platform";
}

std::string Leaf::path() const {
    std::string path;
    if (part_ != Part::image) path.append(nameOf(part_));
    for (const Step &step : steps()) {
        if (!path.empty()) path += '.';
        path += step.field->name;
        if (step.field->count == 0) continue;
        char digits[24];
        const std::size_t number = step.index + static_cast<std::size_t>(step.field->firstIndex);
        const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
        path += '[';
        path.append(digits, end.ptr);
        path += ']';
    }
    return path;
}

std::optional<Leaf> leafAt(Part part, std::size_t offset) {
    if (offset >= recordOf(part).size) return std::nullopt;
    Leaf leaf(part);
    const Record *record = &recordOf(part);
    while (record != nullptr) {
        // The last field that begins at the byte or before it: fields leave no gap.
        const auto next = std::ranges::upper_bound(record->fields, offset, {}, &Field::offset);
        const Field &field = *(next - 1);
        const std::size_t index = (offset - field.offset) / field.size;
        leaf.push(field, index);
        offset -= field.offset + index * field.size;
        record = field.record;
    }
    return leaf;
}

namespace {

/// Takes `front` away from the beginning of `text`, if it begins so.
bool takeAway(std::string_view &text, std::string_view front) {
    if (!text.starts_with(front)) return false;
    text.remove_prefix(front.size());
    return true;
}

/// Takes "[N]" away and sets `index`, counted from 0.
bool takeIndex(std::string_view &text, const Field &field, std::size_t &index) {
    const std::size_t close = text.find(']');
    if (!text.starts_with('[') || close == std::string_view::npos) return false;
    const char *const first = text.data() + 1;
    const char *const last = text.data() + close;
    std::size_t number = 0;
    const std::from_chars_result end = std::from_chars(first, last, number);
    if (end.ec != std::errc() || end.ptr != last || (*first == '0' && last - first > 1)) return false;
    const std::size_t lowest = static_cast<std::size_t>(field.firstIndex);
    if (number < lowest || number - lowest >= field.count) return false;
    index = number - lowest;
    text.remove_prefix(close + 1);
    return true;
}

} // namespace

std::optional<Leaf> leafOf(std::string_view path) {
    Part part = Part::image;
    if (takeAway(path, "board.")) part = Part::board;
    else if (takeAway(path, "platform.")) part = Part::platform;
    Leaf leaf(part);
    for (const Record *record = &recordOf(part);;) {
        const std::string_view name = path.substr(0, path.find_first_of(".["));
        const Field *const field = record->find(name);
        if (field == nullptr) return std::nullopt;
        path.remove_prefix(name.size());
        std::size_t index = 0;
        if (field->count != 0 && !takeIndex(path, *field, index)) return std::nullopt;
        leaf.push(*field, index);
        record = field->record;
        if (record == nullptr) return path.empty() ? std::optional(leaf) : std::nullopt;
        if (!takeAway(path, ".")) return std::nullopt;
    }
}

bool isEntryInUse(const Record &ownerType, const Field &table, std::size_t index, const void *owner) {
    const unsigned char *const bytes = static_cast<const unsigned char *>(owner);
    if (!table.inUse.empty()) {
        const Field *const set = ownerType.find(table.inUse);
        const std::size_t bit = index + static_cast<std::size_t>(table.firstIndex);
        return (bytes[set->offset + bit / 8] >> bit % 8 & 1) != 0;
    }
    if (table.count == 0 || table.record == nullptr || table.record->inUse == nullptr) return true;
    const Field &field = *table.record->inUse;
    const unsigned char *const value = bytes + table.offset + index * table.size + field.offset;
    if (field.kind == Kind::text || field.kind == Kind::secret) return value[0] != 0;
    return std::any_of(value, value + field.size, [](unsigned char byte) { return byte != 0; });
}

bool isInUse(const Leaf &leaf, const void *record) {
    const unsigned char *owner = static_cast<const unsigned char *>(record);
    const Record *type = &recordOf(leaf.part());
    for (const Leaf::Step &step : leaf.steps()) {
        if (!isEntryInUse(*type, *step.field, step.index, owner)) return false;
        owner += step.field->offset + step.index * step.field->size;
        type = step.field->record;
    }
    return true;
}

PathPattern::PathPattern(std::string_view pattern)
    : text_(pattern), plain_(pattern.find_first_of("*?") == std::string_view::npos) {
    for (const char character : pattern) {
        if (character == '[' || character == ']' || character == '\\') escaped_ += '\\';
        escaped_ += character;
    }
}

bool PathPattern::matches(const std::string &path) const {
    if (plain_)
        return path.starts_with(text_) &&
               (path.size() == text_.size() || path[text_.size()] == '.' || path[text_.size()] == '[');
    if (fnmatch(escaped_.c_str(), path.c_str(), 0) == 0) return true;
    std::string front = path;
    for (std::size_t end = front.find_last_of(".["); end != std::string::npos; end = front.find_last_of(".[")) {
        front.resize(end);
        if (fnmatch(escaped_.c_str(), front.c_str(), 0) == 0) return true;
    }
    return false;
}

} // namespace inspect
